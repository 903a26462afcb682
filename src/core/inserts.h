#pragma once

#include <string>

#include "core/catalog_row.h"

namespace core {

// The two insert statements of the system. Texts in the row must be free of apostrophes already.
[[nodiscard]] std::string insertFolder(const CatalogRow& row);  // folder and unit rows: no archivo, no largo
[[nodiscard]] std::string insertFile(const CatalogRow& row);

// A whole row, its note included, whatever its texts hold.
[[nodiscard]] std::string insertWhole(const CatalogRow& row);

// "select * from datos where disco =('NAME :') ", the test for a unit of that name.
[[nodiscard]] std::string selectUnitNamed(std::string_view name);

}  // namespace core
