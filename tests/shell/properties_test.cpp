#include "shell/properties_data.h"

#include <gtest/gtest.h>

#include "core/inserts.h"
#include "core/unit_kinds.h"
#include "platform/jet/maintenance.h"
#include "support/temporary_folder.h"

namespace {

using core::Language;
using shell::Properties;
using shell::PropertiesRequest;

struct PropertiesOf : testing::Test {
    PropertiesOf() {
        const std::string path = folder / "c.zrq";
        EXPECT_TRUE(jet::CreateDatabase(path));
        database.emplace(*jet::OpenDatabase(path));
        addFolder("E:\\a", "1", "Cds :");
        addFolder("E:\\a\\b", "2", "Cds :");
        addFile("E:\\a", "2", 1, "Cds :");  // too small to count in the unit's size
        addFile("E:\\a\\b", "3", 1001, "Cds :");
        addFile("E:\\a\\b", "3", 999, "Other :");
    }
    void addFolder(const std::string& ruta, const std::string& nivel, const std::string& disco) {
        EXPECT_TRUE(database->Execute(core::insertFolder({.numero = ++numero,
                                                          .ruta = ruta,
                                                          .carpeta = ruta.substr(ruta.rfind('\\') + 1),
                                                          .archivo = {},
                                                          .nivel = nivel,
                                                          .fecha = 38000,
                                                          .largo = {},
                                                          .tipo = std::string(core::folderTipo),
                                                          .disco = disco,
                                                          .comentario = {}})));
    }
    void addFile(const std::string& ruta, const std::string& nivel, int largo, const std::string& disco) {
        EXPECT_TRUE(database->Execute(core::insertFile({.numero = ++numero,
                                                        .ruta = ruta,
                                                        .carpeta = "x",
                                                        .archivo = "f.txt",
                                                        .nivel = nivel,
                                                        .fecha = 38000,
                                                        .largo = largo,
                                                        .tipo = std::string(core::fileTipo),
                                                        .disco = disco,
                                                        .comentario = {}})));
    }

    test::TemporaryFolder folder;
    std::optional<jet::Database> database;
    int numero = 0;
};

TEST_F(PropertiesOf, AUnitCountsItsOwnRows) {
    PropertiesRequest request{
        .node = "Cds :", .isUnit = true, .picture = 16, .firstListType = "Carpeta de archivos"};
    EXPECT_EQ(propertiesOf(request, *database, Language::Spanish),
              (Properties{"", "Cds :", "1 MB", "2 archivos y 2 carpetas.", 16}));
    request.firstListType = "Audio unit";
    EXPECT_EQ(propertiesOf(request, *database, Language::English),
              (Properties{"Audio unit", "Cds :", "1 MB", "2 files and 2 folders.", 16}));
}

TEST_F(PropertiesOf, AFolderCountsWhatLiesDeeper) {
    const PropertiesRequest request{.node = "a",
                                    .isUnit = false,
                                    .discoactual = "Cds :",
                                    .rutaactual = "\\a",
                                    .nivelactual = 2,
                                    .picture = 2,
                                    .firstListType = "Audio unit"};
    EXPECT_EQ(propertiesOf(request, *database, Language::English),
              (Properties{"Files folder", "a", "1 MB", "1 files and 0 folders.", 2}));
}

TEST_F(PropertiesOf, AClosedCatalogueShowsNothingWrong) {
    database->Close();
    const PropertiesRequest request{.node = "Cds :", .isUnit = true};
    EXPECT_EQ(propertiesOf(request, *database, Language::English).contents, "0 files and 0 folders.");
}

}  // namespace
