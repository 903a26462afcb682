#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSettings>
#include <QTest>
#include <QToolButton>
#include <memory>

#include "controls/value_button.h"
#include "engine/database.h"
#include "frame/catalogue.h"
#include "frame/menus.h"
#include "frame/status_band.h"
#include "frame/toolbar.h"
#include "platform/settings.h"
#include "shell/main_window.h"
#include "support/mounted_discs.h"
#include "support/recording_messages.h"
#include "support/scripted_dialogs.h"

namespace test {

using Names = std::vector<std::string>;

// The real main window, driven as a user drives it: menu entries, buttons, mouse and keys. Its settings, its
// catalogues and its discs are in fresh folders; the disc "dvd" is in drive E:.
class MainWindow : public testing::Test {
  protected:
    void start(core::Language idioma = core::Language::English, const std::string& catalogue = {}) {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, QString::fromStdString(folder.path()));
        qputenv("ZARQUELIN_DRIVES", ("E=" + discs.disc("dvd") + ",removable").c_str());
        form = std::make_unique<shell::Form1>(idioma, messages, dialogs);
        form->begin(catalogue);
        QApplication::setActiveWindow(form.get());
    }
    ~MainWindow() override { qunsetenv("ZARQUELIN_DRIVES"); }

    template <class Widget = QWidget>
    Widget& control(const char* name) {
        auto* found = form->findChild<Widget*>(QString::fromUtf8(name));
        if (!found) throw std::runtime_error(name);
        return *found;
    }
    browse::Surface& surface() { return form->surface(); }
    frame::Frame& frame() { return surface().frame; }
    controls::TreeView& tree() { return surface().treeView1; }
    controls::ImageCombo& combo() { return surface().imageCombo1; }

