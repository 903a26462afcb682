#include "mount/tree.h"

#include <gtest/gtest.h>

#include <QUtf8StringView>
#include <filesystem>
#include <limits>
#include <map>

#include "core/serial_date.h"
#include "core/text.h"
#include "mount/shown_name.h"
#include "support/catalogue_fixture.h"

namespace {

using mount::Child;
using mount::Kind;
using Names = std::vector<std::string>;

class TheTree : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(tree.refresh()); }

    void add(std::vector<core::CatalogRow> rows) {
        catalogue.add(std::move(rows));
        ASSERT_TRUE(tree.refresh());
    }

    // Each step is looked up as the kernel does it. Nothing when there is no such file or folder.
    std::optional<Child> at(const Names& path) {
        std::optional<Child> child;
        mount::NodeId folder = mount::rootId;
        for (const std::string& name : path) {
            child = tree.find(folder, name).value();
            if (!child) return child;
            tree.known().remember(child->id, folder);
            folder = child->id;
        }
        return child;
    }
    Names list(const Names& path) {
        const auto folder = path.empty() ? std::nullopt : at(path);
        return namesIn(folder ? folder->id : mount::rootId);
    }
    Names namesIn(mount::NodeId id) {
        const auto directory = tree.directory(id).value();
        Names names;
        for (std::size_t i = 0; directory && i < directory->size(); ++i)
            names.push_back(directory->child(i).value().shown);
        return names;
    }

    test::CatalogueFixture catalogue;
    mount::Tree tree{catalogue.path};
};

TEST_F(TheTree, HasAFolderForEachUnitAndWhatWasCataloguedInIt) {
    auto note = test::fileRow("Fotos :", "E:\\viejas", "a.jpg", 3);
    note.comentario = "la abuela";
    add({test::folderRow("Fotos :", "E:\\viejas"), test::folderRow("Fotos :", "E:\\viejas\\1999"),
         test::fileRow("Fotos :", "E:\\viejas\\1999", "b.jpg"), note,
         test::fileRow("Fotos :", "E:\\", "raíz.txt", 7),
         test::unitRow("Cine :", "Casablanca", "Unidad de video")});

    EXPECT_EQ(list({}), (Names{"Cine", "Fotos"}));
    EXPECT_EQ(list({"Fotos"}), (Names{"viejas", "raíz.txt"}));
    EXPECT_EQ(list({"Fotos", "viejas"}), (Names{"1999", "a.jpg"}));
    EXPECT_EQ(list({"Fotos", "viejas", "1999"}), Names{"b.jpg"});
    EXPECT_EQ(list({"Cine"}), Names{"Casablanca"});

    const auto photo = at({"Fotos", "viejas", "a.jpg"});
    EXPECT_EQ(photo->row.kind, Kind::File);
    const auto file = tree.fileOf(photo->id).value();
    EXPECT_EQ(file->ruta + "|" + file->name, "E:\\viejas|a.jpg");
    EXPECT_EQ(tree.fileOf(at({"Fotos", "raíz.txt"})->id).value()->ruta, "E:\\");

    EXPECT_EQ(at({"Cine", "Casablanca"})->row.kind, Kind::Content);
    EXPECT_FALSE(tree.fileOf(at({"Cine", "Casablanca"})->id).value());
    EXPECT_FALSE(at({"Fotos", "1999"}));
    EXPECT_FALSE(at({"Fotos", "viejas", "a.jpg", "x"}));
    EXPECT_EQ(tree.totals().value().items, 6 - 1);
    EXPECT_EQ(tree.totals().value().kilobytes, 3 + 1 + 7);
}

TEST_F(TheTree, GoesTwelveLevelsDeep) {
    std::vector<core::CatalogRow> rows;
    std::string ruta = "E:";
    Names path{"Hondo"};
    for (int level = 1; level <= 12; ++level) {
        rows.push_back(test::folderRow("Hondo :", ruta += "\\f" + std::to_string(level)));
        path.push_back("f" + std::to_string(level));
        if (level < 12) rows.push_back(test::fileRow("Hondo :", ruta, "x"));
    }
    add(rows);
    EXPECT_EQ(at(path)->row.kind, Kind::Folder);
    EXPECT_EQ(list(path), Names{});
    path.pop_back();
    EXPECT_EQ(list(path), (Names{"f12", "x"}));
}

