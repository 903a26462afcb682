#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <map>
#include <string>
#include <vector>

#include "core/catalog_row.h"
#include "core/inserts.h"
#include "core/unit_kinds.h"
#include "platform/jet/database.h"
#include "platform/jet/maintenance.h"

namespace test {

// The rows of each unit in the order of their numbers, each row as one line.
using Content = std::map<std::string, std::vector<std::string>>;

// What a catalogue holds, read without any of the program's code; the file must be sound.
inline Content contentOf(const std::string& path) {
    Content content;
    sqlite3* database = nullptr;
    sqlite3_stmt* statement = nullptr;
    const auto rows = [&](const char* sql, auto&& use) {
        ASSERT_EQ(sqlite3_prepare_v2(database, sql, -1, &statement, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database);
        int step = SQLITE_ROW;
        while ((step = sqlite3_step(statement)) == SQLITE_ROW) use();
        EXPECT_EQ(step, SQLITE_DONE) << sqlite3_errmsg(database);
        sqlite3_finalize(statement);
    };
    const auto text = [&](int column) {
        const unsigned char* value = sqlite3_column_text(statement, column);
        return value ? std::string(reinterpret_cast<const char*>(value)) : std::string("-");
    };
    EXPECT_EQ(sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK) << path;
    sqlite3_busy_timeout(database, 10'000);
    rows("pragma integrity_check", [&] { EXPECT_EQ(text(0), "ok") << path; });
    rows(
        "select disco, numero, ruta, carpeta, archivo, nivel, fecha, largo, tipo, comentario from datos "
        "order by disco, numero, rowid",
        [&] {
            std::string line;
            for (int column = 1; column < 10; ++column) line += text(column) + '|';
            content[text(0)].push_back(std::move(line));
        });
    sqlite3_close(database);
    return content;
}

// Writes a unit of `count` rows, a folder to every twenty files, with nothing but the program's own
// statements.
inline void writeUnit(jet::Database& database, const std::string& name, int count) {
    jet::Transaction all(database);
    ASSERT_TRUE(all.begin());
    for (int i = 0; i < count; ++i) {
        core::CatalogRow row;
        row.numero = i + 1;
        row.carpeta = "folder" + std::to_string(i / 20);
        row.ruta = "E:\\" + row.carpeta;
        row.nivel = i % 20 == 0 ? "1" : "2";
        row.fecha = 37'000 + i / 7.0;
        row.disco = name + std::string(core::unitSuffix);
        row.tipo = i % 20 == 0 ? core::folderTipo : core::fileTipo;
        if (i % 20 != 0) {
            row.archivo = "file " + std::to_string(i) + ".txt";
            row.largo = i;
        }
        ASSERT_TRUE(database.Execute(row.archivo ? core::insertFile(row) : core::insertFolder(row)));
    }
    ASSERT_TRUE(all.commit());
}

inline void makeCatalogue(const std::string& path, const std::vector<std::string>& units, int rowsEach) {
    ASSERT_TRUE(jet::CreateDatabase(path));
    auto database = jet::OpenDatabase(path);
    ASSERT_TRUE(database);
    for (const std::string& unit : units) writeUnit(*database, unit, rowsEach);
}

}  // namespace test
