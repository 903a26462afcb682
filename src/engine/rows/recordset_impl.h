#pragma once

#include <array>
#include <optional>

#include "engine/file/connection.h"
#include "engine/recordset.h"
#include "engine/rows/row_scan.h"

namespace engine {

// What every kind of recordset does; the kinds differ in where their rows come from.
struct Recordset::Impl {
    explicit Impl(std::shared_ptr<Connection> connection) : connection(std::move(connection)) {}
    virtual ~Impl() = default;

    virtual bool atEnd() = 0;
    virtual void moveNext() = 0;  // not called at the end
    virtual long long count() = 0;
    virtual Value field(Column column) = 0;  // not called at the end

    std::shared_ptr<Connection> connection;
    std::optional<Error> failure;
};

// A select that runs now or later: it owns what its statement's values are views of.
struct OwnedScan {
    std::shared_ptr<Connection> connection;
    std::shared_ptr<Census> census;
    std::unique_ptr<Query> query;

    [[nodiscard]] Scan scan() const { return {*connection, *census, query->statement(), query->literals()}; }
};

// Where a column stands among a select's fields.
class FieldPlaces {
  public:
    explicit FieldPlaces(const std::vector<Column>& fields) {
        m_places.fill(-1);
        for (std::size_t i = 0; i < fields.size(); ++i)
            m_places[static_cast<std::size_t>(fields[i])] = static_cast<int>(i);
    }
    [[nodiscard]] int operator[](Column column) const { return m_places[static_cast<std::size_t>(column)]; }

  private:
    std::array<int, columns.size()> m_places;
};

// Chooses the kind of recordset for a select.
[[nodiscard]] Result<std::unique_ptr<Recordset::Impl>> openRows(OwnedScan scan);

}  // namespace engine
