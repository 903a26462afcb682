#pragma once

#include <span>

#include "cli/command.h"

namespace cli {

// The commands by what they do, one source file each.
[[nodiscard]] std::span<const Command> catalogueCommands();   // new, compact, repair, check, backup
[[nodiscard]] std::span<const Command> enteringCommands();    // scan, add
[[nodiscard]] std::span<const Command> updateCommands();      // update, compare
[[nodiscard]] std::span<const Command> unitCommands();        // units, rename, delete
[[nodiscard]] std::span<const Command> listCommands();        // list
[[nodiscard]] std::span<const Command> statsCommands();       // stats
[[nodiscard]] std::span<const Command> noteCommands();        // note
[[nodiscard]] std::span<const Command> copyCommands();        // copy
[[nodiscard]] std::span<const Command> exportCommands();      // export
[[nodiscard]] std::span<const Command> importCommands();      // import
[[nodiscard]] std::span<const Command> mountCommands();       // mount
[[nodiscard]] std::span<const Command> duplicatesCommands();  // duplicates
[[nodiscard]] std::span<const Command> searchCommands();      // search

}  // namespace cli
