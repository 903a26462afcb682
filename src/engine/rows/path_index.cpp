#include "engine/rows/path_index.h"

#include <algorithm>
#include <array>

#include "engine/text/folding.h"

namespace engine {

PathIndex::PathIndex(RowTable table, Levels levels) : m_table(std::move(table)) {
    const FieldPlaces places(m_table.fields());
    std::array<Value, columns.size()> values;
    for (std::uint32_t row = 0; row < m_table.size(); ++row) {
        m_table.read(row, std::span(values).first(m_table.fields().size()));
        appendFolded(m_paths, values[places[Column::ruta]].text());
        m_ends.push_back(m_paths.size());
        const Value level =
            levels == Levels::Apart ? values[places[Column::nivel]] : Value(std::string_view());
        if (level.isNull()) continue;
        auto found = m_levels.find(level.text());
        if (found == m_levels.end()) found = m_levels.try_emplace(std::string(level.text())).first;
        found->second.rows.push_back(row);
    }
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
}

const TableRows::Selection& PathIndex::find(std::string_view level, std::string_view path) {
    static const TableRows::Selection nothing;
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
