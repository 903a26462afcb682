#include "engine/rows/path_index.h"

#include <algorithm>
#include <array>

#include "engine/text/folding.h"
#include "engine/text/like_pattern.h"

namespace engine {

PathIndex::PathIndex(RowTable table, Levels levels) : m_table(std::move(table)) {
    const FieldPlaces places(m_table.fields());
    std::array<Value, columns.size()> values;
    m_ends.reserve(m_table.size());
    m_paths.reserve(m_table.bytes());
    for (std::uint32_t row = 0; row < m_table.size(); ++row) {
        constexpr std::uint32_t rowsAhead = 8;
        if (row + rowsAhead < m_table.size()) m_table.fetchAhead(row + rowsAhead);
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
    runs.rows.reserve(level.rows.size());
    std::vector<std::size_t> slashes;
    for (const std::uint32_t row : level.rows) {
        const std::string_view path = pathOf(row);
        slashes.clear();
        for (std::size_t at = path.find('\\'); at != path.npos; at = path.find('\\', at + 1))
            slashes.push_back(at);
        for (std::size_t i = 0; i + components < slashes.size(); ++i) {
            auto& found = runs.rows[path.substr(slashes[i], slashes[i + components] - slashes[i] + 1)];
            if (found.empty() || found.back() != row) found.push_back(row);
        }
    }
}

const TableRows::Selection& PathIndex::find(std::string_view level, std::string_view path) {
    static const TableRows::Selection nothing;
    const auto asked = m_levels.find(level);
    if (asked == m_levels.end()) return nothing;
    const std::size_t components = std::count(path.begin(), path.end(), '\\') - 1;
    auto [entry, isNew] = asked->second.runs.try_emplace(components);
    Runs& runs = entry->second;
    if (isNew) addRuns(asked->second, components, runs);
    m_wanted.clear();
    appendFolded(m_wanted, path);
    if (!holdsSigns(path)) {
        const auto found = runs.rows.find(m_wanted);
        return found == runs.rows.end() ? nothing : found->second;
    }
    const auto found = runs.found.find(m_wanted);
    return found != runs.found.end() ? found->second : runs.found[m_wanted] = matching(runs, m_wanted);
}

// Only runs that begin as the path does before its first wildcard can match it.
TableRows::Selection PathIndex::matching(Runs& runs, std::string_view path) {
    if (runs.inOrder.empty()) {
        for (const auto& [run, rows] : runs.rows) runs.inOrder.push_back(run);
        std::ranges::sort(runs.inOrder);
    }
    const LikePattern pattern(path, LikePattern::Signs::WildcardsOrThemselves);
    const std::string_view begin = path.substr(0, std::ranges::find_if(path, isSign) - path.begin());
    TableRows::Selection found;
    for (auto run = std::ranges::lower_bound(runs.inOrder, begin);
         run != runs.inOrder.end() && run->starts_with(begin); ++run) {
        const auto& rows = runs.rows.find(*run)->second;
        if (pattern.matches(*run)) found.insert(found.end(), rows.begin(), rows.end());
    }
    std::ranges::sort(found);
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

}  // namespace engine