TEST_F(TheTree, KeepsNamesApartThatDifferAndShowsEqualOnesOnce) {
    add({test::folderRow("Disco :", "E:\\Sub"), test::folderRow("Disco :", "E:\\sub"),
         test::fileRow("Disco :", "E:\\Sub", "in upper"), test::fileRow("Disco :", "E:\\sub", "in lower"),
         test::fileRow("Disco :", "E:\\", "twin", 1), test::fileRow("Disco :", "E:\\", "twin", 2),
         test::fileRow("Disco :", "E:\\", "Twin", 3), test::fileRow("Disco :", "E:\\", "Sub"),
         test::fileRow("DISCO :", "F:\\", "another")});
    EXPECT_EQ(list({}), (Names{"DISCO", "Disco"}));
    EXPECT_EQ(list({"DISCO"}), Names{"another"});
    EXPECT_EQ(list({"Disco"}), (Names{"Sub", "sub", "twin", "Twin"}));
    EXPECT_EQ(at({"Disco", "twin"})->row.kilobytes, 1);
    EXPECT_EQ(at({"Disco", "Sub"})->row.kind, Kind::Folder);
    EXPECT_EQ(list({"Disco", "Sub"}), Names{"in upper"});
    EXPECT_EQ(list({"Disco", "sub"}), Names{"in lower"});
}

TEST_F(TheTree, GivesEveryNameBackAsAFileName) {
    const std::string quote = "O'Hara :", longest = 'x' + core::replaceAll(std::string(150, 'n'), "n", "ñ");
    {
        auto database = catalogue.open();  // as no field lets them be typed
        for (const std::string& disco :
             {std::string("a/b :"), std::string("a∕b :"), std::string("a∕b"), quote, std::string(" :"),
              std::string(".. :"), longest + "1 :", longest + "2 :"})
            ASSERT_TRUE(
                database.Execute("insert into datos (ruta, archivo, nivel, tipo, disco) values ('E:\\','" +
                                 core::replaceAll(disco, "'", "''") + "','1','Archivo','" +
                                 core::replaceAll(disco, "'", "''") + "')"));
    }
    ASSERT_TRUE(tree.refresh());
    const Names units = list({});
    EXPECT_EQ(units.size(), 8U);
    std::map<std::string, std::string> found;  // by the only file in the unit's folder
    for (const std::string& unit : units) {
        EXPECT_TRUE(!unit.empty() && unit.size() <= 255 && unit != "." && unit != "..") << unit;
        EXPECT_EQ(unit.find('/'), unit.npos) << unit;
        EXPECT_TRUE(QUtf8StringView(unit).isValidUtf8()) << unit;
        const Names files = list({unit});
        ASSERT_EQ(files.size(), 1U) << unit;
        found[at({unit, files[0]})->row.name] = unit;
    }
    EXPECT_EQ(found.size(), 8U);
    EXPECT_EQ(found["a∕b :"], "a∕b");  // the one whose own name it is
    EXPECT_EQ(found[quote], "O'Hara");
    EXPECT_EQ(mount::shownName("a\uF0FF\uF05C").bytes, "a\xff\\");
}

TEST_F(TheTree, FindsARowByTheApostropheThatItLost) {
    add({test::folderRow("U :", "E:\\it´s"), test::fileRow("U :", "E:\\it´s", "don´t")});
    EXPECT_EQ(at({"U", "it's", "don't"})->id, at({"U", "it´s", "don´t"})->id);
    EXPECT_FALSE(at({"U", "it`s"}));
}

