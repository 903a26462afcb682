#include <sqlite3.h>
#include <QUtf8StringView>

#include "engine/file/connection.h"
#include "engine/format.h"
#include "engine/guarded.h"
#include "engine/maintenance.h"

namespace engine {

namespace {

constexpr std::size_t mostFaults = 100;

// Every page, and every entry of the index against its row. True when all is well.
Result<> checkPages(Connection& connection, Check& check) {
    auto found = connection.prepare("pragma integrity_check(" + std::to_string(mostFaults) + ")");
    if (!found) return std::unexpected(found.error());
    Prepared::Step step{};
    while ((step = found->step()) == Prepared::Step::Row)
        if (found->text(0) != "ok") check.faults.emplace_back(found->text(0));
    if (step == Prepared::Step::Failed) return std::unexpected(connection.lastError());
    return {};
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

// Every value of every row.
Result<> checkRows(Connection& connection, Check& check) {
    std::string sql = "select rowid";
    for (const ColumnInfo& column : columns) sql.append(",").append(column.name);
    auto rows = connection.prepare(sql + " from datos not indexed");
    if (!rows) return std::unexpected(rows.error());
    Prepared::Step step{};
    for (; (step = rows->step()) == Prepared::Step::Row; ++check.rows) {
        for (std::size_t i = 0; i < columns.size() && check.faults.size() < mostFaults; ++i)
            if (const char* fault = faultOf(*rows, static_cast<int>(i) + 1, columns[i].type))
                check.faults.push_back("row " + std::to_string(rows->integer(0)) + ": " +
                                       std::string(columns[i].name) + ' ' + fault);
    }
    if (step == Prepared::Step::Failed) return std::unexpected(connection.lastError());
    return {};
}

bool isDamageToTell(const Error& error) {
    return error.number == error::corrupt;
}

}  // namespace

Result<Check> CheckDatabase(const std::string& nativePath) {
    return guarded([&]() -> Result<Check> {
        Check check;
        auto connection = Connection::open(nativePath, Use::ReadOnly);
        if (!connection) {
            if (!isDamageToTell(connection.error())) return std::unexpected(connection.error());
            check.faults.push_back(connection.error().text);
            return check;
        }
        for (const auto step : {checkPages, checkRows}) {
            const auto done = step(**connection, check);
            if (done) continue;
            if (!isDamageToTell(done.error())) return std::unexpected(done.error());
            check.faults.push_back(done.error().text);
        }
        return check;
    });
}

}  // namespace engine
