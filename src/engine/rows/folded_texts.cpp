#include "engine/rows/folded_texts.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "engine/text/folding.h"

namespace engine {

bool FoldedTexts::hasRoomFor(std::int64_t row) const {
    if (m_chunks.empty() || m_chunks.back().texts.size() >= chunkSize) return false;
    const auto distance =
        static_cast<std::uint64_t>(row) - static_cast<std::uint64_t>(m_chunks.back().firstRow);
    return distance <= std::numeric_limits<std::uint32_t>::max();
}

void FoldedTexts::beginChunk(std::int64_t row) {
    if (!m_chunks.empty()) {
        m_chunks.back().texts.shrink_to_fit();
        m_chunks.back().ends.shrink_to_fit();
        m_chunks.back().rows.shrink_to_fit();
    }
    m_chunks.push_back({.firstRow = row, .texts = {}, .ends = {}, .rows = {}});
}

void FoldedTexts::add(std::int64_t row, std::string_view text) {
    if (!hasRoomFor(row)) beginChunk(row);
    Chunk& chunk = m_chunks.back();
    const std::size_t before = chunk.texts.size();
    appendFolded(chunk.texts, text);
    chunk.ends.push_back(static_cast<std::uint32_t>(chunk.texts.size()));
    chunk.rows.push_back(static_cast<std::uint32_t>(static_cast<std::uint64_t>(row) -
                                                    static_cast<std::uint64_t>(chunk.firstRow)));
    ++m_size;
    m_bytes += chunk.texts.size() - before + sizeof chunk.ends[0] + sizeof chunk.rows[0];
}

std::optional<std::vector<std::int64_t>> FoldedTexts::holding(std::string_view folded,
                                                              std::size_t most) const {
    std::vector<std::int64_t> found;
    for (const Chunk& chunk : m_chunks) {
        const char* const begin = chunk.texts.data();
        const char* const end = begin + chunk.texts.size();
        for (const char* at = begin; at < end;) {
            const auto* hit = static_cast<const char*>(
                ::memmem(at, static_cast<std::size_t>(end - at), folded.data(), folded.size()));
            if (!hit) break;
            const auto text = std::ranges::upper_bound(chunk.ends, static_cast<std::uint32_t>(hit - begin));
            if (hit + folded.size() > begin + *text) {  // from one text into the next
                at = hit + 1;
                continue;
            }
            if (found.size() == most) return std::nullopt;
            found.push_back(chunk.firstRow + chunk.rows[static_cast<std::size_t>(text - chunk.ends.begin())]);
            at = begin + *text;
        }
    }
    return found;
}

}  // namespace engine
