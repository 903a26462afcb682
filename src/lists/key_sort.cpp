#include "lists/key_sort.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <span>

namespace lists {
namespace {

// Seven bytes of a key from some depth on, big end first, then how many of them the key had; 8 when more
// follow. A key that ends is thus before every longer one, bytes of zero included.
constexpr std::size_t chunkSize = 7;
constexpr std::uint64_t moreFollow = 8;

struct Entry {
    std::uint64_t chunk;
    std::uint32_t place;
};

std::uint64_t chunkAt(std::string_view key, std::size_t depth) {
    const std::string_view rest = key.substr(std::min(depth, key.size()));
    std::uint64_t chunk = 0;
    for (std::size_t at = 0; at < chunkSize; ++at)
        chunk = chunk << 8 | (at < rest.size() ? static_cast<unsigned char>(rest[at]) : 0U);
    return chunk << 8 | (rest.size() > chunkSize ? moreFollow : rest.size());
}

// What all keys begin with.
std::size_t sharedBeginning(const std::vector<std::string_view>& keys) {
    std::string_view shared = keys.front();
    for (const std::string_view key : keys) {
        const auto differ = std::mismatch(shared.begin(), shared.end(), key.begin(), key.end());
        shared = {shared.begin(), differ.first};
    }
    return shared.size();
}

class Sorter {
  public:
    Sorter(const std::vector<std::string_view>& keys, bool descending)
        : m_keys(keys), m_descending(descending), m_entries(keys.size()), m_sorted(keys.size()) {
        for (std::size_t at = 0; at < keys.size(); ++at) m_entries[at].place = static_cast<std::uint32_t>(at);
    }

    std::vector<std::uint32_t> run() {
        std::vector<Run> tied;
        if (m_entries.size() > 1) tied.push_back({0, m_entries.size()});
        for (std::size_t depth = tied.empty() ? 0 : sharedBeginning(m_keys); !tied.empty();
             depth += chunkSize) {
            readChunks(tied, depth);
            std::vector<Run> still;
            for (const Run& run : tied) {
                sortByChunk(run);
                addTies(still, run);
            }
            tied.swap(still);
        }
        std::vector<std::uint32_t> order(m_entries.size());
        std::transform(m_entries.begin(), m_entries.end(), order.begin(),
                       [](const Entry& entry) { return entry.place; });
        return order;
    }

  private:
    struct Run {
        std::size_t begin, end;
    };

    void readChunks(const std::vector<Run>& runs, std::size_t depth) {
        for (const Run& run : runs) {
            for (std::size_t at = run.begin; at < run.end; ++at) {
                askFor(at);
                const std::uint64_t chunk = chunkAt(m_keys[m_entries[at].place], depth);
                m_entries[at].chunk = m_descending ? ~chunk : chunk;
            }
        }
    }

    // Once some order is found, the next keys lie all over the memory: 1.2 s instead of 1.5 s for 4,000,000
    // dates.
    void askFor(std::size_t at) const {
        constexpr std::size_t viewsAhead = 32, textsAhead = 16;
        if (at + viewsAhead >= m_entries.size()) return;
        __builtin_prefetch(&m_keys[m_entries[at + viewsAhead].place]);
        __builtin_prefetch(m_keys[m_entries[at + textsAhead].place].data());
    }

    // Keeps the order of entries with the same chunk.
    void sortByChunk(const Run& run) {
        constexpr std::size_t few = 256;
        const std::span<Entry> entries(&m_entries[run.begin], run.end - run.begin);
        const auto before = [](const Entry& a, const Entry& b) {
            return a.chunk != b.chunk ? a.chunk < b.chunk : a.place < b.place;
        };
        if (std::is_sorted(entries.begin(), entries.end(), before)) return;
        if (entries.size() <= few)
            std::sort(entries.begin(), entries.end(), before);
        else
            sortByBytes(entries);
    }

    // By the last byte first: 0.6 s instead of 0.9 s for 4,000,000 names.
    void sortByBytes(std::span<Entry> entries) {
        constexpr std::size_t bytes = sizeof(Entry::chunk);
        std::array<std::array<std::uint32_t, 256>, bytes> counts{};
        const auto byteOf = [](const Entry& entry, std::size_t byte) {
            return entry.chunk >> 8 * byte & 0xff;
        };
        for (const Entry& entry : entries)
            for (std::size_t byte = 0; byte < bytes; ++byte) ++counts[byte][byteOf(entry, byte)];
        std::span<Entry> from = entries, to(m_sorted.data(), entries.size());
        for (std::size_t byte = 0; byte < bytes; ++byte) {
            std::array<std::uint32_t, 256>& places = counts[byte];
            if (places[byteOf(entries.front(), byte)] == entries.size()) continue;
            std::exclusive_scan(places.begin(), places.end(), places.begin(), 0U);
            for (const Entry& entry : from) to[places[byteOf(entry, byte)]++] = entry;
            std::swap(from, to);
        }
        if (from.data() != entries.data()) std::ranges::copy(from, entries.begin());
    }

    // Keys that agree so far and have more are sorted on by what follows.
    void addTies(std::vector<Run>& ties, const Run& run) const {
        for (std::size_t first = run.begin; first < run.end;) {
            const std::uint64_t chunk = m_entries[first].chunk;
            std::size_t last = first + 1;
            while (last < run.end && m_entries[last].chunk == chunk) ++last;
            const std::uint64_t length = (m_descending ? ~chunk : chunk) & 0xff;
            if (last - first > 1 && length == moreFollow) ties.push_back({first, last});
            first = last;
        }
    }

    const std::vector<std::string_view>& m_keys;
    bool m_descending;
    std::vector<Entry> m_entries;
    std::vector<Entry> m_sorted;
};

}  // namespace

std::vector<std::uint32_t> orderOfKeys(const std::vector<std::string_view>& keys, bool descending) {
    return Sorter(keys, descending).run();
}

}  // namespace lists
