#include "copyback/copy_action.h"

#include "support/file_size_limit.h"
#include "support/hostile_names.h"
#include "support/main_window.h"

namespace {

using core::Language;
using test::Names;

using CopyAction = test::BilingualWindow;

TEST_P(CopyAction, CopiesTheSelectedFilesOfTheShownList) {
    discs.write("dvd", "it's.txt", "bytes");
    start(GetParam());
    newCatalogue();
    import("Docs", discs.disc("dvd"));
    click("Docs :");
    clickRow(surface().lists.listView1, 0);

    const std::string target = discs.disc("tárget");
    dialogs.answers = {QString::fromStdString(target)};
    dialogs.onChoose = [] { EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr); };
    choose("Copiararchivos");
    EXPECT_EQ(dialogs.titles.back().toStdString(),
              in("Seleccione los archivos a copiar.", "Select the files to copy."));
    EXPECT_EQ(test::readFile(target + "/it's.txt"), "bytes");
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].style, frame::MessageStyle::Information);
    EXPECT_EQ(QApplication::focusWidget(), &tree());

    // With the search list over it, the selection of the browse list does not count.
    choose("buscar");
    std::filesystem::remove(target + "/it's.txt");
    dialogs.answers = {QString::fromStdString(target)};
    choose("Copiararchivos");
    EXPECT_FALSE(std::filesystem::exists(target + "/it's.txt"));
    EXPECT_EQ(messages.shown.size(), 2u);
}

// What an earlier search has left selected lies at the same places.
TEST_P(CopyAction, AMediumInAnotherDriveDoesNotEndTheRun) {
    for (const char* name : {"a.txt", "b.txt"}) discs.write("dvd", name, name);
    start(GetParam());
    newCatalogue();
    import("Docs", discs.disc("dvd"));
    click("Docs :");
    qputenv("ZARQUELIN_DRIVES", ("G=" + discs.disc("dvd") + ",removable").c_str());
    const std::string target = discs.disc("target");
    const auto copyAll = [&] {
        clickRow(surface().lists.listView1, 0);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
        dialogs.answers = {QString::fromStdString(target)};
        choose("Copiararchivos");
    };
    const std::string unfinished =
        in("  Copia sin terminar. Archivos copiados: ", "  Copying not finished. Files copied: ");
    copyAll();
    EXPECT_EQ(status(), unfinished + "1") << "nothing lies at the same place";

    choose("buscar");
    search("txt");
    choose("explorar");
    {
        const test::FileSizeLimit limit(1);
        copyAll();
        EXPECT_EQ(status(), unfinished + in("0. El disco está lleno.", "0. The disk is full."));
    }
    EXPECT_TRUE(messages.shown.empty());
    copyAll();
    EXPECT_EQ(test::readFile(target + "/a.txt") + test::readFile(target + "/b.txt"), "a.txtb.txt");
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text.toStdString(),
              in("El copiado de archivos a finalizado exitosamente.", "The copy has finished successfully."));
}

TEST_P(CopyAction, OddNamesAreFoundInAnotherDriveAndCopiedByteForByte) {
    Names expected = test::hostileNames(), copied;
    for (const std::string& name : expected) discs.write("dvd", "it's odd/" + name, "bytes of " + name);
    start(GetParam());
    newCatalogue();
    import("Odd", discs.disc("dvd/it's odd"));
    qputenv("ZARQUELIN_DRIVES", ("K=" + discs.disc("dvd") + ",removable").c_str());
    choose("buscar");
    search("*");
    clickRow(surface().lists.listView2, 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
    const std::string target = discs.disc("target");
    dialogs.answers = {QString::fromStdString(target)};
    choose("Copiararchivos");
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].style, frame::MessageStyle::Information);
    for (const auto& file : std::filesystem::directory_iterator(target)) {
        copied.push_back(file.path().filename());
        EXPECT_EQ(test::readFile(file.path()), "bytes of " + copied.back());
    }
    std::ranges::sort(copied);
    EXPECT_EQ(copied, expected);
}

INSTANTIATE_TEST_SUITE_P(, CopyAction, testing::Values(Language::Spanish, Language::English));

}  // namespace
