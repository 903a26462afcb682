#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "engine/file/connection.h"
#include "engine/file/file_header.h"
#include "engine/file/replacement.h"
#include "engine/file/schema.h"
#include "engine/file/sqlite_error.h"
#include "engine/guarded.h"
#include "engine/maintenance.h"
#include "engine/repair/check.h"
#include "engine/repair/rebuilt_file.h"
#include "engine/repair/salvage.h"

namespace engine {

namespace {

// Whether a file is one of ours, however damaged: its mark or the text of its table is left.
bool wasCatalogue(const RawPages::Page& first) {
    const std::string_view text(reinterpret_cast<const char*>(first.data()), first.size());
    return marksOf(first).isOurs || text.contains("create table datos") ||
           text.contains("CREATE TABLE datos");
}

Result<> checkOurs(sqlite3* database, const std::string& path) {
    const RawPages pages(database);
    const bool isOurs = wasCatalogue(pages.read(1));
    if (pages.failure()) return std::unexpected(*pages.failure());
    if (!isOurs) return std::unexpected(Error{error::unrecognizedFormat, path + " is no catalogue"});
    return {};
}

// Whether an error tells of damage. Any other one (no permission, no memory, a disk that fails) tells nothing
// about the file, which must then stay as it is.
bool isDamage(const Error& failure) {
    return failure.number == error::corrupt || failure.number == error::unrecognizedFormat;
}

// A change that a program left when it died is undone first: it may be all that is wrong. From then on, as
// far as damage lets it, the handle keeps other programs from writing.
Result<> checkStructure(sqlite3* database) {
    // Another tool may have left it in a mode with a second file beside it.
    TRY(run(database, "pragma journal_mode = delete"));
    TRY(run(database, "begin exclusive"));
    TRY(checkSchema(database));
    Check found;
    TRY(checkPages(database, found));
    if (!found.faults.empty()) return std::unexpected(Error{error::corrupt, found.faults.front()});
    return {};
}

enum class Soundness {
    Sound,
    Readable,  // SQLite reads every row, but a mark or a value is none of a catalogue's
    Damaged,
};

Result<Soundness> soundnessOf(sqlite3* database, const std::string& path) {
    if (const auto whole = checkStructure(database); !whole) {
        if (!isDamage(whole.error())) return std::unexpected(whole.error());
        return Soundness::Damaged;
    }
    const RawPages pages(database);
    const FileMarks marks = marksOf(pages.read(1));
    if (pages.failure()) return std::unexpected(*pages.failure());
    const auto marked = checkMarks(path, marks);
    if (marks.isOurs && marks.isLater) return std::unexpected(marked.error());
    Check values;
    TRY(checkValues(database, values));
    return marked && values.faults.empty() ? Soundness::Sound : Soundness::Readable;
}

RawRow::Field fieldOf(const Prepared& row, int place) {
    switch (sqlite3_column_type(row.get(), place)) {
        case SQLITE_INTEGER:
            return row.integer(place);
        case SQLITE_FLOAT:
            return row.number(place);
        case SQLITE_NULL:
            return {};
        default:
            return std::string(row.text(place));
    }
}

Result<> copyRows(sqlite3* from, RebuiltFile& to) {
    StatementPool statements(from);
    auto rows = TRY(statements.lend("select rowid, " + columnNames() + " from datos not indexed"));
    while (TRY(rows.next())) {
        RawRow row;
        row.rowid = rows.integer(0);
        for (std::size_t i = 0; i < columns.size(); ++i)
            row.fields[i] = fieldOf(rows, static_cast<int>(i) + 1);
        TRY(to.add(row));
    }
    return {};
}

Result<> salvageRows(sqlite3* from, RebuiltFile& to) {
    const RawPages pages(from);
    const bool tableFound = TRY(salvage(pages, [&](const RawRow& row) { return to.add(row); }));
    if (pages.failure()) return std::unexpected(*pages.failure());
    if (!tableFound) return std::unexpected(Error{error::corrupt, "No row and no table can be found"});
    return {};
}

Result<> rebuild(sqlite3* from, Soundness soundness, const std::string& path) {
    RebuiltFile to;
    TRY(to.open(path));
    TRY(soundness == Soundness::Damaged ? salvageRows(from, to) : copyRows(from, to));
    return to.finish();
}

// The name under which a damaged file is kept: "discs.zrq.damaged", then "discs.zrq.damaged-2".
std::string freeNameFor(const std::string& path) {
    for (int n = 1;; ++n) {
        std::string name = path + ".damaged" + (n == 1 ? "" : "-" + std::to_string(n));
        struct stat status {};
        if (::lstat(name.c_str(), &status) != 0 && errno == ENOENT) return name;
    }
}

// A link stays a link: the file that it leads to is repaired, where SQLite looks for its journal too.
std::string behindLinks(const std::string& path) {
    std::error_code failed;
    if (!std::filesystem::is_symlink(path, failed)) return path;
    const std::filesystem::path file = std::filesystem::canonical(path, failed);
    return failed ? path : file.native();
}

// A second name for the file or, on file systems that know none, a copy. A journal that SQLite could not make
// use of belongs to the damaged file and would spoil the sound one.
Result<std::string> keepBeside(const std::string& path) {
    std::string kept = freeNameFor(path);
    if (::link(path.c_str(), kept.c_str()) != 0) {
        if (const auto copied = platform::CopyFile(path, kept); !copied)
            return std::unexpected(errorOf(copied.error()));
    }
    if (std::rename((path + "-journal").c_str(), (kept + "-journal").c_str()) != 0 && errno != ENOENT) {
        const auto failure = platform::systemFailure(path + "-journal").error();
        ::unlink(kept.c_str());
        return std::unexpected(errorOf(failure));
    }
    return kept;
}

// Gives the name that the damaged file has from now on. Another program may have put a file in its place,
// which is none of ours to replace.
Result<std::string> exchange(sqlite3* damaged, const std::string& path, platform::TemporaryFile& repaired) {
    // Before the look, so that nothing takes long between it and the exchange.
    if (const auto whole = repaired.flush(); !whole) return std::unexpected(errorOf(whole.error()));
    int moved = 0;
    sqlite3_file_control(damaged, "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    if (moved != 0) return std::unexpected(errorOfCode(SQLITE_READONLY_DBMOVED));
    auto kept = TRY(keepBeside(path));
    if (auto put = putInPlace(repaired, path); !put) {
        (void)std::rename((kept + "-journal").c_str(), (path + "-journal").c_str());
        ::unlink(kept.c_str());
        return std::unexpected(put.error());
    }
    return kept;
}

}  // namespace

Result<std::string> RepairDatabase(const std::string& nativePath) {
    return guarded([&]() -> Result<std::string> {
        const auto file = platform::identityOf(nativePath);
        if (!file) return std::unexpected(Error{error::fileNotFound, nativePath + " does not exist"});
        if (!platform::FileExists(nativePath))
            return std::unexpected(Error{error::cannotOpenFile, nativePath + " is not a file"});
        if (platform::HeldFile::isHeld(*file))
            return std::unexpected(Error{error::locked, nativePath + " is open"});
        const platform::HeldFile held(*file);
        const std::string path = behindLinks(nativePath);
        const auto damaged = TRY(openSqlite(path, SQLITE_OPEN_READWRITE));
        TRY(checkOurs(damaged.get(), path));
        const auto soundness = TRY(soundnessOf(damaged.get(), path));
        if (soundness == Soundness::Sound) return std::string();
        auto repaired = TRY(replacementFor(path));
        TRY(rebuild(damaged.get(), soundness, repaired.path()));
        return exchange(damaged.get(), path, repaired);
    });
}

}  // namespace engine
