#include "scan/import_panel.h"

#include <QClipboard>

#include "scan/walk_display.h"
#include "support/catalogue_fixture.h"
#include "support/fitting.h"
#include "support/main_window.h"

namespace {

using core::Language;
using frame::Toolbar;
using test::Names;

class Importing : public test::BilingualWindow {
  protected:
    void SetUp() override {
        for (const char* name : {"a/1/f", "b/2/g", "c/h"}) discs.write("dvd", name, "x");
        start(GetParam());
        path = newCatalogue();
        choose("explore");
    }
    QLineEdit& field(const char* name) { return control<QLineEdit>(name); }
    void chooseFolder(const std::string& folder) {
        dialogs.answers.push_back(QString::fromStdString(folder));
        QTest::keyClick(&field("Text4"), Qt::Key_Return);
    }
    void clickTab(int tab) {
        auto& strip = control<QTabBar>("TabStrip2");
        QTest::mouseClick(&strip, Qt::LeftButton, {}, strip.tabRect(tab).center());
    }
    [[nodiscard]] std::string lastMessage() const { return messages.shown.back().text.toStdString(); }

    std::string path;
    const std::string disc = discs.disc("dvd");
};

TEST_P(Importing, ScansTheChosenFolderOnEnter) {
    EXPECT_EQ(focused(), "Text4");
    chooseFolder(disc);
    EXPECT_EQ(dialogs.titles.back().toStdString(),
              in("Seleccione el directorio a catalogar.", "Select the directory to catalog."));
    EXPECT_EQ(field("Text4").text().toStdString(), disc);
    EXPECT_EQ(focused(), "Text3");
    QTest::keyClicks(&field("Text3"), QString::fromUtf8("F'o\\t:o*sÑ"));
    EXPECT_EQ(field("Text3").text(), QString::fromUtf8("FotosÑ"));
    enterName("");
    EXPECT_EQ(rowCount(path, "disco=('FotosÑ :')"), 8);
    EXPECT_TRUE(field("Text3").text().isEmpty() && field("Text4").text().isEmpty());
    EXPECT_EQ(QApplication::focusWidget(), &tree());
}

TEST_P(Importing, RefusalsCostTheTypedName) {
    for (const char* folder : {"", "in no drive"}) {
        if (*folder) chooseFolder(discs.disc(folder));
        enterName("abc");
        EXPECT_TRUE(field("Text3").text().isEmpty());
        EXPECT_EQ(lastMessage(),
                  in("Seleccione el directorio a catalogar.", "Select the directory to catalog."));
        choose("explore");
    }
    for (int i = 0; i < 2; ++i) {  // the second time the name is taken
        choose("explore");
        chooseFolder(disc);
        enterName("abc");
    }
    EXPECT_EQ(lastMessage(),
              in("Seleccione otro nombre para la unidad.", "Select another name for the unit."));
    EXPECT_EQ(messages.shown.back().title, "Nompre existente");
    EXPECT_TRUE(field("Text4").text().isEmpty());
    EXPECT_EQ(rowCount(path), 8);
}

TEST_P(Importing, ANameThatAnotherProgramTakesMeanwhileIsRefusedToo) {
    struct : QObject {
        std::function<void()> act;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Show) act();
            return false;
        }
    } other;
    other.act = [this] { test::addRows(path, {test::folderRow("Abc :", "E:\\x")}); };
    control("ProgressBar1").installEventFilter(&other);  // shown when the walk has begun
    chooseFolder(disc);
    enterName("abc");
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown.back().title, "Nompre existente");
    EXPECT_EQ(rowCount(path), 1);
    EXPECT_TRUE(tree().nodes().firstChild(browse::noNode) == browse::noNode);
}

// An event that comes while a commit waits for another program must not wait for it too.
TEST_P(Importing, TheWindowIsPaintedWhileAWalkWaits) {
    struct Rows : scan::RowSink {
        std::function<void()> waiting;
        int commits = 0;
        void add(const core::CatalogRow&) override {}
        void commit() override {
            if (++commits == 1) waiting();
        }
    } rows;
    const bool stop = false;
    scan::WalkDisplay display(frame(), stop);
    bool isShown = false;
    rows.waiting = [&] {
        whenItYields([&] { isShown = true; });
        display.paint();
        EXPECT_TRUE(isShown);
        EXPECT_EQ(rows.commits, 1);
    };
    whenItYields([] {});
    EXPECT_FALSE(display.yield(rows));
    EXPECT_GE(rows.commits, 1);
}

