#include <QString>
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <optional>

#include "exchange/written.h"
#include "platform/qtext.h"
#include "support/fuzz.h"

namespace {

using exchange::Format;

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

core::CatalogRow hostileRow(test::Random& random) {
    const auto text = [&] { return 'x' + test::randomText(random, textPieces, 6); };
    core::CatalogRow row;
    row.numero = static_cast<int>(random(1UL << 32));
    row.ruta = text();
    row.carpeta = text();
    row.nivel = std::to_string(1 + random(12));
    const auto bits = std::uint64_t{random(1UL << 32)} << 32 | random(1UL << 32);
    row.fecha = std::isfinite(std::bit_cast<double>(bits)) ? std::bit_cast<double>(bits) : 37'000;
    row.tipo = "Carpeta de archivos";
    row.disco = text() + " :";
    if (random(2)) {
        row.tipo = "Archivo";
        row.archivo = text();
        row.largo = static_cast<std::int64_t>(bits & ((std::uint64_t{1} << 53) - 1));
    }
    if (random(2)) row.comentario = text().substr(random(2));
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
struct RowsAreWrittenAndReadAgain : test::Fuzz {
    void round(test::Random& random) {
        const bool csv = random(2) == 0;
        std::string text = csv ? cli::csvHeader() + test::randomText(random, csvPieces, 6)
                               : test::randomText(random, jsonPieces, 9);
        test::spoil(text, random);
        const auto rows = readAll(text, csv ? Format::Csv : Format::Json);
        if (rows) ++useful;
        const Rows hostile{hostileRow(random), hostileRow(random)};
        ASSERT_TRUE(!rows || isWrittenAndReadAgain(*rows)) << text;
        ASSERT_TRUE(isWrittenAndReadAgain(hostile)) << written(hostile, Format::Csv);
        ASSERT_TRUE(isShownSafely(hostile[0].ruta) && isShownSafely(text)) << hostile[0].ruta << text;
    }
};
FUZZED(RowsAreWrittenAndReadAgain, 10'000)

}  // namespace
