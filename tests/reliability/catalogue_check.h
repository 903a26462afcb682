#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "support/catalogue_fixture.h"

namespace test {

// The rows of each unit in the order of their numbers, each row as one line.
using Content = std::map<std::string, std::vector<std::string>>;

// What a catalogue holds, read without any of the program's code; the file must be sound.
inline Content contentOf(const std::string& path) {
    Content content;
    sqlite3* database = nullptr;
    const auto add = [](void* to, int columns, char** values, char**) {
        std::string line;
        for (int column = 1; column < columns; ++column)
            line += std::string(values[column] ? values[column] : "-") + '|';
        (*static_cast<Content*>(to))[values[0]].push_back(std::move(line));
        return 0;
    };
    const auto read = [&](const char* sql, Content& rows) {
        EXPECT_EQ(sqlite3_exec(database, sql, add, &rows, nullptr), SQLITE_OK)
            << path << sqlite3_errmsg(database);
    };
    EXPECT_EQ(sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK) << path;
    sqlite3_busy_timeout(database, 10'000);
    Content faults;
    read("pragma integrity_check", faults);
    EXPECT_EQ(faults, (Content{{"ok", {""}}})) << path;
    read(
        "select disco, numero, ruta, carpeta, archivo, nivel, fecha, largo, tipo, comentario from datos "
        "order by disco, numero, rowid",
        content);
    sqlite3_close(database);
    return content;
}

// The rows of a unit, a folder to every twenty files.
inline std::vector<core::CatalogRow> unitOf(const std::string& name, int count) {
    std::vector<core::CatalogRow> rows;
    for (int i = 0; i < count; ++i) {
        const std::string disco = name + " :", ruta = "E:\\folder" + std::to_string(i / 20);
        rows.push_back(i % 20 == 0 ? folderRow(disco, ruta)
                                   : fileRow(disco, ruta, "file " + std::to_string(i) + ".txt", i));
        rows.back().fecha = 37'000 + i / 7.0;
    }
    return rows;
}

inline void makeTree(const std::string& path, int folders, int filesInEach) {
    for (int folder = 0; folder < folders; ++folder) {
        const std::string inner = path + "/folder" + std::to_string(folder);
        std::filesystem::create_directories(inner);
        for (int file = 0; file < filesInEach; ++file) writeFile(inner + "/file" + std::to_string(file), "");
    }
}

inline void makeCatalogue(const std::string& path, const std::vector<std::string>& units, int rowsEach) {
    ASSERT_TRUE(engine::CreateDatabase(path));
    for (const std::string& unit : units) addRows(path, unitOf(unit, rowsEach));
}

}  // namespace test
