#include "tour.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTimer>

#include "controls/image_combo.h"
#include "frame/menus.h"
#include "frame/pointer.h"
#include "lists/item_list.h"
#include "notes/notes_panel.h"
#include "shell/language_chooser.h"
#include "shell/main_window.h"
#include "shell/quick_start.h"
#include "shell/splash.h"
#include "support/recording_messages.h"
#include "support/scripted_dialogs.h"

namespace {

using browse::Node;
using browse::noNode;
using lists::ItemList;

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
}

class Tour {
  public:
    Tour(const TourFolders& folders, core::Language language)
        : m_folders(folders), m_language(language), m_window(language, m_messages, m_dialogs) {
        if (!folders.asOnScreen) m_window.resize(900, 560);
    }

    bool go() {
        startUp();
        makeCatalogue();
        browseUnit();
        search();
        writeNote();
        countFiles();
        return m_allWritten;
    }

  private:
    void startUp();
    void makeCatalogue();
    void browseUnit();
    void search();
    void writeNote();
    void countFiles();

    template <class Widget = QWidget>
    Widget& find(const char* name) {
        auto* found = m_window.findChild<Widget*>(QString::fromUtf8(name));
        if (!found) qFatal("there is no control %s", name);
        return *found;
    }
    template <class Window>
    Window& windowNamed(const char* name) {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == QLatin1String(name)) return static_cast<Window&>(*window);
        qFatal("there is no window %s", name);
    }

    [[nodiscard]] QString in(core::Bilingual words) const { return text(words.in(m_language)); }
    void choose(const char* entry) {
        m_window.surface().frame.menus.action(QString::fromUtf8(entry))->trigger();
    }
    void click(const char* label) { find<QPushButton>(label).click(); }
    void type(const char* field, const QString& words) { find<QLineEdit>(field).setText(words); }

    void importDisc(const std::string& folder, core::Bilingual name);
    void clickNode(Node node);
    [[nodiscard]] Node childNamed(Node parent, core::Bilingual start);
    void clickRow(ItemList& list, core::Bilingual name);
    void slideNotes();

    void shoot(QWidget& window, const char* name) {
        frame::yieldToQueue();
        const QString file = text(m_folders.pictures) + u'/' + QLatin1String(name) + QStringLiteral(".png");
        const QImage image = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
        m_allWritten = image.save(file, "PNG", 0) && m_allWritten;
    }

    const TourFolders& m_folders;
    core::Language m_language;
    test::RecordingMessages m_messages;
    test::ScriptedDialogs m_dialogs;
    shell::Form1 m_window;
    bool m_allWritten = true;
};

void Tour::startUp() {
    shell::Form5 chooser;
    chooser.show();
    shoot(chooser, "language");

    shell::Form8 quickStart(m_language);
    quickStart.setRecent(in({"/home/ana/Documentos/discos.zrq", "/home/anne/Documents/discs.zrq"}));
    quickStart.show();
    shoot(quickStart, "quick-start");

    m_window.begin({});
    if (m_folders.big) choose("Grande");
    shoot(m_window, "empty");
}

void Tour::importDisc(const std::string& folder, core::Bilingual name) {
    choose("explore");
    m_dialogs.answers.push_back(text(folder));
    click("Label19");
    type("Text3", in(name));
}

void Tour::makeCatalogue() {
    m_dialogs.answers.push_back(text(m_folders.catalogue));
    choose("nuevo");

    importDisc(m_folders.photoDisc, {"Fotos 1", "Photos 1"});
    shoot(m_window, "import");
    click("Label20");
    importDisc(m_folders.musicDisc, {"Ensayos", "Rehearsals"});
    click("Label20");

    choose("explore");
    find<QTabBar>("TabStrip2").setCurrentIndex(1);
    find<controls::ImageCombo>("ImageCombo4").setSelected(3);
    type("Text11", in({"Casablanca", "Casablanca"}));
    type("Text3", in({"Películas caja 2", "Films box 2"}));
    shoot(m_window, "by-hand");
    click("Label20");
}

void Tour::clickNode(Node node) {
    controls::TreeView& tree = m_window.surface().treeView1;
    tree.setSelected(node);
    emit tree.nodeClicked(node);
    tree.setExpanded(node, true);
    frame::yieldToQueue();
}

Node Tour::childNamed(Node parent, core::Bilingual start) {
    const controls::TreeModel& nodes = m_window.surface().treeView1.nodes();
    for (Node node = nodes.firstChild(parent); node != noNode; node = nodes.nextSibling(node))
        if (nodes.text(node).startsWith(in(start))) return node;
    qFatal("there is no node %s", qPrintable(in(start)));
}

void Tour::browseUnit() {
    choose("explorar");
    const Node unit = childNamed(noNode, {"Fotos 1", "Photos 1"});
    clickNode(unit);
    shoot(m_window, "unit");
    choose("Propiedades");
    auto& properties = windowNamed<QWidget>("Form3");
    shoot(properties, "properties");
    properties.hide();

    const Node summer = childNamed(unit, {"Verano", "Summer"});
    clickNode(summer);
    clickNode(childNamed(summer, {"Playa", "Beach"}));
    choose("Iconosgrandes");
    shoot(m_window, "icons");
    choose("Detalle");
    shoot(m_window, "folder");
}

void Tour::search() {
    choose("buscar");
    find<QComboBox>("Combo2").setEditText(in({"playa", "beach"}));
    find<QPushButton>("Label5").click();
    shoot(m_window, "search");

    find<QTabBar>("TabStrip1").setCurrentIndex(3);
    find<QCheckBox>("Check1(3)").setChecked(true);
    type("Text6", QStringLiteral("1500"));
    type("Text7", QStringLiteral("50000"));
    find<QPushButton>("Label5").click();
    shoot(m_window, "criteria");
    find<QCheckBox>("Check1(3)").setChecked(false);
}

void Tour::clickRow(ItemList& list, core::Bilingual name) {
    for (int row = 0; row < list.count(); ++row) {
        if (list.text(row) != in(name)) continue;
        list.select(row);
        emit list.itemClicked(row);
        return;
    }
    qFatal("there is no row %s", qPrintable(in(name)));
}

void Tour::slideNotes() {
    auto& panel = find<notes::NotesPanel>("Picture12");
    for (int before = panel.topInTwips() - 1; before != panel.topInTwips();) {
        before = panel.topInTwips();
        panel.tickTimer1();
    }
}

void Tour::writeNote() {
    choose("explorar");
    const Node unit = childNamed(noNode, {"Fotos 1", "Photos 1"});
    clickNode(childNamed(unit, {"Verano", "Summer"}));
    clickRow(m_window.surface().lists.listView1, {"diario de viaje.doc", "travel diary.doc"});
    choose("insertarcomentario");
    slideNotes();
    find<QPlainTextEdit>("Text10").setPlainText(
        in({"La última versión está en el disco Fotos 4.", "The last version is on the disc Photos 4."}));
    shoot(m_window, "note");
    find<QPushButton>("Command6").click();
    find<notes::NotesPanel>("Picture12").closeAtOnce();
}

void Tour::countFiles() {
    clickNode(childNamed(noNode, {"Fotos 1", "Photos 1"}));
    choose("graficos");
    auto& statistics = windowNamed<QWidget>("Form4");
    shoot(statistics, "statistics");
    statistics.close();

    shell::Form2 about(m_language);
    about.showAsAbout();
    shoot(about, "about");
}

}  // namespace

bool goOnTour(const TourFolders& folders, core::Language language) {
    return Tour(folders, language).go();
}
