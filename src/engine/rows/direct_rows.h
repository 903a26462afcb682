#pragma once

#include <memory>

#include "engine/rows/recordset_impl.h"
#include "engine/rows/stored_rows.h"

namespace engine {

// Rows straight from SQLite, one step at a time, in the order in which they are found.
class DirectRows final : public Recordset::Impl {
  public:
    [[nodiscard]] static Result<std::unique_ptr<Recordset::Impl>> open(OwnedScan scan);

    bool atEnd() override;
    void moveNext() override;
    long long count() override;
    Value field(Column column) override;

  private:
    explicit DirectRows(OwnedScan scan);

    void step();
    void noteCount() const;
    [[nodiscard]] long long countPatternRows();

    OwnedScan m_scan;
    Prepared m_rows;
    FieldPlaces m_places;
    long long m_version;  // of the file when it was opened
    bool m_atEnd = false;
    long long m_found = 0;  // rows so far, the current one included
    std::optional<long long> m_count;
    std::unique_ptr<StoredRows> m_rest;  // the current row and all behind it, once they were counted
};

}  // namespace engine