    [[nodiscard]] bool isOn(const char* entry) {
        return frame().menus.action(QString::fromUtf8(entry))->isEnabled();
    }
    [[nodiscard]] bool isChecked(const char* entry) {
        return frame().menus.action(QString::fromUtf8(entry))->isChecked();
    }
    void choose(const char* entry) {
        EXPECT_TRUE(isOn(entry)) << entry;
        frame().menus.action(QString::fromUtf8(entry))->trigger();
    }
    void press(int button) {
        EXPECT_TRUE(frame().toolbar.isEnabled(button)) << button;
        QToolButton& widget = *frame().toolbar.button(button);
        QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(4, widget.height() / 2));
    }
    // The numbers of the buttons that are down.
    [[nodiscard]] std::vector<int> pressed() {
        std::vector<int> buttons;
        for (int button = 1; button <= frame::Toolbar::count; ++button) {
            const controls::ValueButton* widget = frame().toolbar.button(button);
            EXPECT_TRUE(!widget || widget->isPressed() == frame().toolbar.isPressed(button)) << button;
            if (frame().toolbar.isPressed(button)) buttons.push_back(button);
        }
        return buttons;
    }
    [[nodiscard]] std::string caption() const { return form->windowTitle().toStdString(); }
    [[nodiscard]] std::string status() { return frame().status.text().toStdString(); }
    [[nodiscard]] std::string size() { return frame().status.size().toStdString(); }
    [[nodiscard]] std::string kind() { return frame().status.kind().toStdString(); }

    // "Fotos :\viaje\2003" as the tree shows it; noNode when it doesn't.
    browse::Node node(const QString& fullPath) {
        for (int index = 1; index <= tree().nodes().count(); ++index)
            if (tree().nodes().fullPath(tree().nodes().nodeAt(index)) == fullPath)
                return tree().nodes().nodeAt(index);
        return browse::noNode;
    }
    void click(const QString& fullPath, Qt::MouseButton button = Qt::LeftButton) {
        const browse::Node clicked = node(fullPath);
        ASSERT_NE(clicked, browse::noNode) << fullPath.toStdString();
        for (auto above = tree().nodes().parentOf(clicked); above; above = tree().nodes().parentOf(above))
            tree().setExpanded(above, true);
        tree().QTreeView::doItemsLayout();  // which waits while the tree is busy growing
        const QModelIndex place = tree().nodes().place(clicked);
        tree().scrollTo(place);
        QTest::mouseClick(tree().viewport(), button, {}, tree().visualRect(place).center());
    }
    static void clickRow(const lists::ItemList& list, int row) {
        auto* view = list.findChild<QAbstractItemView*>("report");
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                          view->visualRect(view->model()->index(row, 0)).center());
    }
    static void doubleClickRow(const lists::ItemList& list, int row) {
        auto* view = list.findChild<QAbstractItemView*>("report");
        clickRow(list, row);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {},
                           view->visualRect(view->model()->index(row, 0)).center());
    }
    // From the combo's list, which the arrow key opens.
    static void chooseItem(QComboBox& box, int number) {
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_Down);
        ASSERT_TRUE(box.view()->isVisible());
        box.view()->setCurrentIndex(box.model()->index(number - 1, 0));
        QTest::keyClick(box.view(), Qt::Key_Return);
    }
    [[nodiscard]] Names roots() {
        Names texts;
        for (auto root = tree().nodes().firstChild(browse::noNode); root;
             root = tree().nodes().nextSibling(root))
            texts.push_back(surface().nodeText(root));
        return texts;
    }
    [[nodiscard]] static Names items(const QComboBox& box) {
        Names texts;
        for (int i = 0; i < box.count(); ++i) texts.push_back(box.itemText(i).toStdString());
        return texts;
    }
    [[nodiscard]] static Names names(const lists::ItemList& list) {
        Names texts;
        for (int i = 0; i < list.count(); ++i) texts.push_back(list.text(i).toStdString());
        return texts;
    }
    [[nodiscard]] Names listed() { return names(surface().lists.shown()); }

    std::string newCatalogue(const std::string& name = "test.zrq") {
        dialogs.answers.push_back(QString::fromStdString(folder / name));
        choose("nuevo");
        return folder / name;
    }
    // A catalogue with the unit "Fotos": four folders, four files. Without those of one kilobyte they take
    // 1000 KB, with them 1 MB.
    std::string startWithFotos(core::Language idioma = core::Language::English) {
        writeFotos();
        start(idioma);
        const std::string catalogue = newCatalogue();
        import("Fotos", discs.disc("dvd"));
        return catalogue;
    }
    void writeFotos() const {
        discs.write("dvd", "viaje/2003/a.jpg", std::string(5000, 'x'));
        discs.write("dvd", "viaje/2003/playa/b.jpg", std::string(993 * 1024, 'x'));
        discs.write("dvd", "viaje/mapa.txt", std::string(1024, 'x'));
        discs.write("dvd", "Lista.TXT", std::string(2048, 'x'));
        std::filesystem::create_directory(discs.disc("dvd") + "/atlas");
    }
    void openImportPanel(int tab) {
        choose("explore");
        auto& tabs = control<QTabBar>("TabStrip2");
        QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(tab).center());
    }
    void import(const char* unit, const std::string& nativeFolder) {
        dialogs.answers.push_back(QString::fromStdString(nativeFolder));
        openImportPanel(0);
        control<QAbstractButton>("Label19").click();
        enterName(unit);
    }
    void addByHand(const char* unit, const char* content) {
        openImportPanel(1);
        QTest::keyClicks(&control("Text11"), QString::fromUtf8(content));
        enterName(unit);
    }
    void enterName(const char* unit) {
        QTest::keyClicks(&control("Text3"), QString::fromUtf8(unit));
        QTest::keyClick(&control("Text3"), Qt::Key_Return);
    }
    [[nodiscard]] static QString focused() {
        return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
    }
    // Where the Tab key leads to, from what has the focus until it is there again.
    [[nodiscard]] Names tabStops() {
        QWidget* begin = QApplication::focusWidget();
        Names stops;
        do {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QString name = focused();
            for (const char* list : {"ListView1", "ListView2"})
                if (control(list).isAncestorOf(QApplication::focusWidget())) name = list;
            stops.push_back(name.toStdString());
        } while (QApplication::focusWidget() != begin && stops.size() < 40);
        return stops;
    }
    void search(const char* text) {
        auto& name = control<QComboBox>("Combo2");
        name.clearEditText();
        QTest::keyClicks(&name, QString::fromUtf8(text));
        QTest::keyClick(&name, Qt::Key_Return);
    }
    void rename(const QString& unit, const char* name, Qt::Key end = Qt::Key_Return) {
        tree().setSelected(node(unit));
        choose("cambiarnombre");
        auto* editor = tree().viewport()->findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr);
        QTest::keyClicks(editor, QString::fromUtf8(name));
        QTest::keyClick(editor, end);
        QCoreApplication::processEvents();  // the editor's end comes by the queue
        QCoreApplication::sendPostedEvents(editor, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    // Runs when the work that is about to begin first gives way.
    void whenItYields(std::function<void()> action) {
        QMetaObject::invokeMethod(form.get(), std::move(action), Qt::QueuedConnection);
    }
    static long long rowCount(const std::string& catalogue, const std::string& where = "numero > (-1)") {
        auto database = engine::OpenDatabase(catalogue, engine::Use::ReadOnly).value();
        return database.OpenRecordset("select * from datos where " + where).value().RecordCount();
    }

    TemporaryFolder folder;
    MountedDiscs discs;
    RecordingMessages messages;
    ScriptedDialogs dialogs;
    std::unique_ptr<shell::Form1> form;
};

// A story that is told in both languages.
class BilingualWindow : public MainWindow, public testing::WithParamInterface<core::Language> {
  protected:
    [[nodiscard]] std::string in(const char* spanish, const char* english) const {
        return GetParam() == core::Language::Spanish ? spanish : english;
    }
};

}  // namespace test
