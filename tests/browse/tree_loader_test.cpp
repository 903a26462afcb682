#include "browse/tree_loader.h"

#include <gtest/gtest.h>

#include <random>

#include "engine/unit_copy.h"
#include "support/catalogue_fixture.h"

namespace {

constexpr auto disco = "Disc :";

// Each folder as its depth and name, in the order in which the tree gets them.
struct FoundFolders : browse::FolderSink {
    static constexpr std::size_t enough = 3000;  // a folder with a name of the base path lists everything
    std::vector<std::string> folders;
    bool yieldAndTestStop() override { return folders.size() == enough; }
    void addFolder(int nivel, std::string_view carpeta) override {
        folders.push_back(std::to_string(nivel) + ' ' + std::string(carpeta));
    }
};

// The load by statements that are no repeated look-ups: they test their path twice. False when there is
// enough.
bool loadPlainly(engine::Database& database, std::vector<std::string>& folders, FoundFolders& to) {
    const int nivel = static_cast<int>(folders.size()) + 1;
    std::string sql = browse::foldersOfLevel(disco, nivel, folders);
    if (const std::size_t path = sql.find("ruta like"), level = sql.find(" and  nivel"); nivel > 1)
        sql.insert(level, " and " + sql.substr(path, level - path));
    for (auto rows = database.OpenRecordset(sql).value(); !rows.Eof(); rows.MoveNext()) {
        if (to.yieldAndTestStop()) return false;
        const std::string carpeta(rows.Field("carpeta").text());
        to.addFolder(nivel, carpeta);
        if (nivel == 11) continue;
        folders.push_back(carpeta);
        const bool goesOn = loadPlainly(database, folders, to);
        folders.pop_back();
        if (!goesOn) return false;
    }
    return true;
}

class Disc {
  public:
    explicit Disc(unsigned seed) : m_random(seed) {
        // Some bases hold a name that folders have too.
        folder(disco,
               seed % 3 == 0   ? "E:\\ab"
               : seed % 3 == 1 ? "E:"
                               : "E:\\x\\Ñ",
               1, seed % 4 == 0 ? 13 : 4);
        folder("Other :", "E:\\ab", 1, 4);
        catalogue.add(m_rows);
    }

    test::CatalogueFixture catalogue;

  private:
    int upTo(int most) { return std::uniform_int_distribution(0, most)(m_random); }

    void folder(const std::string& unit, const std::string& path, int nivel, int depth) {
        static constexpr const char* names[] = {"ab", "AB",  "a",  "b", "ñ",  "Ñ",    "n",     "á b",
                                                "a*", "a?b", "a#", "7", "a7", "[ab]", "[ab]c", "c.d"};
        if (nivel > depth) return;
        const int folders = depth > 4 ? 1 + upTo(5) / 5 : 1 + upTo(2);
        for (int i = 0; i < folders; ++i) {
            const std::string below = path + '\\' + names[upTo(std::size(names) - 1)];
            m_rows.push_back(test::folderRow(unit, below));
            m_rows.back().nivel = std::to_string(nivel);
            folder(unit, below, nivel + 1, depth);
        }
        m_rows.push_back(test::fileRow(unit, path, "file"));
        m_rows.back().nivel = std::to_string(nivel);
    }

    std::mt19937 m_random;
    std::vector<core::CatalogRow> m_rows;
};

TEST(TreeLoad, TheWorkingCopyGivesWhatPlainScansGive) {
    std::size_t folders = 0, deepest = 0;
    for (unsigned seed = 0; seed < 20; ++seed) {
        Disc disc(seed);
        const std::string copyPath = disc.catalogue.folder / "temp.ejm";
        auto copied = engine::CopyUnit(disc.catalogue.path, copyPath, disco, [] { return true; });
        ASSERT_TRUE(copied) << copied.error().text;
        engine::Database& copy = **copied;
        const auto deleted = copy.Execute(std::string("delete * from datos where disco<>('") + disco + "') ");
        EXPECT_EQ(deleted.value_or(-1), 0);
        FoundFolders loaded;
        ASSERT_TRUE(browse::loadFolders(copy, disco, browse::FirstLevel::NoFiles, loaded));

        auto catalogue = disc.catalogue.open();
        FoundFolders plain;
        std::vector<std::string> path;
        loadPlainly(catalogue, path, plain);
        ASSERT_EQ(loaded.folders, plain.folders) << seed;
        folders += loaded.folders.size();
        for (const std::string& folder : loaded.folders) deepest = std::max(deepest, std::stoul(folder));

        FoundFolders direct;
        ASSERT_TRUE(browse::loadFolders(catalogue, disco, browse::FirstLevel::FoldersOnly, direct));
        EXPECT_EQ(direct.folders, loaded.folders) << seed;
    }
    EXPECT_GT(folders, 500u);
    EXPECT_EQ(deepest, 11u) << "the twelfth level stays out of the tree";
}

}  // namespace
