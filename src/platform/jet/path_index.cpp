#include "platform/jet/path_index.h"

#include <algorithm>

#include "platform/jet/folding.h"

namespace jet {

std::shared_ptr<PathIndex> PathIndex::build(const Scan& scan, Levels levels, std::size_t shown) {
    auto collected = gatherRows(scan);
    if (!collected) return nullptr;
    const auto& fields = scan.statement.fields;
    const auto endOfShown = fields.begin() + static_cast<std::ptrdiff_t>(shown);
    std::shared_ptr<PathIndex> index(new PathIndex({std::move(*collected), {fields.begin(), endOfShown}}));
    return index->divide(fields, levels) ? index : nullptr;
}

bool PathIndex::divide(const std::vector<Column>& fields, Levels levels) {
    const auto& rows = m_rows.collected.rows();
    if (rows.size() > UINT32_MAX) return false;
    m_paths.reserve(m_rows.collected.bytes());
    m_ends.reserve(rows.size());
    const FieldPlaces places(fields);
    std::array<Value, columns.size()> values;
    for (std::uint32_t row = 0; row < rows.size(); ++row) {
        if (!rows[row].packed) return false;
        RowStore::unpack(rows[row].packed, std::span(values).first(fields.size()));
        appendFolded(m_paths, values[places[Column::ruta]].text());
        m_ends.push_back(m_paths.size());
        const Value level = levels == Levels::Apart ? values[places[Column::nivel]] : Value("");
        if (level.isNull()) continue;
        auto found = m_levels.find(level.text());
        if (found == m_levels.end()) found = m_levels.try_emplace(std::string(level.text())).first;
        found->second.rows.push_back(row);
    }
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

}  // namespace jet
