#include "engine/repair/check.h"

#include <sqlite3.h>
#include <QUtf8StringView>

#include <cstdlib>
#include <string_view>

#include "engine/file/connection.h"
#include "engine/file/sqlite_error.h"
#include "engine/format.h"
#include "engine/guarded.h"
#include "platform/waiting.h"

namespace engine {

namespace {

constexpr std::size_t mostFaults = 100;

Result<> told(const Error& failure, Check& check) {
    if (failure.number != error::corrupt) return std::unexpected(failure);
    check.faults.push_back(failure.text);
    return {};
}

// Of a page that could not be read SQLite says no more than this. It need not be the page's fault.
bool isOfTheDisk(std::string_view fault, int& code) {
    constexpr std::string_view codeText = "error code=";
    const std::size_t at = fault.find(codeText);
    code = at == fault.npos ? SQLITE_CORRUPT : std::atoi(fault.data() + at + codeText.size());
    return (code & 0xFF) != SQLITE_CORRUPT;
}

// What is wrong with a value; nullptr for a sound one.
const char* faultOf(const Prepared& row, int place, Type type) {
    const int stored = sqlite3_column_type(row.get(), place);
    if (stored == SQLITE_NULL) return nullptr;
    if (type == Type::Text) {
        if (stored != SQLITE_TEXT) return "is no text";
        const std::string_view text = row.text(place);
        const bool valid = QUtf8StringView(text.data(), static_cast<qsizetype>(text.size())).isValidUtf8() &&
                           text.find('\0') == text.npos;
        return valid ? nullptr : "is no UTF-8 text";
    }
    const bool isNumber = stored == SQLITE_INTEGER || (type == Type::Real && stored == SQLITE_FLOAT);
    return isNumber ? nullptr : "is no number";
}

}  // namespace

Result<> checkPages(sqlite3* database, Check& check) {
    StatementPool statements(database);
    auto found = statements.lend("pragma integrity_check(" + std::to_string(mostFaults) + ")");
    if (!found) return told(found.error(), check);
    Result<bool> there;
    const auto next = [&] { there = found->next(); };  // most of it is one step of SQLite's machine
    for (;;) {
        platform::Waiting::giveSignsDuring(next);
        if (!there) return told(there.error(), check);
        if (!*there) return {};
        const std::string fault(found->text(0));
        if (int code = 0; isOfTheDisk(fault, code)) return std::unexpected(errorOfCode(code));
        if (fault != "ok") check.faults.push_back(fault);
    }
}

Result<> checkValues(sqlite3* database, Check& check) {
    StatementPool statements(database);
    auto rows = statements.lend("select rowid, " + columnNames() + " from datos not indexed");
    if (!rows) return told(rows.error(), check);
    auto there = rows->next();
    for (; there && *there; there = rows->next(), ++check.rows) {
        for (std::size_t i = 0; i < columns.size() && check.faults.size() < mostFaults; ++i)
            if (const char* fault = faultOf(*rows, static_cast<int>(i) + 1, columns[i].type))
                check.faults.push_back("row " + std::to_string(rows->integer(0)) + ": " +
                                       std::string(columns[i].name) + ' ' + fault);
    }
    return there ? Result<>() : told(there.error(), check);
}

Result<Check> CheckDatabase(const std::string& nativePath) {
    return guarded([&]() -> Result<Check> {
        Check check;
        auto connection = Connection::open(nativePath, Use::ReadOnly);
        if (!connection) {
            if (connection.error().number != error::corrupt) return std::unexpected(connection.error());
            check.faults.push_back(connection.error().text);
            return check;
        }
        for (const auto part : {checkPages, checkValues}) TRY(part((*connection)->handle(), check));
        return check;
    });
}

}  // namespace engine
