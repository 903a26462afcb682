#include "scan/import_panel.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QTabBar>
#include <QTest>
#include <filesystem>

#include "core/serial_date.h"
#include "platform/controls/image_combo.h"
#include "platform/controls/link_label.h"
#include "scan/catalogue_fixture.h"
#include "shell/frame/catalogue.h"
#include "shell/frame/enabling.h"
#include "shell/frame/menus.h"
#include "shell/frame/status_band.h"
#include "shell/frame/toolbar.h"
#include "support/recording_messages.h"
#include "support/scripted_dialogs.h"

namespace {

namespace fs = std::filesystem;
using core::Language;
using shell::Toolbar;

// Writes down what the panel asks of the window.
struct Host : scan::ImportHost {
    QStringList asked;
    int combo1 = 5;
    void placeOverTree(QWidget& panel) override { panel.setGeometry(0, 0, 260, 400); }
    void hidePicture1() override { asked << "hidePicture1"; }
    void hideListView2() override { asked << "hideListView2"; }
    void clearListView1() override { asked << "clearListView1"; }
    void clearListView2() override { asked << "clearListView2"; }
    void clearTreeView1() override { asked << "clearTreeView1"; }
    void clearImageCombos() override { asked << "clearImageCombos"; }
    void addUnit(const QString& text, int picture, const QString& key) override {
        asked << QString("unit %1 %2 %3").arg(text).arg(picture).arg(key);
        ++combo1;
    }
    int imageCombo1Count() const override { return combo1; }
    void actualizar() override { asked << "actualizar"; }
    void explorar1() override { asked << "explorar1"; }
    void reciente1() override { asked << "reciente1"; }
};

class Importing : public testing::TestWithParam<Language> {
  protected:
    void SetUp() override {
        for (const char* name : {"a/1/f", "b/2/g", "c/h"}) {
            fs::create_directories(fs::path(disc / name).parent_path());
            test::writeFile(disc / name, "x");
        }
        current.setPath(catalogue.path);
        panel.fillKinds();
        window.resize(600, 500);
        window.show();
        QApplication::setActiveWindow(&window);
        panel.importar1();
        host.asked.clear();
    }

