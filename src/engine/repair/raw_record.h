#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>

#include "engine/format.h"
#include "engine/repair/raw_pages.h"

namespace engine {

// One row as it lies in a page of the table.
struct RawRow {
    using Field = std::variant<std::monostate, std::int64_t, double, std::string>;
    std::int64_t rowid = 0;
    std::array<Field, columns.size()> fields;
};

// The row whose cell begins at `at` of a leaf page. Nothing when what lies there is no whole row of our
// table.
[[nodiscard]] std::optional<RawRow> rowAt(const RawPages& pages, const RawPages::Page& page, std::size_t at);

}  // namespace engine
