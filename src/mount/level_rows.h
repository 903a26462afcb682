#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "engine/database.h"
#include "mount/row_spool.h"

namespace mount {

// A folder of the tree: a unit (level 1, no path) or a catalogued folder. `nivel` is that of the rows in it.
struct Place {
    std::string disco;
    std::string ruta;  // drive form
    int nivel = 1;
};

enum class Rows { Folders, Files };  // by statement; a unit made by hand has its content among the folders

// Rows by the folder in which they lie. Nothing in the table leads from a folder to its rows but its unit,
// its level and the path, of which the file's index knows the first two. So a level of a unit is read when a
// folder of it is first asked for, by one statement that the index serves, and kept in the spool; what stays
// in memory is where each folder's rows lie there. Walking 1,000,000 rows reads each of them once.
class LevelRows {
  public:
    using Runs = std::vector<RowSpool::Run>;

    LevelRows(engine::Database& database, std::shared_ptr<RowSpool> spool)
        : m_database(database), m_spool(std::move(spool)) {}

    [[nodiscard]] const std::shared_ptr<RowSpool>& spool() const { return m_spool; }

    // How many statements were run.
    [[nodiscard]] std::size_t statements() const { return m_statements; }

    // The runs of the units' folders, and those of what lies directly in a place.
    [[nodiscard]] engine::Result<Runs> units();
    [[nodiscard]] engine::Result<Runs> rowsIn(const Place& place, Rows rows);

  private:
    struct FolderRun {
        std::uint64_t folder;  // a hash of its path; 0 for all rows of level 1
        RowSpool::Run run;
        auto operator<=>(const FolderRun&) const = default;
    };
    using Level = std::vector<FolderRun>;  // sorted

    [[nodiscard]] engine::Result<const Level*> level(const std::string& disco, int nivel, Rows rows);
    [[nodiscard]] engine::Result<Level> read(const std::string& disco, int nivel, Rows rows);

    engine::Database& m_database;
    std::size_t m_statements = 0;
    std::shared_ptr<RowSpool> m_spool;
    std::map<std::tuple<std::string, int, Rows>, Level> m_levels;
};

}  // namespace mount
