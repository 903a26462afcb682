#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/rows/row_scan.h"
#include "engine/rows/stored_rows.h"

namespace engine {

// The rows of a select, found by their level and by a run of whole components of their path.
class PathIndex {
  public:
    enum class Levels { Apart, Together };

    // The select gives `ruta` and, for levels that are apart, `nivel`; recordsets are to show its first
    // `shown` fields. Nothing when the rows cannot be read, or are too many to be kept.
    [[nodiscard]] static std::shared_ptr<PathIndex> build(const Scan& scan, Levels levels, std::size_t shown);

    // The rows whose path holds `\A\B\`, case aside, and whose level is the one given (empty for levels that
    // are together).
    [[nodiscard]] const StoredRows::Selection& find(std::string_view level, std::string_view path);

    [[nodiscard]] const RowSet& rows() const { return m_rows; }

  private:
    using Runs = std::unordered_map<std::string_view, StoredRows::Selection>;
    struct Level {
        std::vector<std::uint32_t> rows;
        std::map<std::size_t, Runs> runs;  // by number of components
    };

    PathIndex(const Statement& statement, Levels levels, std::size_t shown);
    [[nodiscard]] bool add(const Prepared& row, std::string_view key);
    [[nodiscard]] std::string_view pathOf(std::uint32_t row) const;
    void addRuns(const Level& level, std::size_t components, Runs& runs) const;

    RowSet m_rows;
    int m_pathColumn;
    int m_levelColumn;                // -1 for levels that are together
    std::string m_paths;              // folded, one behind the other
    std::vector<std::size_t> m_ends;  // of each row's path
    std::map<std::string, Level, std::less<>> m_levels;
    std::string m_wanted;  // the path asked for, folded
};

}  // namespace engine
