#pragma once

#include "engine/dialect/query.h"
#include "engine/dialect/sql_writer.h"
#include "engine/rows/census.h"
#include "engine/rows/collected_rows.h"

namespace engine {

// What one statement needs to run.
struct Scan {
    Connection& connection;
    Census& census;
    const Statement& statement;
    const std::vector<Literal>& literals;
};

// Where a statement's rows are looked for.
struct Access {
    enum Kind { Nowhere, Range, AsSqliteChooses };
    Kind kind = AsSqliteChooses;
    std::int64_t firstRow = 0;  // of a Range
    std::int64_t lastRow = 0;

    // Stands behind the table's name: a range is read as it lies.
    [[nodiscard]] std::string_view hint() const { return kind == Range ? " not indexed" : ""; }
};
[[nodiscard]] Access accessFor(const Scan& scan);

// " where ..." for this access, and " from datos" with it.
void writeWhere(SqlWriter& writer, const Statement& statement, const Access& access);
void writeSource(SqlWriter& writer, const Statement& statement, const Access& access);

// True when the condition tries a pattern on row after row, so that a second pass would be dear.
[[nodiscard]] bool triesPattern(const Statement& statement);

// The rows in the order that they are found: first column rowid, then the fields.
[[nodiscard]] Result<Prepared> scanRows(const Scan& scan);

// The same, and behind the fields the columns that are ordered by.
[[nodiscard]] Result<Prepared> scanRowsWithOrder(const Scan& scan);

// Gathers what such a statement gives. False when it failed.
[[nodiscard]] bool collectFrom(const Statement& statement, Prepared& rows, CollectedRows& collected);

// All rows at once, in the statement's order.
[[nodiscard]] Result<CollectedRows> collectRows(const Scan& scan);

// The number of rows, fetching none.
[[nodiscard]] Result<long long> countRows(const Scan& scan);
[[nodiscard]] Result<bool> hasRows(const Scan& scan);

}  // namespace engine
