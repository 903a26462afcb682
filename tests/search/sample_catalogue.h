#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <string>
#include <string_view>

#include "core/inserts.h"
#include "core/serial_date.h"
#include "core/unit_kinds.h"
#include "platform/jet/database.h"
#include "platform/jet/maintenance.h"

// A catalogue of two scanned units and a hand-made one, in a folder of its own.
class SampleCatalogue {
  public:
    SampleCatalogue() {
        EXPECT_TRUE(jet::CreateDatabase(path()));
        auto database = jet::OpenDatabase(path());
        EXPECT_TRUE(database);
        jet::Transaction transaction(*database);
        EXPECT_TRUE(transaction.begin());
        folder(*database, "Fotos :", "fotos");
        file(*database, "Fotos :", "fotos", "foto1.jpg", 100, {2003, 5, 1}, "en la playa");
        file(*database, "Fotos :", "fotos", "foto2.JPG", 2000, {2003, 5, 31});
        file(*database, "Fotos :", "fotos", "cinta.mpeg", 9000, {2003, 6, 1});
        folder(*database, "Discos :", "sonidos");
        file(*database, "Discos :", "sonidos", "b.mp3", 30, {2004, 1, 1}, "jazz");
        file(*database, "Discos :", "sonidos", "a.mid", 10, {2004, 1, 2}, "jazz");
        file(*database, "Discos :", "sonidos", "a.Mp3", 20, {2004, 1, 3});
        file(*database, "Discos :", "sonidos", "a.vox", 5, {2004, 1, 4});
        file(*database, "Discos :", "sonidos", "a.asfa", 5, {2004, 1, 4});
        file(*database, "Discos :", "sonidos", "a.avi", 700, {2004, 1, 4}, "jazz");
        file(*database, "Discos :", "sonidos", "z.exe", 60, {2004, 1, 4});
        file(*database, "Discos :", "sonidos", "z.html", 60, {2004, 1, 4}, "jazz");
        file(*database, "Discos :", "sonidos", "z.zip", 60, {2004, 1, 4}, "jazz");
        EXPECT_TRUE(transaction.commit());
    }

    [[nodiscard]] std::string path() const { return m_folder.filePath("muestra.zrq").toStdString(); }
    [[nodiscard]] jet::Database open() const {
        return std::move(*jet::OpenDatabase(path(), jet::Use::ReadOnly));
    }

  private:
    struct Day {
        int year, month, day;
    };

    void folder(jet::Database& database, const std::string& disco, const std::string& name) {
        core::CatalogRow row;
        row.carpeta = name;
        row.tipo = core::folderTipo;
        insert(database, row, disco, name, {2003, 1, 1}, {});
    }
    void file(jet::Database& database, const std::string& disco, const std::string& folder,
              const std::string& name, int kilobytes, Day day, std::string_view note = {}) {
        core::CatalogRow row;
        row.carpeta = folder;
        row.archivo = name;
        row.largo = kilobytes;
        row.tipo = core::fileTipo;
        insert(database, row, disco, folder, day, note);
    }
    void insert(jet::Database& database, core::CatalogRow& row, const std::string& disco,
                const std::string& folder, Day day, std::string_view note) {
        row.numero = ++m_rows;
        row.ruta = "E:\\" + folder;
        row.nivel = row.archivo ? "2" : "1";
        row.fecha = core::serialOfDate(day.year, day.month, day.day);
        row.disco = disco;
        EXPECT_TRUE(database.Execute(row.archivo ? core::insertFile(row) : core::insertFolder(row)));
        if (note.empty()) return;
        EXPECT_TRUE(database.Execute("update datos set comentario='" + std::string(note) +
                                     "' where carpeta =('" + row.carpeta + "') and archivo =('" +
                                     row.archivo.value_or("") + "')"));
    }

    QTemporaryDir m_folder;
    int m_rows = 0;
};
