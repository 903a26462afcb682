#pragma once

#include <memory>
#include <optional>

#include "engine/dialect/query.h"
#include "engine/dialect/sql_writer.h"
#include "engine/rows/known_names.h"
#include "engine/rows/row_sorter.h"
#include "engine/rows/unit_list.h"

namespace engine {

// A select on an open file. Each call reads the file as it is at that moment, all of it in one state, and
// gives the whole answer or an error.
class Select {
  public:
    Select(std::shared_ptr<Connection> connection, std::shared_ptr<UnitList> units, Query query,
           std::shared_ptr<KnownNames> names = nullptr)
        : m_connection(std::move(connection)),
          m_units(std::move(units)),
          m_query(std::move(query)),
          m_names(std::move(names)) {}

    [[nodiscard]] const Query& query() const { return m_query; }
    [[nodiscard]] const Statement& statement() const { return m_query.statement(); }
    [[nodiscard]] const std::shared_ptr<Connection>& connection() const { return m_connection; }

    // The same on the same file with another statement, which knows the same literals.
    [[nodiscard]] Select with(Statement statement) const;

    // The rows in the statement's order, at the first one. More than `bound` bytes of rows that have to be
    // sorted are sorted on disk.
    [[nodiscard]] Result<std::unique_ptr<Rows>> rows(std::size_t bound = RowSorter::usualBound) const;

    // The same rows in a table. Nothing where they are too many.
    [[nodiscard]] Result<std::optional<RowTable>> table(std::size_t bound = RowSorter::usualBound) const;

    // Fetching none.
    [[nodiscard]] Result<long long> count() const;

    // True when all rows have to be looked at, and those that are found sorted.
    [[nodiscard]] bool isSortedPass() const;

    // The rows of such a select where the known names tell them without a pass; nothing where they do not.
    [[nodiscard]] Result<std::unique_ptr<Rows>> knownRows(std::size_t bound = RowSorter::usualBound) const;

  private:
    template <class Write>
    [[nodiscard]] Result<Prepared> prepared(Write write) const;
    [[nodiscard]] Result<bool> isOrderNeeded() const;
    void writeFrom(SqlWriter& writer, const std::optional<Stretch>& stretch = {}) const;
    // A working copy is, and its index knows nothing else.
    [[nodiscard]] bool isOfOneUnit() const { return m_connection->use() == Use::Scratch; }
    [[nodiscard]] Result<std::optional<Stretch>> stretch() const;
    // Both are false, with a sorter that is of no use, when they cannot give all rows.
    [[nodiscard]] bool addKnown(const KnownNames::Found& rowids, const RowSorter::Columns& columns,
                                RowSorter& sorter) const;
    [[nodiscard]] Result<bool> addAll(const RowSorter::Columns& columns, RowSorter& sorter) const;
    [[nodiscard]] Result<std::unique_ptr<Rows>> sortedRows(std::size_t bound) const;

    std::shared_ptr<Connection> m_connection;
    std::shared_ptr<UnitList> m_units;
    Query m_query;
    std::shared_ptr<KnownNames> m_names;  // may be none
};

}  // namespace engine
