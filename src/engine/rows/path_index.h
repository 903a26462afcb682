#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/rows/table_rows.h"

namespace engine {

// The rows of a table, found by their level and by a run of whole components of their path.
class PathIndex {
  public:
    enum class Levels { Apart, Together };

    // `table` is in order and has the column `ruta` and, for levels that are apart, `nivel`.
    PathIndex(RowTable table, Levels levels);

    // The rows, in order, whose path is `like ('*\A\B\*')`, and whose level is the one given (empty for
    // levels that are together). No wildcard of `\A\B\` is a star or may stand for a backslash. The rows hold
    // as long as this index.
    [[nodiscard]] const TableRows::Selection& find(std::string_view level, std::string_view path);

    [[nodiscard]] const RowTable& table() const { return m_table; }

  private:
    // The runs of one length.
    struct Runs {
        std::unordered_map<std::string_view, TableRows::Selection> rows;
        std::vector<std::string_view> inOrder;                        // empty before it is needed
        std::unordered_map<std::string, TableRows::Selection> found;  // by paths with wildcards in them
    };
    struct Level {
        std::vector<std::uint32_t> rows;
        std::map<std::size_t, Runs> runs;  // by number of components
    };

    [[nodiscard]] std::string_view pathOf(std::uint32_t row) const;
    void addRuns(const Level& level, std::size_t components, Runs& runs) const;
    [[nodiscard]] static TableRows::Selection matching(Runs& runs, std::string_view path);

    RowTable m_table;
    std::string m_paths;              // folded, one behind the other
    std::vector<std::size_t> m_ends;  // of each row's path
    std::map<std::string, Level, std::less<>> m_levels;
    std::string m_wanted;  // the path asked for, folded
};

}  // namespace engine
