#include "engine/repair/salvage.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace engine {

namespace {

constexpr unsigned char interiorIndexPage = 0x02;
constexpr unsigned char interiorTablePage = 0x05;
constexpr unsigned char leafIndexPage = 0x0A;
constexpr unsigned char leafTablePage = 0x0D;
constexpr std::size_t leafHeader = 8;
constexpr std::size_t interiorHeader = 12;
constexpr std::size_t firstPageHeader = 100;
constexpr std::uint32_t usualRoot = 2;  // the table is the first thing that a new file gets

// The header of a b-tree page.
struct TreePage {
    explicit TreePage(const RawPages::Page& page, std::uint32_t number) : page(page) {
        const std::size_t at = number == 1 ? firstPageHeader : 0;
        kind = page[at];
        cells = twoBytes(page, at + 3);
        rightMost = fourBytes(page, at + 8);
    }

    // Where a cell begins; 0 when there is none: a damaged count may promise more than the page can hold.
    // Bits that lead beyond the page can only be damage.
    [[nodiscard]] std::size_t cell(std::size_t i, std::size_t header) const {
        const std::size_t at = header + 2 * i;
        return at + 2 > page.size() ? 0 : twoBytes(page, at) & (page.size() - 1);
    }

    const RawPages::Page& page;
    unsigned char kind;
    std::size_t cells;
    std::uint32_t rightMost;
};

// Tells rows apart that bear one number.
std::size_t fingerprint(const RawRow& row) {
    std::size_t print = 0;
    for (const RawRow::Field& field : row.fields) print = print * 31 + std::hash<RawRow::Field>{}(field);
    return print;
}

class Walk {
  public:
    Walk(const RawPages& pages, const std::function<Result<>(const RawRow&)>& take)
        : m_pages(pages), m_take(take), m_limit(pages) {}

    [[nodiscard]] bool hasFoundTable() const { return m_tableFound; }

    // Every leaf that a tree leads to.
    Result<> followTree(std::uint32_t root) {
        std::vector<std::uint32_t> open{root};
        while (!open.empty()) {
            const std::uint32_t number = open.back();
            open.pop_back();
            const RawPages::Page page = m_pages.read(number);
            if (page.empty() || number == 1 || !m_seen.insert(number).second) continue;
            const TreePage tree(page, number);
            TRY(takeLeaf(tree, number == root));
            if (tree.kind != interiorTablePage) continue;
            open.push_back(tree.rightMost);
            for (std::size_t i = tree.cells; i-- > 0;) {
                const std::size_t cell = tree.cell(i, interiorHeader);
                if (cell != 0 && cell + 4 <= page.size()) open.push_back(fourBytes(page, cell));
            }
        }
        return {};
    }

    Result<> takeLostLeaves() {
        const auto free = m_pages.freePages();
        for (std::uint32_t number = m_pages.nextWritten(2); number != 0;
             number = m_pages.nextWritten(number + 1)) {
            if (m_seen.contains(number) || free.contains(number)) continue;
            const RawPages::Page page = m_pages.read(number);
            if (!page.empty()) TRY(takeLeaf(TreePage(page, number), false));
        }
        return {};
    }

    // A damaged row number may be another row's: such a row is kept under a new number.
    Result<> takeNamesakes() {
        for (auto& row : m_namesakes) {
            row.rowid = ++m_highest;
            TRY(m_take(row));
        }
        return {};
    }

  private:
    // Any page may be a leaf whose kind is damaged: each cell proves itself.
    Result<> takeLeaf(const TreePage& leaf, bool isRoot) {
        if (leaf.kind == interiorIndexPage || leaf.kind == leafIndexPage) return {};
        if (isRoot && leaf.kind == leafTablePage && leaf.cells == 0) m_tableFound = true;
        m_limit.beginPage();
        for (std::size_t i = 0; i < leaf.cells; ++i) {
            const std::size_t at = leaf.cell(i, leafHeader);
            if (at == 0) break;
            const auto row = rowAt(m_pages, leaf.page, at, m_limit);
            if (!row) continue;
            m_tableFound = true;
            const auto [known, isNew] = m_taken.emplace(row->rowid, fingerprint(*row));
            if (!isNew) {
                if (known->second != fingerprint(*row)) m_namesakes.push_back(*row);
                continue;
            }
            m_highest = std::max(m_highest, row->rowid);
            TRY(m_take(*row));
        }
        return {};
    }

    const RawPages& m_pages;
    const std::function<Result<>(const RawRow&)>& m_take;
    DecodingLimit m_limit;
    std::unordered_set<std::uint32_t> m_seen;
    std::unordered_map<std::int64_t, std::size_t> m_taken;  // row numbers with what the rows hold
    std::int64_t m_highest = 0;
    std::vector<RawRow> m_namesakes;  // rows whose number another row has
    bool m_tableFound = false;
};

}  // namespace

Result<bool> salvage(const RawPages& pages, const std::function<Result<>(const RawRow&)>& take) {
    Walk walk(pages, take);
    TRY(walk.followTree(usualRoot));
    TRY(walk.takeLostLeaves());
    TRY(walk.takeNamesakes());
    return walk.hasFoundTable();
}

}  // namespace engine
