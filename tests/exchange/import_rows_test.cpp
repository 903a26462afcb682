#include "exchange/import_rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <optional>

#include "cli/output.h"
#include "core/text.h"
#include "exchange/row_reader.h"
#include "platform/names.h"
#include "platform/qtext.h"
#include "support/catalogue_fixture.h"
#include "support/hostile_names.h"
#include "support/rounds.h"

namespace {

using exchange::Format;
using Kind = exchange::ImportFailure::Kind;
using Rows = std::vector<core::CatalogRow>;

std::string written(const Rows& rows, Format format) {
    std::string text = format == Format::Csv ? cli::csvHeader() : "";
    for (const auto& row : rows)
        text += format == Format::Csv ? cli::csvRow(row) : cli::jsonRow(row, platform::Drives());
    return text;
}

std::expected<long long, exchange::ImportFailure> importInto(
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
    if (imported || imported.error().kind != Kind::Damaged) return "none";
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
    EXPECT_EQ(again.error().kind, Kind::UnitExists);
    EXPECT_EQ(again.error().unit, "u :");
    EXPECT_EQ(again.error().damage.line, 3);
    EXPECT_EQ(catalogue.rows().size(), 3U);
    EXPECT_EQ(importInto(catalogue, header + "1,C:it's,it's,,1,1,,Unidad de audio,V :,\n").value_or(-1), 1);
    EXPECT_EQ(catalogue.rows().back().carpeta, "it´s");
    EXPECT_EQ(importInto(catalogue, header, [] { return true; }).error().kind, Kind::Stopped);
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
        {"1,E:\\\r,E:,a,1,1,3,Archivo,U :,", "4 "},
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

const test::Parts csvPieces = test::parts(
    "1,E:\\,E:,a,1,1.5,3,Archivo,U :,note\r\n|2,E:\\b,b,,1,1e3,,Carpeta de archivos,U :,\"x\ny\"\n|"
    "-3,C:z,z,,1,0,,Unidad de audio,V :,\"\"\r\n|,|\"|\"\"|\r|\n|\r\n|1|-|.5|\xff|ñ|Archivo| :|''");
const test::Parts jsonPieces = test::parts(
    R"({"numero":1,"ruta":"E:\\","carpeta":"E:","archivo":"a","nivel":"1","fecha":1.5,"largo":3,|)"
    R"("tipo":"Archivo","disco":"U :","comentario":"\u0041\n\"\ud83d\ude00"}|)"
    R"("tipo":"Archivo","disco":"U :","comentario":null,"path":null}|)"
    "\n|{|}|[|\"|\\|\\u00|\\ud800|:|,|null|1|-|1e400|\xff|ñ|\"largo\":");

// What names and notes may hold; an apostrophe never comes as far as a row.
const test::Parts textPieces = test::parts(
    "a| |,|\"|\"\"|\r|\n|\r\n|\t|\x1b[31m|\x7f|\\|{|}|´|ñ|\u0085|\u202e|\u2028|\ufeff|\uF0FF|😀|=1+1|null");

// Nothing when damaged.
std::optional<Rows> readAll(std::string text, Format format) {
    // A file of no bytes cannot be made.
    std::FILE* file = text.empty() ? std::fopen("/dev/null", "rb") : fmemopen(text.data(), text.size(), "rb");
    const auto reader = exchange::makeReader(file, format);
    std::optional<Rows> rows(std::in_place);
    for (;;) {
        auto row = reader->next();
        if (!row) rows.reset();
        if (!row || !*row) break;
        rows->push_back(std::move(**row));
    }
    std::fclose(file);
    return rows;
}

core::CatalogRow hostileRow(std::mt19937& random) {
    const auto text = [&] { return 'x' + test::randomText(random, textPieces, 6); };
    core::CatalogRow row;
    row.numero = static_cast<int>(random());
    row.ruta = text();
    row.carpeta = text();
    row.nivel = std::to_string(1 + random() % 12);
    const auto bits = std::uint64_t{random()} << 32 | random();
    row.fecha = std::isfinite(std::bit_cast<double>(bits)) ? std::bit_cast<double>(bits) : 37'000;
    row.tipo = "Carpeta de archivos";
    row.disco = text() + " :";
    if (random() % 2) {
        row.tipo = "Archivo";
        row.archivo = text();
        row.largo = static_cast<std::int64_t>(bits & ((std::uint64_t{1} << 53) - 1));
    }
    if (random() % 2) row.comentario = text().substr(random() % 2);
    return row;
}

bool isWrittenAndReadAgain(const Rows& rows) {
    return std::ranges::all_of(std::array{Format::Csv, Format::Json}, [&](Format format) {
        const auto again = readAll(written(rows, format), format);
        return again && written(*again, Format::Csv) == written(rows, Format::Csv);
    });
}

// Any bytes at all, as a terminal may be given them: one line, that commands nothing.
bool isShownSafely(const std::string& bytes) {
    const std::string shown = cli::shown(bytes);
    const QString text = platform::qtext(shown);
    return text.toStdString() == shown && std::ranges::none_of(text, [](QChar c) {
               return c.category() == QChar::Other_Control || (c >= u'\u2028' && c <= u'\u202e');
           });
}

// Any bytes end well, what is read or made up is written and read again as the same rows, and what is shown
// commands no terminal.
TEST(Fuzz, RowsAreWrittenAndReadAgain) {
    std::mt19937 random = test::seeded();
    long long sound = 0;
    for (int i = test::rounds(10'000); i > 0; --i) {
        const bool csv = i % 2 == 0;
        std::string text = csv ? cli::csvHeader() + test::randomText(random, csvPieces, 6)
                               : test::randomText(random, jsonPieces, 9);
        if (random() % 4 == 0 && !text.empty()) text[random() % text.size()] = static_cast<char>(random());
        const auto rows = readAll(text, csv ? Format::Csv : Format::Json);
        if (rows) ++sound;
        const Rows hostile{hostileRow(random), hostileRow(random)};
        ASSERT_TRUE(!rows || isWrittenAndReadAgain(*rows)) << text;
        ASSERT_TRUE(isWrittenAndReadAgain(hostile)) << written(hostile, Format::Csv);
        ASSERT_TRUE(isShownSafely(hostile[0].ruta) && isShownSafely(text)) << hostile[0].ruta << text;
    }
    EXPECT_GT(sound, 0);
}

}  // namespace