TEST_F(TheTree, ShowsAChangeAndKeepsTheNumbersOfWhatStays) {
    add({test::folderRow("U :", "E:\\a"), test::fileRow("U :", "E:\\a", "x"),
         test::fileRow("V :", "E:\\", "v")});
    const auto file = at({"U", "a", "x"});
    const auto folder = at({"U", "a"});
    const auto listing = tree.directory(folder->id).value();

    add({test::fileRow("U :", "E:\\a", "y")});
    EXPECT_EQ(namesIn(folder->id), (Names{"x", "y"}));
    EXPECT_EQ(tree.node(file->id).value()->shown, "x");
    ASSERT_TRUE(catalogue.open().Execute("delete * from datos where disco like('U :')"));
    ASSERT_TRUE(tree.refresh());
    EXPECT_FALSE(tree.node(file->id).value());
    EXPECT_FALSE(tree.directory(folder->id).value());
    EXPECT_EQ(list({}), Names{"V"});
    EXPECT_EQ(listing->child(0).value().shown, "x");  // a listing under way ends as it began

    const test::CatalogueFixture other;
    other.add(test::fileRow("W :", "E:\\", "w"));
    std::filesystem::rename(other.path, catalogue.path);
    ASSERT_TRUE(tree.refresh());
    EXPECT_EQ(list({}), Names{"W"});
}

TEST_F(TheTree, ReadsAnewWhatChangedWhileItWasRead) {
    add({test::folderRow("U :", "E:\\a"), test::folderRow("U :", "E:\\a\\b"),
         test::fileRow("U :", "E:\\a", "x")});
    ASSERT_TRUE(at({"U", "a", "b"}));  // the folders are known, the files not yet
    ASSERT_TRUE(catalogue.open().Execute("delete * from datos where carpeta=('b')"));
    EXPECT_EQ(list({"U", "a"}), Names{"x"});
}

TEST_F(TheTree, FailsInsteadOfListingLess) {
    add({test::folderRow("U :", "E:\\a"), test::fileRow("U :", "E:\\a", "x")});
    const auto folder = at({"U", "a"});
    const std::string away = catalogue.folder / "away";
    std::filesystem::rename(catalogue.path, away);
    EXPECT_FALSE(tree.refresh());
    EXPECT_FALSE(tree.directory(folder->id));
    EXPECT_FALSE(tree.find(mount::rootId, "U"));
    EXPECT_FALSE(tree.totals());
    std::filesystem::rename(away, catalogue.path);
    ASSERT_TRUE(tree.refresh());
    EXPECT_EQ(namesIn(folder->id), Names{"x"});

    // A change under way is neither shown nor does it make anything fail.
    auto writer = catalogue.open();
    ASSERT_TRUE(writer.BeginTrans());
    ASSERT_TRUE(writer.Execute("delete * from datos"));
    EXPECT_TRUE(tree.refresh());
    EXPECT_EQ(namesIn(folder->id), Names{"x"});
    writer.Rollback();
}

TEST_F(TheTree, ReadsEachLevelOfAUnitOnce) {
    std::vector<core::CatalogRow> rows;
    for (int i = 0; i < 300; ++i) {
        const std::string folder = "E:\\f" + std::to_string(i);
        rows.push_back(test::folderRow("U :", folder));
        rows.push_back(test::fileRow("U :", folder, "x"));
    }
    // Rows out of the order of a scan are found as well.
    for (int i = 0; i < 300; ++i) rows.push_back(test::fileRow("U :", "E:\\f" + std::to_string(i), "y"));
    add(rows);
    auto database = catalogue.open();
    mount::LevelRows levels(database, mount::RowSpool::create().value());
    for (int i = 0; i < 300; ++i) {
        const auto runs = levels.rowsIn({"U :", "E:\\f" + std::to_string(i), 2}, mount::Rows::Files).value();
        std::size_t found = 0;
        for (const auto& run : runs) found += run.rows;
        ASSERT_EQ(found, 2U);
    }
    EXPECT_EQ(levels.statements(), 1U);
}

TEST(TimeOfSerial, IsTheWayBackOfTheCataloguesDates) {
    for (const std::int64_t time : {0LL, 951'782'399LL, 1'066'537'800LL, 1'711'846'800LL, -86'400LL * 365})
        EXPECT_EQ(core::timeOfSerial(core::serialOfTime(time)), time);
    for (const double odd : {1e300, -1e300, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(core::timeOfSerial(odd), 0);
}

}  // namespace
