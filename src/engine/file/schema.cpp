#include "engine/file/schema.h"

#include <sqlite3.h>

#include <algorithm>
#include <string>

#include "engine/file/prepared.h"
#include "engine/file/sqlite_error.h"
#include "engine/format.h"

namespace engine {

namespace {

Error unusable(const std::string& why) {
    return {error::corrupt, "The table of the catalogue " + why};
}

// As SQLite reads a declared type.
bool isDeclaredAs(Type type, std::string declared) {
    std::ranges::transform(declared, declared.begin(),
                           [](char c) { return c >= 'a' && c <= 'z' ? c - 32 : c; });
    const auto says = [&](const char* word) { return declared.find(word) != declared.npos; };
    const bool isText = !says("INT") && (says("CHAR") || says("CLOB") || says("TEXT"));
    const bool isAnything = !says("INT") && !isText && (declared.empty() || says("BLOB"));
    return type == Type::Text ? isText : !isText && !isAnything;
}

Result<> checkColumn(sqlite3* database, const ColumnInfo& column) {
    const char* declared = nullptr;
    const char* collation = nullptr;
    const std::string name(column.name);
    const int code = sqlite3_table_column_metadata(database, "main", tableName.data(), name.c_str(),
                                                   &declared, &collation, nullptr, nullptr, nullptr);
    if ((code & 0xFF) == SQLITE_ERROR) return std::unexpected(unusable("lacks the column " + name));
    if (code != SQLITE_OK) return std::unexpected(lastError(database));
    if (!isDeclaredAs(column.type, declared ? declared : "") || sqlite3_stricmp(collation, "BINARY") != 0)
        return std::unexpected(unusable("has a column " + name + " of another type"));
    return {};
}

}  // namespace

Result<> checkSchema(sqlite3* database) {
    StatementPool statements(database);
    const auto tables = TRY(statements.number(
        "select count(*) from sqlite_schema where type = 'table' and name = 'datos' and rootpage > 0"));
    if (tables != 1) return std::unexpected(unusable("is missing"));
    for (const ColumnInfo& column : columns) TRY(checkColumn(database, column));
    const auto computed =
        TRY(statements.number("select count(*) from pragma_table_xinfo('datos') where hidden <> 0"));
    if (computed != 0) return std::unexpected(unusable("has computed columns"));
    return {};
}

}  // namespace engine
