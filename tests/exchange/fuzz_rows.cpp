#include <cstdio>

#include "cli/output.h"
#include "engine/fuzz_rounds.h"
#include "exchange/row_reader.h"

// Any bytes end well, and what is read is written and read again as the same rows.

namespace {

using exchange::Format;

constexpr const char* csvPieces[] = {"1,E:\\,E:,a,1,1.5,3,Archivo,U :,note\r\n",
                                     "2,E:\\b,b,,1,1e3,,Carpeta de archivos,U :,\"x\ny\"\n",
                                     "-3,C:z,z,,1,0,,Unidad de audio,V :,\"\"\r\n",
                                     ",",
                                     "\"",
                                     "\"\"",
                                     "\r",
                                     "\n",
                                     "\r\n",
                                     "1",
                                     "-",
                                     ".5",
                                     "\xff",
                                     "ñ",
                                     "Archivo",
                                     " :",
                                     "''"};
constexpr const char* jsonPieces[] = {
    R"({"numero":1,"ruta":"E:\\","carpeta":"E:","archivo":"a","nivel":"1","fecha":1.5,"largo":3,)",
    R"("tipo":"Archivo","disco":"U :","comentario":"\u0041\n\"\ud83d\ude00"})",
    R"("tipo":"Archivo","disco":"U :","comentario":null,"path":null})",
    "\n",
    "{",
    "}",
    "[",
    "\"",
    "\\",
    "\\u00",
    "\\ud800",
    ":",
    ",",
    "null",
    "1",
    "-",
    "1e400",
    "\xff",
    "ñ",
    R"("largo":)"};

// False when damaged.
bool readAll(std::string text, Format format, std::string& written) {
    text += '\0';  // a file of no bytes cannot be made
    std::FILE* file = fmemopen(text.data(), text.size() - 1 > 0 ? text.size() - 1 : 1, "rb");
    const auto reader = exchange::makeReader(file, format);
    written = cli::csvHeader();
    bool whole = true;
    for (;;) {
        const auto row = reader->next();
        whole = row.has_value();
        if (!row || !*row) break;
        written += cli::csvRow(**row);
    }
    std::fclose(file);
    return whole;
}

}  // namespace

int main(int argc, char** argv) {
    std::mt19937 random(1);
    long long good = 0;
    for (int i = rounds(argc, argv, 20'000); i > 0; --i) {
        const bool csv = i % 2 == 0;
        std::string text =
            csv ? cli::csvHeader() + randomText(random, csvPieces, 6) : randomText(random, jsonPieces, 9);
        if (random() % 4 == 0 && !text.empty()) text[random() % text.size()] = static_cast<char>(random());
        std::string written, again;
        if (!readAll(text, csv ? Format::Csv : Format::Json, written)) continue;
        ++good;
        if (!readAll(written, Format::Csv, again) || written != again) {
            std::printf("read again as something else:\n%s\n", text.c_str());
            return 1;
        }
    }
    return good > 0 ? 0 : 1;
}
