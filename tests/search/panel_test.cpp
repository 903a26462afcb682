#include "search/search_panel.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QToolButton>

#include "browse/item_list.h"
#include "platform/controls/image_combo.h"
#include "platform/controls/step_buttons.h"
#include "search/sample_catalogue.h"
#include "shell/frame/catalogue.h"
#include "shell/frame/menus.h"
#include "shell/frame/status_band.h"
#include "shell/frame/toolbar.h"
#include "support/recording_messages.h"
#include "support/scripted_dialogs.h"

namespace {

class SearchPanelTest : public testing::Test {
  protected:
    SearchPanelTest() {
        catalogue.setPath(sample.path());
        panel.addUnit("Fotos :", 16);
        panel.show();
        panel.activateWindow();
        QApplication::setActiveWindow(&panel);
    }

    template <class T>
    T* control(const char* name) {
        auto* found = panel.findChild<T*>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    QComboBox* combo(const char* name) { return control<QComboBox>(name); }
    void switchOn(int criterion, bool on = true) {
        control<QCheckBox>(qPrintable(QString("Check1(%1)").arg(criterion)))->setChecked(on);
    }
    // The test library's own typing knows ASCII only.
    static void type(QWidget* field, const char* text) {
        for (const QChar character : QString::fromUtf8(text)) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
            QApplication::sendEvent(field, &press);
        }
    }
    static void enter(QWidget* field) { QTest::keyClick(field, Qt::Key_Return); }
    QStringList names() const {
        QStringList names;
        for (int position = 0; position < list.count(); ++position) names << list.text(position);
        return names;
    }
    QString lastMessage() const { return messages.shown.empty() ? QString() : messages.shown.back().text; }