    template <class Widget = QLineEdit>
    Widget& control(const char* name) {
        auto* found = window.findChild<Widget*>(QString::fromUtf8(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    void choose(const std::string& folder) {
        dialogs.answers.push_back(QString::fromStdString(folder));
        QTest::keyClick(&control("Text4"), Qt::Key_Return);
    }
    void clickTab(int tab) {
        auto& strip = control<QTabBar>("TabStrip2");
        QTest::mouseClick(&strip, Qt::LeftButton, {}, strip.tabRect(tab).center());
    }
    [[nodiscard]] static QString focused() {
        return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
    }

    test::TemporaryFolder disc;
    test::CatalogueFixture catalogue;
    QWidget window;
    shell::Catalogue current;
    test::RecordingMessages messages;
    test::ScriptedDialogs dialogs;
    shell::MenuBar menus{GetParam(), &window};
    shell::Toolbar toolbar{GetParam(), &window};
    shell::StatusBand status{&window};
    shell::Frame frame{GetParam(), current, messages, dialogs, menus, toolbar, status, [this](bool running) {
                           shell::WindowState state;
                           state.catalogueOpen = true;
                           state.running = running;
                           shell::apply(shell::enabledIn(state), menus, toolbar);
                       }};
    Host host;
    scan::ImportPanel panel{frame, host, &window};
    const bool spanish = GetParam() == Language::Spanish;
};

TEST_P(Importing, ScansTheChosenFolderOnEnter) {
    EXPECT_EQ(focused(), "Text4");
    choose(disc.path());
    EXPECT_EQ(dialogs.titles.back(),
              spanish ? "Seleccione el directorio a catalogar." : "Select the directory to catalog.");
    EXPECT_EQ(control("Text4").text().toStdString(), disc.path());
    EXPECT_EQ(focused(), "Text3");

    QTest::keyClicks(&control("Text3"), "F'o\\t:o*sÑ");
    EXPECT_EQ(control("Text3").text(), "FotosÑ");
    QTest::keyClick(&control("Text3"), Qt::Key_Return);

    EXPECT_EQ(catalogue.rows().size(), 8U);
    EXPECT_EQ(catalogue.rows().front().disco, "FotosÑ :");
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(host.asked,
              (QStringList{"hidePicture1", "clearListView1", "unit FotosÑ : 4 a7", "actualizar"}));
    EXPECT_EQ(status.text(), spanish ? "  Carpetas: 5  Archivos: 3" : " Folders : 5 Files : 3");
    EXPECT_TRUE(panel.isHidden());
    EXPECT_TRUE(control("Text3").text().isEmpty());
    EXPECT_TRUE(control("Text4").text().isEmpty());
    EXPECT_TRUE(toolbar.isPressed(Toolbar::Explore));
    EXPECT_FALSE(toolbar.isEnabled(Toolbar::Stop));
    EXPECT_TRUE(menus.action("compactar")->isEnabled());
    EXPECT_FALSE(panel.isRunning());
}

TEST_P(Importing, RefusalsCostTheTypedName) {
    auto& name = control("Text3");
    QTest::keyClick(&name, Qt::Key_Return);
    name.setText("abc");
    QTest::keyClick(&name, Qt::Key_Return);
    EXPECT_TRUE(name.text().isEmpty());
    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_EQ(messages.shown[0].text,
              spanish ? "Introduzca un nombre para la unidad." : "Write a name for the unit.");
    EXPECT_EQ(messages.shown[1].text,
              spanish ? "Seleccione el directorio a catalogar." : "Select the directory to catalog.");

    for (int i = 0; i < 2; ++i) {  // the second time the name is taken
        choose(disc.path());
        name.setText("abc");
        QTest::keyClick(&name, Qt::Key_Return);
    }
    EXPECT_EQ(messages.shown.back().title, "Nompre existente");
    EXPECT_TRUE(control("Text4").text().isEmpty());
    EXPECT_EQ(catalogue.rows().size(), 8U);
}

TEST_P(Importing, MakesAUnitByHand) {
    clickTab(1);
    EXPECT_EQ(focused(), "ImageCombo4");
    EXPECT_EQ(control<controls::ImageCombo>("ImageCombo4").selectedItem(), 1);
    EXPECT_FALSE(control<QWidget>("Picture13(0)").isVisible());
    control<controls::ImageCombo>("ImageCombo4").setSelected(3);

    auto& content = control("Text11");
    auto& name = control("Text3");
    content.setFocus();
    QTest::keyClick(&content, Qt::Key_Return);
    EXPECT_EQ(focused(), "Text11");  // nothing typed yet
    QTest::keyClicks(&content, "Pelis");
    QTest::keyClick(&content, Qt::Key_Return);
    EXPECT_EQ(focused(), "Text3");
    QTest::keyClick(&name, Qt::Key_Return);  // no name
    QTest::keyClicks(&name, "Cds");
    QTest::keyClick(&name, Qt::Key_Return);

    ASSERT_EQ(messages.shown.size(), 1U);
    ASSERT_EQ(catalogue.rows().size(), 1U);
    EXPECT_EQ(catalogue.rows()[0].tipo, "Unidad de video");
    EXPECT_EQ(host.asked, (QStringList{"actualizar", "unit Cds : 9 ", "explorar1", "actualizar"}));
    EXPECT_TRUE(name.text().isEmpty());
    EXPECT_TRUE(content.text().isEmpty());

    content.setText("Otra");
    name.setText("cds");
    QTest::keyClick(&name, Qt::Key_Return);
    EXPECT_EQ(messages.shown.back().title, "Zarquelin");
    EXPECT_EQ(content.text(), "Otra");  // a refusal by hand keeps the content
}

TEST_P(Importing, StopsWhereTheWalkGivesWay) {
    choose(disc.path());
    control("Text3").setText("Fotos");
    std::size_t seen = 0;
    QMetaObject::invokeMethod(
        &window,
        [&] {
            EXPECT_TRUE(panel.isRunning());
            EXPECT_TRUE(toolbar.isEnabled(Toolbar::Stop));
            EXPECT_TRUE(menus.action("Parar1")->isEnabled());
            EXPECT_FALSE(menus.action("compactar")->isEnabled());
            EXPECT_EQ(status.progress().maximum(), 3);
            seen = catalogue.rows().size();  // committed before anyone could look
            panel.Parar();
            panel.Parar();
        },
        Qt::QueuedConnection);
    QTest::keyClick(&control("Text3"), Qt::Key_Return);

    EXPECT_EQ(seen, 1U);
    EXPECT_EQ(catalogue.rows().size(), 1U);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text, spanish ? "Operación cancelada." : "Canceled operation.");
    EXPECT_EQ(host.asked, (QStringList{"hidePicture1", "clearListView1", "clearListView2", "clearTreeView1",
                                       "clearImageCombos", "reciente1", "explorar1", "actualizar"}));
    EXPECT_EQ(control("Text3").text(), "Fotos :");
    EXPECT_EQ(control<controls::ImageCombo>("ImageCombo4").count(), 0);
    EXPECT_FALSE(panel.isRunning());
    EXPECT_FALSE(status.progress().isVisible());
}

TEST_P(Importing, AsksAgainForADriveWithoutItsMedium) {
    messages.onShow = [this](const auto&) { EXPECT_TRUE(control("Text4").text().isEmpty()); };
    dialogs.answers = {QString::fromStdString(disc / "missing"), QString::fromStdString(disc.path())};
    QTest::mouseClick(&control<QAbstractButton>("Label19"), Qt::LeftButton);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text, spanish ? "La unidad se encuentra vacia." : "The unit is empty.");
    EXPECT_EQ(control("Text4").text().toStdString(), disc.path());
    QTest::mouseClick(&control<QAbstractButton>("Label19"), Qt::LeftButton);  // cancelled: stays as it was
    EXPECT_EQ(control("Text4").text().toStdString(), disc.path());
}

TEST_P(Importing, TheNameSendsTheFocusOnButAClickStillCounts) {
    control("Text3").setFocus();
    QTest::keyClick(&control("Text3"), Qt::Key_Tab);
    QCoreApplication::processEvents();
    EXPECT_EQ(focused(), "Text4");
    clickTab(1);
    control("Text3").setFocus();
    control("Text11").setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(focused(), "ImageCombo4");
    control("Text3").setFocus();
    QTest::mouseClick(&control<QAbstractButton>("Label20"), Qt::LeftButton);
    EXPECT_EQ(messages.shown.size(), 1U);
    QTest::keyClick(&control("Text4"), Qt::Key_A);
    EXPECT_TRUE(control("Text4").text().isEmpty());
}

TEST_P(Importing, PastedTextIsHeldToTheSameKeys) {
    auto& name = control("Text3");
    name.setFocus();
    name.insert("x");
    emit name.textEdited(name.text());
    name.setText("a'b*ñ :");
    emit name.textEdited(name.text());
    EXPECT_EQ(name.text(), "abñ :");
}

// Nothing is cut off at any width and size that the window allows.
TEST_P(Importing, FitsAtEveryWidthAndSize) {
    for (const int points : {8, 12}) {
        QFont font = panel.font();
        font.setPointSize(points);
        panel.setFont(font);
        for (const int width : {230, 400}) {
            panel.setGeometry(0, 0, width, 400);
            for (const int pane : {0, 1}) {
                clickTab(pane);
                QCoreApplication::processEvents();
                for (const QWidget* child : panel.findChildren<QWidget*>()) {
                    if (!child->isVisible() || !child->parentWidget()) continue;
                    const auto where = child->objectName().toStdString() + " at " + std::to_string(width);
                    EXPECT_TRUE(child->parentWidget()->rect().contains(child->geometry())) << where;
                    if (const auto* label = qobject_cast<const QLabel*>(child)) {
                        EXPECT_GE(label->height(), label->heightForWidth(label->width())) << where;
                    }
                }
                const auto& strip = control<QTabBar>("TabStrip2");
                for (int i = 0; i < strip.count(); ++i) {
                    EXPECT_GE(strip.tabRect(i).width(),
                              strip.fontMetrics().horizontalAdvance(strip.tabText(i).trimmed()));
                    EXPECT_LE(strip.tabRect(i).right(), strip.width());
                }
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(BothLanguages, Importing, testing::Values(Language::Spanish, Language::English),
                         [](const auto& language) {
                             return language.param == Language::Spanish ? "Spanish" : "English";
                         });

}  // namespace
