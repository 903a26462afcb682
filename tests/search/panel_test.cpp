#include "search/search_panel.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QPushButton>

#include "controls/step_buttons.h"
#include "lists/item_model.h"
#include "search/sample_catalogue.h"
#include "support/fitting.h"
#include "support/main_window.h"

namespace {

using core::Language;
using test::Names;

class Searching : public test::MainWindow {
  protected:
    void SetUp() override { begin(Language::English); }
    void begin(Language idioma) {
        start(idioma, sample.path);
        choose("buscar");
    }
    search::SearchPanel& panel() { return control<search::SearchPanel>("Picture1"); }
    QComboBox& combo(const char* name) { return control<QComboBox>(name); }
    QLineEdit& field(const char* name) { return control<QLineEdit>(name); }
    void switchOn(int criterion, bool on = true) {
        control<QCheckBox>(qPrintable(QString("Check1(%1)").arg(criterion))).setChecked(on);
    }
    static void enter(QWidget* field) { QTest::keyClick(field, Qt::Key_Return); }
    [[nodiscard]] std::string lastMessage() const {
        return messages.shown.empty() ? std::string() : messages.shown.back().text.toStdString();
    }

    SampleCatalogue sample;
};

TEST_F(Searching, TypingPassesTheAllowedSetOnly) {
    QLineEdit* name = combo("Combo2").lineEdit();
    QTest::keyClicks(QApplication::focusWidget(), "A'b");  // where the window system sends the keys
    QTest::keyClicks(name, QString::fromUtf8("\"Ñ*["));
    EXPECT_EQ(name->text(), QString::fromUtf8("AbÑ*["));
    QTest::keyClick(name, Qt::Key_Backspace);
    EXPECT_EQ(name->text(), QString::fromUtf8("AbÑ*"));
    switchOn(3);
    QTest::keyClicks(&field("Text6"), "1a-5 ");
    EXPECT_EQ(field("Text6").text(), "015 ");
}

TEST_F(Searching, BoxesSwitchTheirControls) {
    auto& type = control<controls::ImageCombo>("ImageCombo2");
    EXPECT_FALSE(type.isEnabled());
    switchOn(0);
    EXPECT_TRUE(type.isEnabled());
    type.setSelected(8);
    switchOn(0, false);
    EXPECT_EQ(type.selectedItem(), 1);
    EXPECT_EQ(type.palette().color(QPalette::Text), QColor(0x80, 0x80, 0x80));

    switchOn(2);
    auto& from = control<QDateEdit>("DTPicker1");
    from.setDate({2003, 5, 1});
    switchOn(2, false);
    EXPECT_FALSE(from.isEnabled());
    EXPECT_EQ(from.date(), QDate(2003, 5, 1));
    EXPECT_FALSE(panel().request().date);

    // A choice counts by what the combo shows, also with its box off.
    control<controls::ImageCombo>("ImageCombo3").setSelected(3);
    EXPECT_EQ(panel().request().unit, "Fotos :");
}

TEST_F(Searching, TheCalendarSpeaksTheLanguageOfTheInterface) {
    begin(Language::Spanish);
    EXPECT_EQ(control<QDateEdit>("DTPicker1").locale().monthName(1), "enero");
}

TEST_F(Searching, StepsGoByTenWithoutLimit) {
    switchOn(3);
    auto& steps = control<controls::UpDown>("UpDown1");
    QTest::keyClick(&steps, Qt::Key_Down);
    EXPECT_EQ(field("Text6").text(), "-10");
    field("Text6").setText("abc");
    QTest::mouseClick(steps.findChild<QToolButton*>("stepDown"), Qt::LeftButton);
    EXPECT_EQ(field("Text6").text(), "-10");
    field("Text6").setText("1 2 x");
    QTest::keyClick(&steps, Qt::Key_Up);
    QTest::mouseClick(steps.findChild<QToolButton*>("stepUp"), Qt::LeftButton);
    EXPECT_EQ(field("Text6").text(), "32");
    QKeyEvent other(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier);
    static_cast<QObject&>(steps).event(&other);
    EXPECT_FALSE(other.isAccepted()) << "what it stands on may want it";
}

TEST_F(Searching, ATabShowsItsPageAndGivesTheFocusBack) {
    control<QTabBar>("TabStrip1").setCurrentIndex(3);
    EXPECT_TRUE(control("Picture11(3)").isVisible());
    EXPECT_FALSE(control("Picture11(0)").isVisible());
    EXPECT_EQ(focused(), "Combo2");
}

TEST_F(Searching, ANameSearchRemembersItsTextEachTime) {
    QComboBox& name = combo("Combo2");
    search("foto");
    EXPECT_EQ(listed(), (Names{"fotos", "foto1.jpg", "foto2.JPG"}));
    EXPECT_EQ(status(), " Folders found: 1  Files found: 2");
    const QModelIndex first = control<lists::ItemList>("ListView2").model().index(0, 0);
    EXPECT_EQ(first.data(Qt::ToolTipRole), "fotos\nFotos :\nE:\\fotos") << "where it lies";
    QTest::mouseClick(&control<QPushButton>("Label5"), Qt::LeftButton);
    EXPECT_EQ(name.count(), 2);

    switchOn(3);
    field("Text7").setText("5000");
    enter(&name);
    EXPECT_EQ(name.count(), 2);
    EXPECT_EQ(name.currentText(), "foto");
}

TEST_F(Searching, ANameSearchOfTypeAndUnitShowsTheNoteThatBrowsingShowedLast) {
    choose("explorar");
    click("Discos :");
    click("Discos :\\sonidos");
    ASSERT_EQ(listed().back(), "z.zip");  // its note is "jazz"
    choose("buscar");
    control<controls::ImageCombo>("ImageCombo2").setSelected(3);  // pictures
    control<controls::ImageCombo>("ImageCombo3").setSelected(3);  // of the other unit
    search("foto");
    ASSERT_EQ(listed(), (Names{"foto1.jpg", "foto2.JPG"}));
    for (int row : {0, 1}) EXPECT_EQ(surface().lists.listView2.subItem(row, 1), "jazz");
}

TEST_F(Searching, TheStraightRoadKeepsTheOtherCounter) {
    search("foto");
    switchOn(3);
    switchOn(0);
    field("Text7").setText("5000");
    control<controls::ImageCombo>("ImageCombo2").setSelected(3);
    enter(&field("Text7"));
    EXPECT_EQ(listed(), (Names{"foto1.jpg", "foto2.JPG"}));
    EXPECT_EQ(status(), " Folders found: 1  Files found: 2");
    enter(&combo("Combo2"));
    EXPECT_EQ(status(), " Folders found: 0  Files found: 2");
}

TEST_F(Searching, NotesAreRememberedOnlyWithTheSizeOff) {
    combo("Combo2").setEditText("foto");
    switchOn(4);
    QComboBox& note = combo("Combo1");
    enter(&note);
    EXPECT_EQ(lastMessage(), "Write the note to search.");
    QTest::keyClicks(&note, "playa");
    for (const bool size : {false, true}) {
        switchOn(3, size);
        field("Text7").setText("5000");
        enter(&note);
        EXPECT_EQ(listed(), (Names{"foto1.jpg"}));
        EXPECT_EQ(note.count(), 1);
    }
    EXPECT_EQ(messages.shown.size(), 1u);
}

TEST_F(Searching, EachProcedureWarnsInItsOwnWords) {
    search("foto1");
    combo("Combo2").clearEditText();
    panel().clickLabel5();
    EXPECT_EQ(messages.shown.back(),
              (test::RecordingMessages::Shown{"Write the item to search.", "zarquelin"}));
    EXPECT_EQ(focused(), "Combo2");
    EXPECT_EQ(listed(), (Names{"foto1.jpg"}));
    EXPECT_EQ(status(), " Folders found: 0  Files found: 0");

    const auto button = [&] { panel().clickLabel5(); };
    const auto straight = [&] { panel().busquedaconfecha(); };
    const auto warning = [&](bool size, bool note, const char* noteText, const auto& search) {
        switchOn(3, size);
        switchOn(4, note);
        combo("Combo1").setEditText(noteText);
        search();
        return lastMessage();
    };
    EXPECT_EQ(warning(false, true, "", button), "Introduce a note to search.");
    EXPECT_EQ(warning(false, true, "x", button), "Introduce the item to search.");
    EXPECT_EQ(warning(true, true, "x", button), "Introduce a item to search.");
    EXPECT_EQ(warning(true, true, "", straight), "Introduzca la Nota a buscar.");
    EXPECT_EQ(warning(true, false, "", straight), "Introduce a item to search.");
}

TEST_F(Searching, LaterSearchesSeeWhatHasChanged) {
    combo("Combo2").setEditText("a.");
    const auto found = [&] {
        panel().clickLabel5();
        while (panel().isFillingMemory()) QCoreApplication::processEvents();
        return panel().counters().archivosencontrados;
    };
    for (int i = 0; i < 3; ++i) EXPECT_EQ(found(), 6);
    sample.add(test::fileRow("Discos :", "E:\\sonidos", "a.ogg"));
    for (int i = 0; i < 3; ++i) EXPECT_EQ(found(), 7);
}

TEST_F(Searching, NothingIsCutOffInANarrowPanel) {
    for (const Language idioma : {Language::Spanish, Language::English}) {
        begin(idioma);
        test::expectNothingCutOff(panel(), 250);
    }
}

}  // namespace
