#include "lists/key_sort.h"

#include <algorithm>
#include <cstring>

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

class Sorter {
  public:
    Sorter(const std::vector<std::string_view>& keys, bool descending)
        : m_keys(keys), m_descending(descending), m_entries(keys.size()) {
        for (std::size_t at = 0; at < keys.size(); ++at) m_entries[at].place = static_cast<std::uint32_t>(at);
    }

    std::vector<std::uint32_t> run() {
        if (!m_entries.empty()) m_pending.push_back({0, m_entries.size(), 0});
        while (!m_pending.empty()) {
            const Run next = m_pending.back();
            m_pending.pop_back();
            sortRun(next);
        }
        std::vector<std::uint32_t> order(m_entries.size());
        std::transform(m_entries.begin(), m_entries.end(), order.begin(),
                       [](const Entry& entry) { return entry.place; });
        return order;
    }

  private:
    struct Run {
        std::size_t begin, end, depth;
    };

    void sortRun(const Run& run) {
        const auto begin = m_entries.begin() + static_cast<std::ptrdiff_t>(run.begin);
        const auto end = m_entries.begin() + static_cast<std::ptrdiff_t>(run.end);
        for (auto entry = begin; entry != end; ++entry) {
            const std::uint64_t chunk = chunkAt(m_keys[entry->place], run.depth);
            entry->chunk = m_descending ? ~chunk : chunk;
        }
        const auto before = [](const Entry& a, const Entry& b) {
            return a.chunk != b.chunk ? a.chunk < b.chunk : a.place < b.place;
        };
        if (!std::is_sorted(begin, end, before)) std::sort(begin, end, before);
        queueTies(run);
    }

    // Keys that agree so far and have more are sorted on by what follows.
    void queueTies(const Run& run) {
        for (std::size_t first = run.begin; first < run.end;) {
            const std::uint64_t chunk = m_entries[first].chunk;
            std::size_t last = first + 1;
            while (last < run.end && m_entries[last].chunk == chunk) ++last;
            const std::uint64_t length = (m_descending ? ~chunk : chunk) & 0xff;
            if (last - first > 1 && length == moreFollow)
                m_pending.push_back({first, last, run.depth + chunkSize});
            first = last;
        }
    }

    const std::vector<std::string_view>& m_keys;
    bool m_descending;
    std::vector<Entry> m_entries;
    std::vector<Run> m_pending;
};

}  // namespace

std::vector<std::uint32_t> orderOfKeys(const std::vector<std::string_view>& keys, bool descending) {
    return Sorter(keys, descending).run();
}

}  // namespace lists
