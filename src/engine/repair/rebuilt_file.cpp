#include "engine/repair/rebuilt_file.h"

#include <sqlite3.h>

#include "engine/file/schema.h"
#include "engine/repair/check.h"
#include "platform/names.h"
#include "platform/utf8.h"

namespace engine {

namespace {

void makeReadable(std::string& text) {
    if (platform::isAscii(text) && text.find('\0') == text.npos) return;
    std::string readable;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = platform::nextCharacter(text, at);
        const bool isByte = character == 0 || platform::isStrayByte(character);
        platform::appendCharacter(readable, isByte ? platform::escapeBase | (character & 0xFF) : character);
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
    m_database = TRY(openSqlite(path, SQLITE_OPEN_READWRITE));
    m_pool.emplace(m_database.get());
    TRY(writeSchema(m_database.get()));
    TRY(run(m_database.get(), "pragma journal_mode = memory; pragma synchronous = off; begin"));
    TRY(run(m_database.get(), dropIndex));
    m_insert = TRY(m_pool->lend("insert into datos (rowid, " + columnNames() +
                                ") values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    return {};
}

Result<> RebuiltFile::add(const RawRow& row) {
    std::array<std::string, columns.size()> texts;
    m_insert.bind(0, row.rowid);
    for (std::size_t i = 0; i < columns.size(); ++i)
        m_insert.bind(static_cast<int>(i) + 1, valueOf(row.fields[i], columns[i].type, texts[i]),
                      Prepared::Texts::Lent);
    auto added = m_insert.run();
    m_insert.reset();
    return added;
}

Result<> RebuiltFile::finish() {
    m_insert.release();
    TRY(run(m_database.get(), createIndex));
    TRY(run(m_database.get(), "commit"));
    Check check;
    for (const auto part : {checkPages, checkValues}) TRY(part(m_database.get(), check));
    if (!check.faults.empty()) return std::unexpected(Error{error::corrupt, check.faults.front()});
    return {};
}

}  // namespace engine
