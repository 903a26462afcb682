#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "engine/file/connection.h"
#include "engine/file/replacement.h"
#include "engine/file/schema.h"
#include "engine/file/sqlite_error.h"
#include "engine/guarded.h"
#include "engine/maintenance.h"
#include "engine/repair/salvage.h"

namespace engine {

namespace {

Result<> checkIntegrity(sqlite3* database) {
    StatementPool pool(database);
    auto check = pool.lend("pragma integrity_check(1)");
    if (!check) return std::unexpected(check.error());
    if (check->step() != Prepared::Step::Row) return std::unexpected(lastError(database));
    const std::string found(check->text(0));
    if (found == "ok") return {};
    // A page that the disk would not give is told here too.
    constexpr std::string_view codeText = "error code=";
    const std::size_t at = found.find(codeText);
    const int code = at == found.npos ? SQLITE_CORRUPT : std::atoi(found.c_str() + at + codeText.size());
    return std::unexpected((code & 0xFF) == SQLITE_CORRUPT ? Error{error::corrupt, found}
                                                           : errorOfCode(code));
}

// Whether a file is one of ours, however damaged: its mark or the text of its table is left.
bool wasCatalogue(const RawPages& pages) {
    const RawPages::Page first = pages.read(1);
    constexpr std::size_t applicationIdAt = 68;
    if (first.size() > applicationIdAt + 4 && fourBytes(first, applicationIdAt) == applicationId) return true;
    const std::string_view text(reinterpret_cast<const char*>(first.data()), first.size());
    return text.find("create table datos") != text.npos || text.find("CREATE TABLE datos") != text.npos;
}

BoundValue valueOf(const RawRow::Field& field) {
    if (const auto* text = std::get_if<std::string>(&field)) return std::string_view(*text);
    if (const auto* integer = std::get_if<std::int64_t>(&field)) return *integer;
    if (const auto* real = std::get_if<double>(&field)) return *real;
    return {};
}

// Writes rows into a new catalogue; the index is built when they are all in.
class Writer {
  public:
    [[nodiscard]] Result<> open(const std::string& path) {
        auto database = openSqlite(path, SQLITE_OPEN_READWRITE);
        if (!database) return std::unexpected(database.error());
        m_database = std::move(*database);
        m_pool.emplace(m_database.get());
        if (auto written = writeSchema(m_database.get()); !written) return written;
        if (auto begun =
                run(m_database.get(),
                    "pragma journal_mode = memory; pragma synchronous = off; begin; drop index datos_unidad");
            !begun) {
            return begun;
        }
        auto insert = m_pool->lend(
            "insert into datos (rowid, numero, ruta, carpeta, archivo, nivel, fecha, largo, tipo, disco, "
            "comentario) "
            "values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
        if (!insert) return std::unexpected(insert.error());
        m_insert = std::move(*insert);
        return {};
    }

    [[nodiscard]] bool add(const RawRow& row) {
        m_insert.bind(0, row.rowid);
        for (std::size_t i = 0; i < row.fields.size(); ++i) {
            m_insert.bind(static_cast<int>(i) + 1, valueOf(row.fields[i]), Prepared::Texts::Lent);
        }
        const bool added = m_insert.step() == Prepared::Step::Done;
        if (!added) m_failure = lastError(m_database.get());
        m_insert.reset();
        return added;
    }

    [[nodiscard]] Result<> finish() {
        m_insert.release();
        if (m_failure) return std::unexpected(*m_failure);
        if (auto index = run(m_database.get(), createIndex); !index) return index;
        if (auto committed = run(m_database.get(), "commit"); !committed) return committed;
        return checkIntegrity(m_database.get());
    }

  private:
    SqliteHandle m_database;
    std::optional<StatementPool> m_pool;
    Prepared m_insert;
    std::optional<Error> m_failure;
};

Result<> writeSalvaged(const RawPages& pages, const std::string& path) {
    Writer writer;
    if (auto opened = writer.open(path); !opened) return opened;
    Salvage salvage{[&](const RawRow& row) { return writer.add(row); }};
    salvage.run(pages);
    if (pages.failure()) return std::unexpected(*pages.failure());
    if (!salvage.tableFound)
        return std::unexpected(Error{error::corrupt, "No row and no table can be found"});
    return writer.finish();
}

// Whether an error tells of damage. Any other one (no permission, no memory, a disk that fails) tells nothing
// about the file, which must then stay as it is.
bool isDamage(const Error& failure) {
    return failure.number == error::corrupt || failure.number == error::unrecognizedFormat;
}

// A change that a program left when it died is undone first: it may be all that is wrong. From then on, as
// far as damage lets it, the handle keeps other programs from writing.
Result<> checkSound(sqlite3* database) {
    // Another tool may have left it in a mode with a second file beside it.
    if (auto alone = run(database, "pragma journal_mode = delete"); !alone) return alone;
    if (auto alone = run(database, "begin exclusive"); !alone) return alone;
    if (auto table = checkSchema(database); !table) return table;
    return checkIntegrity(database);
}

// The name under which a damaged file is kept: "discs.zrq.damaged", then "discs.zrq.damaged-2".
std::string freeNameFor(const std::string& path) {
    for (int n = 1;; ++n) {
        std::string name = path + ".damaged" + (n == 1 ? "" : "-" + std::to_string(n));
        struct stat status {};
        if (::lstat(name.c_str(), &status) != 0 && errno == ENOENT) return name;
    }
}

// A second name for the file or, on file systems that know none, a copy. A journal that SQLite could not make
// use of belongs to the damaged file and would spoil the sound one.
Result<std::string> keepBeside(const std::string& path) {
    std::string kept = freeNameFor(path);
    if (::link(path.c_str(), kept.c_str()) != 0) {
        if (const auto copied = platform::CopyFile(path, kept); !copied)
            return std::unexpected(errorOf(copied.error()));
    }
    if (std::rename((path + "-journal").c_str(), (kept + "-journal").c_str()) != 0 && errno != ENOENT)
        return std::unexpected(errorOf(platform::systemFailure(path + "-journal").error()));
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
        auto damaged = openSqlite(nativePath, SQLITE_OPEN_READWRITE);
        if (!damaged) return std::unexpected(damaged.error());
        const RawPages pages(damaged->get());
        const bool isOurs = wasCatalogue(pages);
        if (pages.failure()) return std::unexpected(*pages.failure());
        if (!isOurs)
            return std::unexpected(Error{error::unrecognizedFormat, nativePath + " is no catalogue"});
        if (const auto sound = checkSound(damaged->get()); sound || !isDamage(sound.error())) {
            if (!sound) return std::unexpected(sound.error());
            return std::string();
        }

        auto repaired = replacementFor(nativePath);
        if (!repaired) return std::unexpected(repaired.error());
        if (auto written = writeSalvaged(pages, repaired->path()); !written)
            return std::unexpected(written.error());
        auto kept = keepBeside(nativePath);
        if (!kept) return kept;
        if (auto put = putInPlace(*repaired, nativePath); !put) {
            (void)std::rename((*kept + "-journal").c_str(), (nativePath + "-journal").c_str());
            ::unlink(kept->c_str());
            return std::unexpected(put.error());
        }
        return kept;
    });
}

}  // namespace engine
