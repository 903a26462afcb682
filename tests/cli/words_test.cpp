// The words that come in and go out.

#include "cli/arguments.h"

#include <gtest/gtest.h>

#include "cli/output.h"

namespace {

using Words = std::vector<const char*>;

std::expected<cli::Arguments, cli::UsageError> parsed(const Words& words) {
    return cli::parse(words);
}

TEST(Arguments, OperandsAreBytesAndMayLookLikeOptions) {
    const auto arguments = parsed({"add", "-c", "\xff\xfe", "--", "--json"});
    ASSERT_TRUE(arguments);
    EXPECT_EQ(arguments->operands, (std::vector<std::string>{"-c", "\xff\xfe", "--json"}));
    EXPECT_FALSE(arguments->json);
    EXPECT_TRUE(parsed({"list", "a", "b", "-0"})->has("-0"));
    EXPECT_EQ(parsed({"list", "a", "b", "--", "-0"})->operands.back(), "-0");
    EXPECT_EQ(parsed({"rename", "a", "b", "-0"})->operands.back(), "-0");
}

TEST(Arguments, RefusesWhatItDoesNotKnow) {
    for (const Words& words : {Words{}, Words{"nothing"}, Words{"units"}, Words{"units", "a", "b"},
                               Words{"units", "a", "--kind", "b"}, Words{"--kind", "b", "units", "a"},
                               Words{"units", "a", "--json=yes"}, Words{"units", "a", "--lang"},
                               Words{"units", "a", "--lang", "fr"}, Words{"add", "a", "b", "c", "--kind"}})
        EXPECT_FALSE(parsed(words)) << (words.empty() ? "" : words.back());
    EXPECT_EQ(parsed({"units", "a", "--kind=b"}).error().subject, "--kind");
    EXPECT_TRUE(parsed({"units", "--help"}));  // no operands needed
    EXPECT_TRUE(parsed({"-h"}));
    EXPECT_EQ(parsed({"--lang", "es", "units", "a"})->language, core::Language::Spanish);
    EXPECT_EQ(parsed({"nothing", "--lang", "es"}).error().language, core::Language::Spanish);
}

core::CatalogRow folderRow() {
    core::CatalogRow row;
    row.numero = 7;
    row.ruta = R"(E:\a, "b")";
    row.carpeta = "a\nb";
    row.nivel = "1";
    row.fecha = 37884.5;
    row.tipo = "Carpeta de archivos";
    row.disco = "Cds :";
    return row;
}

// Names that would colour the screen, forge a line, turn the reading direction, or are no UTF-8.
constexpr const char* hostile = "a\x1b[31m\n\t\x7f\xc2\x9b\xe2\x80\xae\xe2\x81\xa7\x9b\xff";

TEST(Output, ShowsNoControlCharacter) {
    EXPECT_EQ(cli::shown(hostile), R"(a\x1b[31m\n\t\x7f\u{009b}\u{202e}\u{2067}\x9b\xff)");
    EXPECT_EQ(cli::shown("año\\e´\xf0\x9f\x98\x80 \xef\x83\xbf"), "año\\e´\xf0\x9f\x98\x80 \xef\x83\xbf");
    EXPECT_EQ(cli::shownNote("a\r\nb\n\nc\rd\n"), "a\nb\n\nc\\x0dd\n");
}

TEST(Output, WritesARowAsJson) {
    const auto drives = platform::Drives::parse("E=/media/disc");
    core::CatalogRow row = folderRow();
    row.archivo = "ñ\x01\t\xc2\x9b\xe2\x80\xae\x7f";
    row.comentario = "bad \xff end";
    EXPECT_EQ(cli::jsonRow(row, drives),
              R"({"numero":7,"ruta":"E:\\a, \"b\"","carpeta":"a\nb","archivo":"ñ\u0001\t\u009b\u202e\u007f",)"
              R"("nivel":"1","fecha":37884.5,"largo":null,"tipo":"Carpeta de archivos","disco":"Cds :",)"
              "\"comentario\":\"bad \uFFFD end\","
              R"("path":"/media/disc/a, \"b\"/ñ\u0001\t\u009b\u202e\u007f","modified":"2003-09-20T12:00:00"})"
              "\n");
    row.fecha = 1e9;
    EXPECT_TRUE(cli::jsonRow(row, {}).ends_with("\"path\":null,\"modified\":null}\n"));
}

}  // namespace
