#include "browse/tree_loader.h"

#include <gtest/gtest.h>

#include <QString>
#include <random>

#include "engine/unit_copy.h"
#include "support/catalogue_fixture.h"

namespace {

constexpr auto disco = "Disc :";

// Each folder as its depth and name, in the order in which the tree gets them.
struct Collected : browse::FolderSink {
    static constexpr std::size_t enough = 3000;  // a folder with a name of the base path lists everything
    std::vector<std::string> folders;
    bool yieldAndTestStop() override { return folders.size() == enough; }
    void addFolder(int nivel, std::string_view carpeta) override {
        folders.push_back(std::to_string(nivel) + ' ' + std::string(carpeta));
    }
};

// `like` for a path by its definition, as a pattern or with the star as the only wildcard; both texts in
// lower case.
bool matches(QStringView text, QStringView pattern, bool starsOnly) {
    if (pattern.isEmpty()) return text.isEmpty();
    const QStringView rest = pattern.mid(1);
    if (pattern[0] == u'*')
        return matches(text, rest, starsOnly) ||
               (!text.isEmpty() && matches(text.mid(1), pattern, starsOnly));
    if (text.isEmpty()) return false;
    if (starsOnly) return pattern[0] == text[0] && matches(text.mid(1), rest, true);
    if (pattern[0] == u'[') {
        const auto close = pattern.indexOf(u']');
        return pattern.mid(1, close - 1).contains(text[0]) &&
               matches(text.mid(1), pattern.mid(close + 1), false);
    }
    const bool one = pattern[0] == u'#' ? text[0].isDigit() : pattern[0] == u'?' || pattern[0] == text[0];
    return one && matches(text.mid(1), rest, false);
}

// The load by its definition: every folder's statement looks at every row.
struct PlainLoad {
    explicit PlainLoad(engine::Database& database) {
        auto all = database.OpenRecordset("select * from datos order by carpeta ").value();
        for (; !all.Eof(); all.MoveNext()) rows.push_back(core::readRow(all));
    }

    bool level(int nivel, const std::string& path) {  // false when there is enough
        for (const core::CatalogRow& row : rows) {
            if (row.disco != disco || row.nivel != std::to_string(nivel) || row.tipo == core::fileTipo)
                continue;
            const QString pattern = QString::fromStdString("*\\" + path + "*").toLower();
            const QString ruta = QString::fromStdString(row.ruta).toLower();
            if (nivel > 1 && !matches(ruta, pattern, false) && !matches(ruta, pattern, true)) continue;
            if (to.yieldAndTestStop()) return false;
            to.addFolder(nivel, row.carpeta);
            if (nivel < 11 && !level(nivel + 1, path + row.carpeta + '\\')) return false;
        }
        return true;
    }

    std::vector<core::CatalogRow> rows;
    Collected to;
};

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
        Collected loaded;
        ASSERT_TRUE(browse::loadFolders(copy, disco, browse::FirstLevel::NoFiles, loaded));

        auto catalogue = disc.catalogue.open();
        PlainLoad plain(catalogue);
        plain.level(1, "");
        ASSERT_EQ(loaded.folders, plain.to.folders) << seed;
        folders += loaded.folders.size();
        for (const std::string& folder : loaded.folders) deepest = std::max(deepest, std::stoul(folder));

        Collected direct;
        ASSERT_TRUE(browse::loadFolders(catalogue, disco, browse::FirstLevel::FoldersOnly, direct));
        EXPECT_EQ(direct.folders, loaded.folders) << seed;
    }
    EXPECT_GT(folders, 500u);
    EXPECT_EQ(deepest, 11u) << "the twelfth level stays out of the tree";
}

}  // namespace