TEST_P(Importing, AUnitMadeByHandIsBrowsedAtOnce) {
    clickTab(1);
    EXPECT_EQ(focused(), "ImageCombo4");
    EXPECT_EQ(control<controls::ImageCombo>("ImageCombo4").selectedItem(), 1);
    EXPECT_FALSE(control("Picture13(0)").isVisible());
    control<controls::ImageCombo>("ImageCombo4").setSelected(3);
    field("Text11").setFocus();
    QTest::keyClick(&field("Text11"), Qt::Key_Return);
    EXPECT_EQ(focused(), "Text11") << "nothing typed yet";
    QTest::keyClicks(&field("Text11"), "Pelis");
    QTest::keyClick(&field("Text11"), Qt::Key_Return);
    EXPECT_EQ(focused(), "Text3");
    enterName("");
    EXPECT_EQ(lastMessage(), in("Introduzca un nombre para la unidad.", "Write a name for the unit."));
    enterName("Cds");
    EXPECT_EQ(messages.shown.size(), 1u);
    EXPECT_TRUE(field("Text3").text().isEmpty() && field("Text11").text().isEmpty());
    EXPECT_EQ(pressed(), (std::vector<int>{Toolbar::Explore}));

    click("Cds :");
    EXPECT_EQ(listed(), (Names{"Pelis"}));
    EXPECT_EQ(kind(), in("Unidad de video", "Video unit"));
    EXPECT_EQ(frame().status.picture(), 9);
    EXPECT_EQ(status() + size(), in("  Unidad: Cds :  Carpetas: 1  Archivos: 0Tamaño: 0 KB",
                                    "  Unit: Cds :  Folders: 1  Files: 0Size: 0 KB"));
    EXPECT_EQ(tree().nodes().childCount(node("Cds :")), 1) << "its row stands in the tree like a folder";
    EXPECT_FALSE(std::filesystem::exists(folder / "temp.ejm"));

    openImportPanel(1);
    field("Text11").setText("Otra");
    enterName("cds");
    EXPECT_EQ(messages.shown.back().title, "Zarquelin");
    EXPECT_EQ(field("Text11").text(), "Otra") << "a refusal by hand keeps the content";
    path = newCatalogue("other.zrq");
    addByHand("Cds", "");
    EXPECT_EQ(rowCount(path, "tipo=('Unidad de archivos varios')"), 1) << "the kind that is shown";
}

TEST_P(Importing, AsksAgainForADriveWithoutItsMedium) {
    messages.onShow = [this](const auto&) { EXPECT_TRUE(field("Text4").text().isEmpty()); };
    dialogs.answers = {QString::fromStdString(disc + "/missing"), QString::fromStdString(disc)};
    auto& button = control<QAbstractButton>("Label19");
    QTest::mouseClick(&button, Qt::LeftButton);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(lastMessage(), in("La unidad se encuentra vacia.", "The unit is empty."));
    QTest::mouseClick(&button, Qt::LeftButton);  // cancelled: stays as it was
    EXPECT_EQ(field("Text4").text().toStdString(), disc);
}

TEST_P(Importing, TheNameSendsTheFocusOnButAClickStillCounts) {
    field("Text3").setFocus();
    QTest::keyClick(&field("Text3"), Qt::Key_Tab);
    QCoreApplication::processEvents();
    EXPECT_EQ(focused(), "Text4");
    QTest::keyClick(&field("Text4"), Qt::Key_A);
    EXPECT_TRUE(field("Text4").text().isEmpty());
    clickTab(1);
    field("Text3").setFocus();
    field("Text11").setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(focused(), "ImageCombo4");
    field("Text3").setFocus();
    QTest::mouseClick(&control<QAbstractButton>("Label20"), Qt::LeftButton);
    EXPECT_EQ(messages.shown.size(), 1u);
}

TEST_P(Importing, PastedTextIsHeldToTheSameKeys) {
    const auto paste = [this](const char* name, const char* text) {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
        field(name).setFocus();
        QTest::keyClick(&field(name), Qt::Key_V, Qt::ControlModifier);
    };
    paste("Text3", "C:\\a'b*ñ :");
    EXPECT_EQ(field("Text3").text(), QString::fromUtf8("Cabñ :")) << "as a stopped scan leaves it";
    QTest::keyClick(&field("Text3"), Qt::Key_Home);
    paste("Text3", "x:/y?");
    QTest::keyClick(&field("Text3"), Qt::Key_Z);
    EXPECT_EQ(field("Text3").text(), QString::fromUtf8("xyzCabñ :"));
    clickTab(1);
    paste("Text11", "a:b'c\\d:");
    EXPECT_EQ(field("Text11").text(), "abcd");
}

// Before the catalogue is opened, so that a file that is none does not swallow the message.
TEST_P(Importing, EmptyFieldsAreToldOfWhateverFileIsOpen) {
    test::writeFile(folder / "none.zrq", "garbage");
    dialogs.answers = {QString::fromStdString(folder / "none.zrq")};
    choose("abrir");
    openImportPanel(0);
    enterName("");
    EXPECT_EQ(lastMessage(), in("Introduzca un nombre para la unidad.", "Write a name for the unit."));
    openImportPanel(1);
    enterName("");
    EXPECT_EQ(lastMessage(), in("Introduzca el contenido de la unidad.", "write the content of the unit."));
    EXPECT_EQ(messages.shown.size(), 2u);
}

TEST_P(Importing, FitsAtEveryWidthAndSize) {
    test::expectNothingCutOff(control("Picture2"), 230);
}

INSTANTIATE_TEST_SUITE_P(, Importing, testing::Values(Language::Spanish, Language::English));

}  // namespace
