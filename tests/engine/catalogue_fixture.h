#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <string>

#include "engine/database.h"
#include "engine/maintenance.h"
#include "support/temporary_folder.h"

// A fresh folder with an empty catalogue in it.
class CatalogueTest : public testing::Test {
  protected:
    CatalogueTest() { engine::CreateDatabase(path).value(); }

    engine::Database open(engine::Use use = engine::Use::Catalogue) {
        return engine::OpenDatabase(path, use).value();
    }

    static void run(engine::Database& database, const std::string& sql) {
        const auto done = database.Execute(sql);
        EXPECT_TRUE(done) << sql << ": " << done.error().text;
    }

    static void addFolder(engine::Database& database, const std::string& ruta, const std::string& carpeta,
                          int nivel, const std::string& disco = "U :") {
        run(database, "insert into datos (numero,ruta,carpeta,nivel,fecha,tipo,disco) values (1,'" + ruta +
                          "','" + carpeta + "','" + std::to_string(nivel) +
                          "','38000','Carpeta de archivos','" + disco + "')");
    }
    static void addFile(engine::Database& database, const std::string& ruta, const std::string& archivo,
                        int nivel = 1, int largo = 7, const std::string& disco = "U :", int numero = 1) {
        run(database,
            "insert into datos (numero,ruta,carpeta,archivo,nivel,fecha,largo,tipo,disco) values (" +
                std::to_string(numero) + ",'" + ruta + "','c','" + archivo + "','" + std::to_string(nivel) +
                "','38000.25','" + std::to_string(largo) + "','Archivo','" + disco + "')");
    }

    // One column of all rows, joined by blanks; the error's number when the statement is refused.
    static std::string column(engine::Database& database, const std::string& name, const std::string& sql) {
        auto rows = database.OpenRecordset(sql);
        if (!rows) return "error " + std::to_string(rows.error().number);
        std::string joined;
        for (; !rows->Eof(); rows->MoveNext()) {
            if (!joined.empty()) joined += ' ';
            const engine::Value value = rows->Field(name);
            joined += value.isNull()         ? "null"
                      : value.text().empty() ? std::to_string(value.integer())
                                             : std::string(value.text());
        }
        return joined;
    }

    static long long count(engine::Database& database, const std::string& sql) {
        auto rows = database.OpenRecordset(sql);
        return rows ? rows->RecordCount() : -1;
    }

    static int errorOf(engine::Database& database, const std::string& sql) {
        if (sql.starts_with("select")) {
            const auto rows = database.OpenRecordset(sql);
            return rows ? 0 : rows.error().number;
        }
        const auto done = database.Execute(sql);
        return done ? 0 : done.error().number;
    }

    // What the bare engine answers to a statement, a blank between the rows; its error when it refuses.
    static std::string plainly(const std::string& file, const char* sql) {
        sqlite3* database = nullptr;
        std::string answer;
        const auto add = [](void* to, int, char** values, char**) {
            auto& text = *static_cast<std::string*>(to);
            text.append(text.empty() ? "" : " ").append(values[0]);
            return 0;
        };
        if (sqlite3_open(file.c_str(), &database) != SQLITE_OK ||
            sqlite3_exec(database, sql, add, &answer, nullptr) != SQLITE_OK)
            answer = sqlite3_errmsg(database);
        sqlite3_close(database);
        return answer;
    }

  private:
    const test::TemporaryFolder m_folder;

  protected:
    const std::filesystem::path folder = m_folder.path();
    const std::filesystem::path path = folder / "a.zrq";
};
