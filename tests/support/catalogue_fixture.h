#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/inserts.h"
#include "core/unit_kinds.h"
#include "engine/database.h"
#include "engine/maintenance.h"
#include "support/temporary_folder.h"

namespace test {

// Rows as a scan writes them, of the level that their path has.
inline core::CatalogRow folderRow(const std::string& disco, const std::string& ruta) {
    const std::string path = ruta.ends_with('\\') ? ruta.substr(0, ruta.size() - 1) : ruta;
    core::CatalogRow row;
    row.ruta = ruta;
    row.carpeta = path.substr(path.rfind('\\') + 1);
    row.nivel = std::to_string(std::ranges::count(path, '\\'));
    row.fecha = 38000;
    row.tipo = core::folderTipo;
    row.disco = disco;
    return row;
}
inline core::CatalogRow fileRow(const std::string& disco, const std::string& ruta, const std::string& archivo,
                                int largo = 1) {
    core::CatalogRow row = folderRow(disco, ruta);
    row.archivo = archivo;
    row.nivel = std::to_string(std::stoi(row.nivel) + 1);
    row.largo = largo;
    row.tipo = core::fileTipo;
    return row;
}
inline core::CatalogRow unitRow(const std::string& disco, const std::string& content,
                                const std::string& tipo) {
    core::CatalogRow row = folderRow(disco, "C:" + content);
    row.carpeta = content;
    row.nivel = "1";
    row.tipo = tipo;
    return row;
}

// Adds the rows, their notes included, behind those that are there.
inline void addRows(const std::string& catalogue, std::vector<core::CatalogRow> rows) {
    auto database = engine::OpenDatabase(catalogue).value();
    engine::Transaction all(database);
    ASSERT_TRUE(all.begin());
    std::int64_t numero = database.OpenRecordset("select * from datos order by numero").value().RecordCount();
    for (core::CatalogRow& row : rows) {
        row.numero = ++numero;
        ASSERT_TRUE(database.Execute(row.archivo ? core::insertFile(row) : core::insertFolder(row)));
        if (!row.comentario) continue;
        ASSERT_TRUE(database.Execute("update datos set comentario='" + *row.comentario +
                                     "' where numero=" + std::to_string(numero)));
    }
    ASSERT_TRUE(all.commit());
}

// An empty catalogue in a folder of its own.
class CatalogueFixture {
  public:
    CatalogueFixture() { engine::CreateDatabase(path).value(); }

    [[nodiscard]] engine::Database open(engine::Use use = engine::Use::Catalogue) const {
        return engine::OpenDatabase(path, use).value();
    }
    void add(const core::CatalogRow& row) const { addRows(path, std::vector{row}); }
    void add(std::vector<core::CatalogRow> rows) const { addRows(path, std::move(rows)); }
    [[nodiscard]] std::vector<core::CatalogRow> rows() const {
        auto database = open();
        auto set = database.OpenRecordset("select * from datos order by numero").value();
        std::vector<core::CatalogRow> all;
        for (; !set.Eof(); set.MoveNext()) all.push_back(core::readRow(set));
        return all;
    }

    const TemporaryFolder folder;
    const std::string path = folder / "catalogue.zrq";
};

}  // namespace test
