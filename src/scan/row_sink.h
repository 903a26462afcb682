#pragma once

#include <optional>

#include "core/catalog_row.h"
#include "engine/error.h"

namespace scan {

// What became of the rows that a scan handed to the catalogue.
struct WriteSummary {
    long long written = 0;
    long long lost = 0;
    std::optional<engine::Error> firstError;
    bool nameTaken = false;  // another program has made a unit of this name meanwhile: no row was written
};

// Takes the rows of a walk, in their order.
class RowSink {
  public:
    virtual ~RowSink() = default;

    virtual void add(const core::CatalogRow& row) = 0;

    // Makes every row so far durable and visible, where they go to a catalogue as they come; to be called
    // before anyone else may look.
    virtual void commit() {}
    [[nodiscard]] virtual bool takesMore() const { return true; }  // false: the walk may end
    [[nodiscard]] virtual WriteSummary summary() const { return {}; }
};

}  // namespace scan
