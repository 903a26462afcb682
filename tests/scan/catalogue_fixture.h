#pragma once

#include <string>
#include <vector>

#include "core/catalog_row.h"
#include "core/serial_date.h"
#include "platform/jet/database.h"
#include "platform/jet/maintenance.h"
#include "support/temporary_folder.h"

namespace test {

// An empty catalogue in a folder of its own.
class CatalogueFixture {
  public:
    CatalogueFixture() : path(m_folder / "catalogue.zrq") { jet::CreateDatabase(path).value(); }

    [[nodiscard]] jet::Database open() const { return jet::OpenDatabase(path).value(); }

    [[nodiscard]] std::vector<core::CatalogRow> rows() const {
        auto database = open();
        auto set = database.OpenRecordset("select * from datos order by numero").value();
        std::vector<core::CatalogRow> all;
        for (; !set.Eof(); set.MoveNext()) all.push_back(core::readRow(set));
        return all;
    }

  private:
    TemporaryFolder m_folder;

  public:
    const std::string path;
};

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
