#include "engine/rows/path_index.h"

#include <algorithm>

#include "engine/rows/ordering.h"
#include "engine/text/folding.h"

namespace engine {

PathIndex::PathIndex(const Statement& statement, Levels levels, std::size_t shown)
    : m_rows({}, {statement.fields.begin(), statement.fields.begin() + static_cast<std::ptrdiff_t>(shown)}) {
    const FieldPlaces places(statement.fields);
    m_pathColumn = 1 + places[Column::ruta];
    m_levelColumn = levels == Levels::Apart ? 1 + places[Column::nivel] : -1;
}

std::shared_ptr<PathIndex> PathIndex::build(const Scan& scan, Levels levels, std::size_t shown) {
    auto rows = scanRowsWithOrder(scan);
    if (!rows) return nullptr;
    std::shared_ptr<PathIndex> index(new PathIndex(scan.statement, levels, shown));
    const int firstOrdered = 1 + static_cast<int>(scan.statement.fields.size());
    std::string key;
    auto last = rows->step();
    for (; last == Prepared::Step::Row; last = rows->step()) {
        key.clear();
        appendOrderKey(key, scan.statement.orderBy, *rows, firstOrdered);
        if (!index->add(*rows, key)) return nullptr;
    }
    return last == Prepared::Step::Done ? index : nullptr;
}

// False when there is no room for the row.
bool PathIndex::add(const Prepared& row, std::string_view key) {
    CollectedRows& collected = m_rows.collected;
    const std::size_t number = collected.rows().size();
    if (number >= UINT32_MAX || m_paths.size() >= CollectedRows::memoryBound) return false;
    collected.add(row, m_rows.fields, key);
    if (!collected.rows().back().packed) return false;
    appendFolded(m_paths, row.text(m_pathColumn));
    m_ends.push_back(m_paths.size());
    const bool together = m_levelColumn < 0;
    if (!together && row.isNull(m_levelColumn)) return true;
    const std::string_view level = together ? "" : row.text(m_levelColumn);
    auto found = m_levels.find(level);
    if (found == m_levels.end()) found = m_levels.try_emplace(std::string(level)).first;
    found->second.rows.push_back(static_cast<std::uint32_t>(number));
    return true;
}

std::string_view PathIndex::pathOf(std::uint32_t row) const {
    const std::size_t begin = row == 0 ? 0 : m_ends[row - 1];
    return std::string_view(m_paths).substr(begin, m_ends[row] - begin);
}

void PathIndex::addRuns(const Level& level, std::size_t components, Runs& runs) const {
    std::vector<std::size_t> slashes;
    for (const std::uint32_t row : level.rows) {
        const std::string_view path = pathOf(row);
        slashes.clear();
        for (std::size_t at = path.find('\\'); at != path.npos; at = path.find('\\', at + 1))
            slashes.push_back(at);
        for (std::size_t i = 0; i + components < slashes.size(); ++i) {
            auto& found = runs[path.substr(slashes[i], slashes[i + components] - slashes[i] + 1)];
            if (found.empty() || found.back() != row) found.push_back(row);
        }
    }
    const auto& rows = m_rows.collected.rows();
    const auto before = [&rows](std::uint32_t a, std::uint32_t b) { return rows[a].sortsBefore(rows[b]); };
    for (auto& [path, found] : runs) std::sort(found.begin(), found.end(), before);
}

const StoredRows::Selection& PathIndex::find(std::string_view level, std::string_view path) {
    static const StoredRows::Selection nothing;
    const auto asked = m_levels.find(level);
    if (asked == m_levels.end()) return nothing;
    const std::size_t components = std::count(path.begin(), path.end(), '\\') - 1;
    auto [runs, isNew] = asked->second.runs.try_emplace(components);
    if (isNew) addRuns(asked->second, components, runs->second);
    m_wanted.clear();
    appendFolded(m_wanted, path);
    const auto found = runs->second.find(std::string_view(m_wanted));
    return found == runs->second.end() ? nothing : found->second;
}

}  // namespace engine
