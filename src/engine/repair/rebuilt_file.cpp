#include "engine/repair/rebuilt_file.h"

#include <sqlite3.h>

#include <cmath>

#include "engine/file/schema.h"
#include "engine/file/sqlite_error.h"
#include "engine/repair/faults.h"
#include "engine/text/utf8.h"

namespace engine {

namespace {

constexpr char32_t escapeBase = 0xF000;

void makeReadable(std::string& text) {
    if (isAscii(text) && text.find('\0') == text.npos) return;
    std::string readable;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = nextCharacter(text, at);
        const bool isByte = character == 0 || (character & ~0xFFU) == strayByteBase;
        appendCharacter(readable, isByte ? escapeBase | (character & 0xFF) : character);
    }
    text = std::move(readable);
}

// `storage` holds a text that had to be changed.
BoundValue valueOf(const RawRow::Field& field, Type type, std::string& storage) {
    if (const auto* text = std::get_if<std::string>(&field)) {
        if (type != Type::Text) return {};
        storage = *text;
        makeReadable(storage);
        return std::string_view(storage);
    }
    if (const auto* integer = std::get_if<std::int64_t>(&field)) return *integer;
    if (const auto* real = std::get_if<double>(&field)) {
        constexpr double beyond = 0x1p63;
        if (type != Type::Integer) return *real;
        if (*real >= -beyond && *real < beyond) return static_cast<std::int64_t>(*real);
    }
    return {};
}

}  // namespace

Result<> RebuiltFile::open(const std::string& path) {
    auto database = openSqlite(path, SQLITE_OPEN_READWRITE);
    if (!database) return std::unexpected(database.error());
    m_database = std::move(*database);
    m_pool.emplace(m_database.get());
    if (auto written = writeSchema(m_database.get()); !written) return written;
    if (auto begun =
            run(m_database.get(),
                "pragma journal_mode = memory; pragma synchronous = off; begin; drop index datos_unidad");
        !begun)
        return begun;
    auto insert = m_pool->lend(
        "insert into datos (rowid, numero, ruta, carpeta, archivo, nivel, fecha, largo, tipo, disco, "
        "comentario) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    if (!insert) return std::unexpected(insert.error());
    m_insert = std::move(*insert);
    return {};
}

bool RebuiltFile::add(const RawRow& row) {
    std::array<std::string, columns.size()> texts;
    m_insert.bind(0, row.rowid);
    for (std::size_t i = 0; i < columns.size(); ++i)
        m_insert.bind(static_cast<int>(i) + 1, valueOf(row.fields[i], columns[i].type, texts[i]),
                      Prepared::Texts::Lent);
    const bool added = m_insert.step() == Prepared::Step::Done;
    if (!added) m_failure = lastError(m_database.get());
    m_insert.reset();
    return added;
}

Result<> RebuiltFile::finish() {
    m_insert.release();
    if (m_failure) return std::unexpected(*m_failure);
    if (auto index = run(m_database.get(), createIndex); !index) return index;
    if (auto committed = run(m_database.get(), "commit"); !committed) return committed;
    Check check;
    for (const auto part : {checkPages, checkValues})
        if (auto read = part(m_database.get(), check); !read) return read;
    if (!check.faults.empty()) return std::unexpected(Error{error::corrupt, check.faults.front()});
    return {};
}

}  // namespace engine
