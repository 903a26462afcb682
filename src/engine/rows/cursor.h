#pragma once

#include <memory>

#include "engine/file/connection.h"
#include "engine/rows/rows.h"

namespace engine {

// Rows straight from SQLite, one step at a time.
class Cursor final : public Rows {
  public:
    // Steps to the first row of a statement whose columns are `fields`.
    [[nodiscard]] static Result<std::unique_ptr<Rows>> open(std::shared_ptr<Connection> connection,
                                                            Prepared rows, const std::vector<Column>& fields);

    [[nodiscard]] bool atEnd() const override { return m_atEnd; }
    [[nodiscard]] Result<> moveNext() override;
    [[nodiscard]] Value field(Column column) override;
    [[nodiscard]] std::optional<long long> count() const override;

  private:
    Cursor(std::shared_ptr<Connection> connection, Prepared rows, const std::vector<Column>& fields)
        : m_connection(std::move(connection)), m_rows(std::move(rows)), m_places(fields) {}

    std::shared_ptr<Connection> m_connection;
    Prepared m_rows;
    FieldPlaces m_places;
    bool m_atEnd = false;
    long long m_found = 0;  // rows so far, the current one included
};

}  // namespace engine
