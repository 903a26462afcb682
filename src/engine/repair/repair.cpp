#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <string_view>

#include "engine/file/connection.h"
#include "engine/file/replacement.h"
#include "engine/file/schema.h"
#include "engine/file/sqlite_error.h"
#include "engine/maintenance.h"
#include "engine/repair/salvage.h"

namespace engine {

namespace {

Result<> checkIntegrity(sqlite3* database) {
    StatementPool pool(database);
    auto check = pool.lend("pragma integrity_check(1)");
    if (!check) return std::unexpected(check.error());
    if (check->step() != Prepared::Step::Row) return std::unexpected(lastError(database));
    if (check->text(0) == "ok") return {};
    return std::unexpected(Error{error::corrupt, std::string(check->text(0))});
}

// Opening rolls an interrupted change back, which may be all that the file needs.
Result<> checkSound(const std::string& path) {
    auto connection = Connection::open(path, Use::Catalogue);
    if (!connection) return std::unexpected(connection.error());
    return checkIntegrity((*connection)->handle());
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
        if (auto begun = run(m_database.get(), "pragma synchronous = off; begin; drop index datos_unidad");
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
    if (!salvage.tableFound)
        return std::unexpected(Error{error::corrupt, "No row and no table can be found"});
    return writer.finish();
}

}  // namespace

Result<> RepairDatabase(const std::string& nativePath) {
    const auto file = identityOf(nativePath);
    if (!file) return std::unexpected(Error{error::fileNotFound, nativePath + " does not exist"});
    if (OpenFile::isOpen(*file)) return std::unexpected(Error{error::locked, nativePath + " is open"});
    const auto sound = checkSound(nativePath);
    if (sound) return {};
    if (sound.error().number == error::locked || sound.error().number == error::cannotOpenFile) return sound;

    const auto pages = RawPages::open(nativePath);
    if (!pages || !wasCatalogue(*pages)) {
        return std::unexpected(Error{error::unrecognizedFormat, nativePath + " is no catalogue"});
    }
    auto repaired = Replacement::beside(nativePath, nativePath);
    if (!repaired) return std::unexpected(repaired.error());
    if (auto written = writeSalvaged(*pages, repaired->path()); !written) return written;
    ::unlink((nativePath + "-journal").c_str());  // of the damaged file, and poison for the sound one
    return repaired->putInPlace();
}

}  // namespace engine
