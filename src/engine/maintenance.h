#pragma once

#include <string>
#include <vector>

#include "engine/error.h"
#include "engine/file/use.h"

namespace engine {

// Writes an empty catalogue database (table `datos`, its indexes, the file marks) to a native path that does
// not exist yet. For a scratch file nobody waits for the disk.
[[nodiscard]] Result<> CreateDatabase(const std::string& nativePath, Use use = Use::Catalogue);

// Rewrites a catalogue without its unused space into `between`, and from there back into the catalogue, in
// one transaction: programs that have it open go on with it. Others cannot write meanwhile; those that write
// are waited for, a few seconds. Refuses one that this process holds open (error::locked). `between` is
// replaced, and is the caller's to delete.
[[nodiscard]] Result<> CompactDatabase(const std::string& path, const std::string& between);

// Whether a file is a `between` that a killed program left: it is empty or marked as one, and nobody holds
// it.
[[nodiscard]] bool IsLeftByCompaction(const std::string& path);

// Makes `destination` a whole copy of the catalogue `source` as it is at one moment, replacing whatever is
// there. Others may use both meanwhile: a change under way in `source` is not in the copy, one in a catalogue
// at `destination` is waited for, then refused (error::locked). Whatever fails, `destination` is as before.
[[nodiscard]] Result<> CopyDatabase(const std::string& source, const std::string& destination);

// The same for what CopyDatabase refuses with error::unrecognizedFormat or error::corrupt, byte by byte.
[[nodiscard]] Result<> CopyUnreadable(const std::string& source, const std::string& destination);

// What a look at all of a catalogue found.
struct Check {
    long long rows = 0;  // that could be read
    std::vector<std::string>
        faults;  // a sentence each, a hundred or so at most; none: the catalogue is sound
};

// Reads every page and every row. Fails for what is no damage: a missing or locked file, one that is no
// catalogue, a disk that fails.
[[nodiscard]] Result<Check> CheckDatabase(const std::string& nativePath);

// Rebuilds a damaged catalogue in place from every row that can still be read, and gives the name under which
// the damaged original stays beside it: "discs.zrq.damaged", or the next free number behind that. What it
// rebuilt opens, and CheckDatabase finds no fault with it. A change that a program left when it died is
// undone first; a file that is sound then is left as it is, and the name is empty. Fails, with the file
// untouched, when not even the rows' table can be found, when a later version wrote it, and for every error
// that is no damage: a locked file, a disk that is full or fails.
[[nodiscard]] Result<std::string> RepairDatabase(const std::string& nativePath);

}  // namespace engine
