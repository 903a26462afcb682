#include "core/maintenance.h"

#include <gtest/gtest.h>

#include "core/inserts.h"
#include "core/unit_kinds.h"
#include "core/units.h"
#include "platform/jet/maintenance.h"
#include "support/temporary_folder.h"

namespace {

using core::CatalogRow;

struct Maintenance : testing::Test {
    test::TemporaryFolder folder;
    const std::string path = folder / "my.zrq";
    std::optional<jet::Database> database;

    void SetUp() override {
        ASSERT_TRUE(jet::CreateDatabase(path));
        auto opened = jet::OpenDatabase(path);
        ASSERT_TRUE(opened) << opened.error().text;
        database.emplace(std::move(*opened));
        addScanned("Fotos :", 2, 3);
        addScanned("a* :", 0, 1);  // only a label edit lets such a name through
        addScanned("abc :", 1, 1);
        CatalogRow hand{.numero = 1,
                        .ruta = "C:Pelis",
                        .carpeta = "Pelis",
                        .archivo = {},
                        .nivel = "1",
                        .fecha = 38000,
                        .largo = {},
                        .tipo = "Unidad de video",
                        .disco = "Cds :",
                        .comentario = {}};
        ASSERT_TRUE(database->Execute(core::insertFolder(hand)));
    }

    void addScanned(const std::string& disco, int folders, int files) {
        CatalogRow row{.numero = 1,
                       .ruta = "C:\\x",
                       .carpeta = "x",
                       .archivo = {},
                       .nivel = "1",
                       .fecha = 38000,
                       .largo = {},
                       .tipo = std::string(core::folderTipo),
                       .disco = disco,
                       .comentario = {}};
        for (int i = 0; i < folders; ++i) ASSERT_TRUE(database->Execute(core::insertFolder(row)));
        row.tipo = core::fileTipo;
        for (int i = 0; i < files; ++i) {
            row.archivo = "f" + std::to_string(i);
            row.largo = 100 + i;
            ASSERT_TRUE(database->Execute(core::insertFile(row)));
        }
    }

    std::vector<std::string> names() { return core::unitNames(*database).value(); }
};

TEST_F(Maintenance, UnitsAreTheRowsThatShareADisco) {
    const auto units = core::units(*database);
    ASSERT_TRUE(units) << units.error().text;
    ASSERT_EQ(units->size(), 4U);
    const core::Unit& cds = (*units)[2];
    EXPECT_EQ(cds.disco, "Cds :");
    EXPECT_EQ(cds.tipo, "Unidad de video");
    EXPECT_EQ(cds.picture, 9);
    EXPECT_EQ(cds.folders + cds.files + cds.kilobytes, 0);
    const core::Unit& fotos = (*units)[3];
    EXPECT_EQ(fotos.disco, "Fotos :");
    EXPECT_EQ(fotos.picture, 16);
    EXPECT_EQ(fotos.folders, 2);
    EXPECT_EQ(fotos.files, 3);
    EXPECT_EQ(fotos.kilobytes, 303);

    const auto counters = core::countAll(*database);
    ASSERT_TRUE(counters) << counters.error().text;
    EXPECT_EQ(statusText(*counters, core::Language::Spanish), "  Unidades: 4  Carpetas: 3  Archivos: 5");
    EXPECT_EQ(statusText(*counters, core::Language::English), "  Units: 4  Folders: 3  Files: 5");
}

TEST_F(Maintenance, AUnitsNameIsNoPatternWhenItIsDeleted) {
    ASSERT_TRUE(core::deleteUnit(*database, "a* :"));
    EXPECT_EQ(names(), (std::vector<std::string>{"abc :", "Cds :", "Fotos :"}));
    ASSERT_TRUE(core::deleteUnit(*database, "FOTOS :"));
    EXPECT_EQ(names(), (std::vector<std::string>{"abc :", "Cds :"}));
    EXPECT_FALSE(core::deleteUnit(*database, "x') or ('a'='a"));
    EXPECT_EQ(names().size(), 2U);
    ASSERT_TRUE(core::deleteAll(*database));
    EXPECT_TRUE(names().empty());
    EXPECT_EQ(core::countAll(*database)->contadorunidades, 0);
}

TEST_F(Maintenance, RenamingAddsTheEndingAndTouchesNothingElse) {
    EXPECT_EQ(core::renameUnit(*database, "Fotos :", "Viajes :"), "Viajes : :");
    EXPECT_EQ(core::renameUnit(*database, "Viajes : :", "Año 2003"), "Año 2003 :");
    EXPECT_EQ(core::unitTipo(*database, "Año 2003 :"), "Carpeta de archivos");
    auto rows = database->OpenRecordset("select * from datos where disco=('Año 2003 :') order by numero");
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->RecordCount(), 5);
    EXPECT_EQ(core::readRow(*rows).ruta, "C:\\x");

    for (const char* hostile : {"Ana's", "x', ruta='y"}) {
        const auto refused = core::renameUnit(*database, "abc :", hostile);
        ASSERT_FALSE(refused);
        EXPECT_EQ(refused.error().number, jet::error::syntaxInExpression);
    }
    EXPECT_EQ(names(), (std::vector<std::string>{"a* :", "abc :", "Año 2003 :", "Cds :"}));
}

TEST(NameTaken, LooksForTwoSpellingsOnly) {
    const std::string list = R"( \\ FOTOS : \\  \\ años : \\  \\ Viajes : \\ )";
    for (const char* taken : {"fotos", "FOTOS", "FoToS", "AÑOS"})
        EXPECT_TRUE(core::nameTaken(list, taken)) << taken;
    for (const char* passes : {"Viajes", "viajes", "oto", "FOTOS :", ""})
        EXPECT_FALSE(core::nameTaken(list, passes)) << passes;
}

}  // namespace
