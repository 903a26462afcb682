#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <string>

#include "core/inserts.h"
#include "core/unit_kinds.h"
#include "platform/jet/database.h"
#include "platform/jet/maintenance.h"

namespace test {

// A catalogue file in a folder of its own.
class SampleCatalogue {
  public:
    SampleCatalogue() { EXPECT_TRUE(jet::CreateDatabase(path())); }

    [[nodiscard]] std::string path() const { return m_folder.filePath("sample.zrq").toStdString(); }
    [[nodiscard]] jet::Database open() const {
        auto database = jet::OpenDatabase(path());
        EXPECT_TRUE(database);
        return std::move(*database);
    }
    // Files named `name`, or as many of them as `times` tells, in a folder of a unit.
    void addFiles(const std::string& disco, const std::string& ruta, const std::string& name, int times = 1) {
        jet::Database database = open();
        jet::Transaction transaction(database);
        ASSERT_TRUE(transaction.begin());
        for (int i = 0; i < times; ++i) {
            core::CatalogRow row = fresh(disco, ruta, core::fileTipo);
            row.archivo = name;
            row.largo = 1;
            ASSERT_TRUE(database.Execute(core::insertFile(row)));
        }
        ASSERT_TRUE(transaction.commit());
    }
    void addFolder(const std::string& disco, const std::string& ruta, const std::string& name) {
        core::CatalogRow row = fresh(disco, ruta, core::folderTipo);
        row.carpeta = name;
        jet::Database database = open();
        ASSERT_TRUE(database.Execute(core::insertFolder(row)));
    }

  private:
    core::CatalogRow fresh(const std::string& disco, const std::string& ruta, std::string_view tipo) {
        core::CatalogRow row;
        row.numero = ++m_rows;
        row.ruta = ruta;
        row.carpeta = "x";
        row.nivel = "1";
        row.tipo = tipo;
        row.disco = disco;
        return row;
    }

    QTemporaryDir m_folder;
    std::int64_t m_rows = 0;
};

}  // namespace test
