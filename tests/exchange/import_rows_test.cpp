#include "exchange/import_rows.h"

#include <gtest/gtest.h>

#include "core/text.h"
#include "exchange/written.h"
#include "platform/names.h"
#include "platform/qtext.h"
#include "support/catalogue_fixture.h"
#include "support/hostile_names.h"

namespace {

using exchange::Format;
using exchange::ImportFailure;

std::expected<long long, ImportFailure> importInto(
    const test::CatalogueFixture& catalogue, std::string text,
    const std::function<bool()>& stopped = [] { return false; }) {
    std::FILE* file = fmemopen(text.data(), text.size(), "rb");
    auto database = catalogue.open();
    const auto reader = exchange::makeReader(file, exchange::formatOf(file));
    auto imported = exchange::importRows(database, *reader, stopped);
    std::fclose(file);
    return imported;
}

// "line column" of what is wrong, and that the catalogue is left alone.
std::string damageIn(const std::string& text) {
    static const test::CatalogueFixture catalogue;
    const auto imported = importInto(catalogue, text);
    EXPECT_TRUE(catalogue.rows().empty());
    if (imported || imported.error().kind != ImportFailure::Kind::Damaged) return "none";
    return std::to_string(imported.error().damage.line) + ' ' + imported.error().damage.column;
}

const std::string header = "numero,ruta,carpeta,archivo,nivel,fecha,largo,tipo,disco,comentario\r\n";
const std::string good = "1,E:\\,E:,a.txt,1,38000.5,3,Archivo,U :,note\r\n";
const std::string object =
    R"({"numero":1,"ruta":"E:\\","carpeta":"E:","archivo":"a.txt","nivel":"1","fecha":38000.5,"largo":3,)"
    R"("tipo":"Archivo","disco":"U :","comentario":null)";

TEST(Import, BringsBackWhatWasExported) {
    test::CatalogueFixture source;
    std::vector<core::CatalogRow> rows{test::unitRow("Cds :", "Pelis", "Unidad de video")};
    for (std::string name : test::hostileNames()) {
        name = core::withoutApostrophes(platform::toStoredName(name));
        rows.push_back(test::folderRow("Odd :", "E:\\" + name));
        rows.push_back(test::fileRow("Odd :", "E:\\" + name, name, 1 << 20));
        rows.back().fecha = 38000 + 1 / 3.0;
        rows.back().comentario = "\"" + name + ",\r\n\n\"\"it´s\t{}\xe2\x80\xa8 " + name;
    }
    rows.back().comentario = "";
    source.add(rows);
    rows = source.rows();
    for (const Format format : {Format::Csv, Format::Json}) {
        const test::CatalogueFixture copy;
        const std::string text = written(rows, format);
        ASSERT_EQ(importInto(copy, text).value_or(-1), std::ssize(rows));
        EXPECT_EQ(written(copy.rows(), Format::Csv), written(rows, Format::Csv));
    }
}

TEST(Import, MergesUnitsBehindThoseThatAreThere) {
    const test::CatalogueFixture catalogue;
    catalogue.add({test::folderRow("First :", "C:\\a"), test::folderRow("First :", "C:\\b")});
    EXPECT_EQ(importInto(catalogue, header + good).value_or(-1), 1);
    EXPECT_EQ(catalogue.rows().back().numero, 3);
    const auto again = importInto(catalogue, header + "1,E:\\b,b,,1,1,,Carpeta de archivos,New :,\r\n" +
                                                 "2,C:it's,it's,,1,1,,Unidad de audio,u :,\r\n");
    ASSERT_FALSE(again);
    EXPECT_EQ(again.error().kind, ImportFailure::Kind::UnitExists);
    EXPECT_EQ(again.error().unit, "u :");
    EXPECT_EQ(again.error().damage.line, 3);
    EXPECT_EQ(catalogue.rows().size(), 3U);
    EXPECT_EQ(importInto(catalogue, header + "1,C:it's,it's,,1,1,,Unidad de audio,V :,\n").value_or(-1), 1);
    EXPECT_EQ(catalogue.rows().back().carpeta, "it´s");
    EXPECT_EQ(importInto(catalogue, header, [] { return true; }).error().kind, ImportFailure::Kind::Stopped);
}

TEST(Import, TellsTheLineAndColumnOfDamagedCsv) {
    EXPECT_EQ(damageIn("\xEF\xBB\xBF" + header), "none");
    EXPECT_EQ(damageIn(""), "1 ");
    EXPECT_EQ(damageIn("numero,ruta\r\n"), "1 ");
    EXPECT_EQ(damageIn(header + good.substr(0, good.size() - 2)), "2 ");  // cut short
    const std::string before = header + "1,E:\\,E:,\"a\nb\",1,1,3,Archivo,U :,\r\n";
    const std::pair<const char*, const char*> rows[]{
        {"1,E:\\,E:,a,1,1,3,Archivo,U :", "4 "},
        {"1,E:\\,E:,a,1,1,3,Archivo,U :,,", "4 "},
        {"1,E:\\,E:,\"a\"b,1,1,3,Archivo,U :,", "4 "},
        {"1,E:\\,E:,a\"b\",1,1,3,Archivo,U :,", "4 "},
        {"1,E:\\,E:,\"a,1,1,3,Archivo,U :,", "4 "},
        {"1,E:\\,E:,a,1,1,3,Archivo,U :,\r\r1,E:\\,E:,b,1,1,3,Archivo,U :,", "4 "},
        {"1x,E:\\,E:,a,1,1,3,Archivo,U :,", "4 numero"},
        {"9007199254740993,E:\\,E:,a,1,1,3,Archivo,U :,", "4 numero"},
        {"1,,E:,a,1,1,3,Archivo,U :,", "4 ruta"},
        {"1,E:\\,E:,a\xff,1,1,3,Archivo,U :,", "4 archivo"},
        {"1,E:\\,E:,a,13,1,3,Archivo,U :,", "4 nivel"},
        {"1,E:\\,E:,a,01,1,3,Archivo,U :,", "4 nivel"},
        {"1,E:\\,E:,a,1,\"1,5\",3,Archivo,U :,", "4 fecha"},
        {"1,E:\\,E:,a,1,nan,3,Archivo,U :,", "4 fecha"},
        {"1,E:\\,E:,a,1,1,-3,Archivo,U :,", "4 largo"},
        {"1,E:\\,E:,a,1,1,,Archivo,U :,", "4 largo"},
        {"1,E:\\,E:,a,1,1,3,archivo,U :,", "4 tipo"},
        {"1,E:\\,E:,,1,1,3,Archivo,U :,", "4 archivo"},
        {"1,E:\\,E:,a,1,1,3,Archivo,U,", "4 disco"},
        {"1,E:\\,E:,a,1,1,3,Archivo,a'b :,", "4 disco"},
    };
    for (const auto& [row, damage] : rows) EXPECT_EQ(damageIn(before + row + "\r\n"), damage) << row;
    EXPECT_EQ(damageIn(header + good + std::string("1,E:\\,E:,a\0b,1,1,3,Archivo,U :,\r\n", 33)),
              "3 archivo");
    EXPECT_EQ(damageIn(header + '"' + std::string(17 << 20, 'x')), "2 ");
}

TEST(Import, TellsTheLineAndColumnOfDamagedJson) {
    EXPECT_EQ(damageIn(object + "}"), "1 ");  // cut short
    const std::string before = object + R"(,"path":null,"modified":"x"})" + '\n';
    const auto with = [](std::string what, std::string other) {
        std::string changed = object;
        return changed.replace(changed.find(what), what.size(), other) + "}\n";
    };
    const std::pair<std::string, const char*> rows[]{
        {"[]\n", "2 "},
        {"\n", "2 "},
        {object + "\n", "2 "},
        {object + "}}\n", "2 "},
        {with("\"a.txt\"", "\"a\\u0000\""), "2 archivo"},
        {with("\"a.txt\"", "\"\\ud800\""), "2 archivo"},
        {with("\"a.txt\"", "7"), "2 archivo"},
        {with("\"numero\":1", "\"numero\":\"1\""), "2 numero"},
        {with("\"numero\":1", "\"numero\":1.5"), "2 numero"},
        {with("\"numero\":1,", ""), "2 numero"},
        {with("38000.5", "null"), "2 fecha"},
        {with("\"largo\":3", "\"largo\":1e99"), "2 largo"},
        {with("\"comentario\"", "\"Comentario\""), "2 Comentario"},
    };
    for (const auto& [row, damage] : rows) EXPECT_EQ(damageIn(before + row), damage) << row;
}

}  // namespace
