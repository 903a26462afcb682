#pragma once

#include <string>
#include <vector>

#include "core/serial_date.h"
#include "support/catalogue_fixture.h"

namespace test {

// "nivel ruta carpeta archivo largo", a dash for what is absent.
inline std::string summary(const core::CatalogRow& row) {
    return row.nivel + ' ' + row.ruta + ' ' + row.carpeta + ' ' + row.archivo.value_or("-") + ' ' +
           (row.largo ? std::to_string(*row.largo) : "-");
}

inline std::vector<std::string> summaries(const std::vector<core::CatalogRow>& rows) {
    std::vector<std::string> lines;
    for (const core::CatalogRow& row : rows) lines.push_back(summary(row));
    return lines;
}

}  // namespace test