    SampleCatalogue sample;
    shell::Catalogue catalogue;
    test::RecordingMessages messages;
    test::ScriptedDialogs dialogs;
    shell::MenuBar menus{core::Language::English};
    shell::Toolbar toolbar{core::Language::English};
    shell::StatusBand status;
    shell::Frame frame{core::Language::English, catalogue, messages, dialogs, menus, toolbar, status};
    browse::ItemList list;
    search::SearchPanel panel{frame, list};
};

TEST_F(SearchPanelTest, TypingPassesTheAllowedSetOnly) {
    QComboBox* name = combo("Combo2");
    type(name->lineEdit(), "A'b\"Ñ*[ü");
    EXPECT_EQ(name->currentText(), QString::fromUtf8("AbÑ*["));
    QTest::keyClick(name->lineEdit(), Qt::Key_Backspace);
    EXPECT_EQ(name->currentText(), QString::fromUtf8("AbÑ*"));
    switchOn(3);
    type(control<QLineEdit>("Text6"), "1a-5 ");
    EXPECT_EQ(control<QLineEdit>("Text6")->text(), "015 ");
}

TEST_F(SearchPanelTest, BoxesSwitchTheirControls) {
    auto* type = control<controls::ImageCombo>("ImageCombo2");
    ASSERT_EQ(type->count(), 8);
    EXPECT_FALSE(type->isEnabled());
    switchOn(0);
    EXPECT_TRUE(type->isEnabled());
    EXPECT_NE(type->palette().color(QPalette::Text), QColor(0x80, 0x80, 0x80));
    type->setSelected(4);
    switchOn(0, false);
    EXPECT_EQ(type->selectedItem(), 1);
    EXPECT_EQ(type->palette().color(QPalette::Text), QColor(0x80, 0x80, 0x80));

    switchOn(2);
    auto* from = control<QDateEdit>("DTPicker1");
    from->setDate({2003, 5, 1});
    switchOn(2, false);
    EXPECT_FALSE(from->isEnabled());
    EXPECT_EQ(from->date(), QDate(2003, 5, 1));
    EXPECT_FALSE(panel.request().date);

    // A choice counts by what the combo shows, also with its box off.
    control<controls::ImageCombo>("ImageCombo3")->setSelected(2);
    EXPECT_EQ(panel.request().unit, "Fotos :");
}

TEST_F(SearchPanelTest, StepsGoByTenWithoutLimit) {
    switchOn(3);
    auto* text = control<QLineEdit>("Text6");
    QTest::keyClick(control<controls::UpDown>("UpDown1"), Qt::Key_Down);
    EXPECT_EQ(text->text(), "-10");
    text->setText("abc");
    QTest::keyClick(control<controls::UpDown>("UpDown1"), Qt::Key_Down);
    EXPECT_EQ(text->text(), "-10");
    text->setText("1 2 x");
    QTest::keyClick(control<controls::UpDown>("UpDown1"), Qt::Key_Up);
    EXPECT_EQ(text->text(), "22");
}

TEST_F(SearchPanelTest, ATabShowsItsPageAndGivesTheFocusBack) {
    control<QTabBar>("TabStrip1")->setCurrentIndex(3);
    EXPECT_TRUE(control<QWidget>("Picture11(3)")->isVisible());
    EXPECT_FALSE(control<QWidget>("Picture11(0)")->isVisible());
    EXPECT_EQ(panel.focusWidget(), combo("Combo2"));
}

TEST_F(SearchPanelTest, ANameSearchRemembersItsTextEachTime) {
    QComboBox* name = combo("Combo2");
    type(name->lineEdit(), "foto");
    enter(name->lineEdit());
    EXPECT_EQ(names(), QStringList({"fotos", "foto1.jpg", "foto2.JPG"}));
    EXPECT_EQ(status.text(), " Folders found: 1  Files found: 2");
    QTest::mouseClick(control<QPushButton>("Label5"), Qt::LeftButton);
    EXPECT_EQ(name->count(), 2);

    switchOn(3);
    control<QLineEdit>("Text7")->setText("5000");
    enter(name->lineEdit());
    EXPECT_EQ(name->count(), 2);
    EXPECT_EQ(name->currentText(), "foto");
}

TEST_F(SearchPanelTest, TheStraightRoadKeepsTheOtherCounter) {
    combo("Combo2")->setEditText("foto");
    panel.clickLabel5();
    switchOn(3);
    switchOn(0);
    control<QLineEdit>("Text7")->setText("5000");
    control<controls::ImageCombo>("ImageCombo2")->setSelected(3);
    enter(control<QLineEdit>("Text7"));
    EXPECT_EQ(names(), QStringList({"foto1.jpg", "foto2.JPG"}));
    EXPECT_EQ(status.text(), " Folders found: 1  Files found: 2");
    enter(combo("Combo2")->lineEdit());
    EXPECT_EQ(status.text(), " Folders found: 0  Files found: 2");
}

TEST_F(SearchPanelTest, NotesAreRememberedOnlyWithTheSizeOff) {
    combo("Combo2")->setEditText("foto");
    switchOn(4);
    QComboBox* note = combo("Combo1");
    enter(note->lineEdit());
    EXPECT_EQ(lastMessage(), "Write the note to search.");
    type(note->lineEdit(), "playa");
    enter(note->lineEdit());
    EXPECT_EQ(names(), QStringList({"foto1.jpg"}));
    EXPECT_EQ(note->count(), 1);
    switchOn(3);
    control<QLineEdit>("Text7")->setText("5000");
    enter(note->lineEdit());
    EXPECT_EQ(names(), QStringList({"foto1.jpg"}));
    EXPECT_EQ(note->count(), 1);
    EXPECT_EQ(messages.shown.size(), 1u);
}

TEST_F(SearchPanelTest, EachProcedureWarnsInItsOwnWords) {
    browse::ListItem before;
    before.text = "before";
    list.add(before);
    panel.clickLabel5();
    EXPECT_EQ(lastMessage(), "Write the item to search.");
    EXPECT_EQ(messages.shown.back().title, "zarquelin");
    EXPECT_EQ(messages.shown.back().style, shell::MessageStyle::Exclamation);
    EXPECT_EQ(panel.focusWidget(), combo("Combo2"));
    EXPECT_EQ(names(), QStringList("before"));
    EXPECT_EQ(status.text(), " Folders found: 0  Files found: 0");

    switchOn(4);
    panel.clickLabel5();
    EXPECT_EQ(lastMessage(), "Introduce a note to search.");
    combo("Combo1")->setEditText("x");
    panel.clickLabel5();
    EXPECT_EQ(lastMessage(), "Introduce the item to search.");
    switchOn(3);
    panel.clickLabel5();
    EXPECT_EQ(lastMessage(), "Introduce a item to search.");
    combo("Combo1")->setEditText("");
    panel.busquedaconfecha();
    EXPECT_EQ(lastMessage(), "Introduzca la Nota a buscar.");
    switchOn(4, false);
    panel.busquedaconfecha();
    EXPECT_EQ(lastMessage(), "Introduce a item to search.");
}

// Fields, buttons and captions stay whole in a narrow panel, whatever the language and letters.
TEST_F(SearchPanelTest, NothingIsCutOffInANarrowPanel) {
    for (const core::Language language : {core::Language::Spanish, core::Language::English})
        for (const int points : {8, 10, 12}) {
            const shell::Frame other{language, catalogue, messages, dialogs, menus, toolbar, status};
            search::SearchPanel narrow(other, list);
            QFont font = narrow.font();
            font.setPointSize(points);
            narrow.setFont(font);
            narrow.resize(250, 400);
            narrow.show();
            auto* tabs = narrow.findChild<QTabBar*>("TabStrip1");
            for (int tab = 0; tab < tabs->count(); ++tab) {
                tabs->setCurrentIndex(tab);
                QApplication::processEvents();
                EXPECT_EQ(narrow.width(), 250) << points << " page " << tab;
                EXPECT_LE(tabs->tabRect(tab).right(), tabs->width()) << points;
                EXPECT_LE(tabs->fontMetrics().horizontalAdvance(tabs->tabText(tab).trimmed()),
                          tabs->tabRect(tab).width());
                for (const QLabel* label : narrow.findChildren<QLabel*>())
                    if (label->isVisible()) {
                        EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                            << qPrintable(label->text());
                    }
                if (const QString folder = qEnvironmentVariable("PANEL_PICTURES"); !folder.isEmpty())
                    narrow.grab().save(
                        QString("%1/%2-%3-%4.png").arg(folder).arg(int(language)).arg(points).arg(tab));
            }
        }
}

}  // namespace
