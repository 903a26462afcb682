#pragma once

#include <span>
#include <string>
#include <string_view>

#include "engine/database.h"

namespace browse {

// Receives the folders of a unit in the order in which the tree gets them.
class FolderSink {
  public:
    virtual ~FolderSink() = default;
    // Runs the event queue; true when the load is to stop.
    [[nodiscard]] virtual bool yieldAndTestStop() = 0;
    // A folder of `nivel` 1 to 11 under the folder added last at `nivel` - 1, or under the unit.
    virtual void addFolder(int nivel, std::string_view carpeta) = 0;
};

enum class LoadEnd { Complete, Stopped };

// Where the first level is asked from: a click on the unit takes every row that is no file, the path combo
// only folders.
enum class FirstLevel { NoFiles, FoldersOnly };

// The statement for the folders of `nivel` (1 to 11) under the path `folders` (nivel - 1 names).
[[nodiscard]] std::string foldersOfLevel(std::string_view disco, int nivel,
                                         std::span<const std::string> folders,
                                         FirstLevel first = FirstLevel::NoFiles);

// The statement whose record count is the length of the whole load.
[[nodiscard]] std::string allFoldersOf(std::string_view disco);

// Walks the unit's folders level by level, deepest first, eleven levels at most. A statement that the engine
// refuses for its words ends its level only; rows that cannot be read end the walk.
[[nodiscard]] engine::Result<LoadEnd> loadFolders(engine::Database& database, std::string_view disco,
                                                  FirstLevel first, FolderSink& sink);

}  // namespace browse
