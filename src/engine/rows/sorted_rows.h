#pragma once

#include <memory>

#include "engine/rows/recordset_impl.h"
#include "engine/rows/stored_rows.h"

namespace engine {

// Rows in an order that no index gives. Nothing is fetched before the first field is read: a recordset that
// is only counted, or only asked whether it is empty, costs no sorting.
class SortedRows final : public Recordset::Impl {
  public:
    [[nodiscard]] static Result<std::unique_ptr<Recordset::Impl>> open(OwnedScan scan);

    bool atEnd() override;
    void moveNext() override;
    long long count() override;
    Value field(Column column) override;

  private:
    explicit SortedRows(OwnedScan scan) : Impl(scan.connection), m_scan(std::move(scan)) {}

    void collect();

    OwnedScan m_scan;
    std::optional<bool> m_empty;
    std::optional<long long> m_count;
    std::unique_ptr<StoredRows> m_rows;
};

}  // namespace engine
