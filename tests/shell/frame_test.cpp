#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QTabBar>
#include <QToolButton>
#include <vector>

#include "shell/frame/captions.h"
#include "shell/frame/desktop_dialogs.h"
#include "shell/frame/menus.h"
#include "shell/frame/status_band.h"
#include "shell/frame/toolbar.h"

namespace {

using core::Language;
using shell::MenuBar;
using shell::StatusBand;
using shell::Toolbar;

// "-" a separator, "!" off, "*" checked, "( )" a submenu.
std::string entriesOf(const QMenu& menu) {
    std::string text;
    for (const QAction* entry : menu.actions()) {
        if (!text.empty()) text += ' ';
        text += entry->isSeparator() ? "-" : entry->isChecked() ? "*" : entry->isEnabled() ? "" : "!";
        text += entry->objectName().toStdString();
        if (entry->menu()) text += "(" + entriesOf(*entry->menu()) + ")";
    }
    return text;
}

void click(QWidget& widget) {
    const QPointF place(widget.rect().center());
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, place, widget.mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }
}

TEST(MenuBar, HasItsTreeInBothLanguages) {
    const std::pair<const char*, const char*> expected[] = {
        {"archivos", "nuevo abrir reciente -barra1 guardar cerrar Imprimir -barra3 salir"},
        {"edicion",
         "explore buscar explorar -barra23 borr(eliminar borrarunidad1) -barra25 !Parar1 -Barra9 actualizar1 "
         "-barra35 !Copiararchivos"},
        {"ver",
         "Tamañodefuente(*Pequeño Mediano Grande) -barra33 barradetareas(*botonescontexto botonessintexto) "
         "-barra5 "
         "vistas(Iconosgrandes Iconospequeños lista *Detalle) -barra32 arriba -barra30 iniciomenu"},
        {"Herramientas", "graficos -barra22 compactar -barra8 reparar"},
        {"ayuda", "idioma1(español *English) -barra31 soporte website feedback -barra6 acerca"},
    };
    const MenuBar english(Language::English);
    ASSERT_EQ(static_cast<const QWidget&>(english).actions().size(), 5);
    for (int top = 0; top < 5; ++top) {
        const QAction* menu = static_cast<const QWidget&>(english).actions()[top];
        EXPECT_EQ(menu->objectName().toStdString(), expected[top].first);
        EXPECT_EQ(entriesOf(*menu->menu()), expected[top].second);
    }
    EXPECT_EQ(entriesOf(*english.popup()),
              "abrirnodo -barra7 cambiarnombre graficos2 borrarunidad -Barra21 Propiedades");
    EXPECT_EQ(entriesOf(*english.popup2()),
              "abrirlistitem -Barra20 !Copiararchivos2 -barra36 insertarcomentario vercomentarios -barra37 "
              "filacompleta");
    EXPECT_EQ(english.action("abrirnodo")->text(), "");
    EXPECT_EQ(english.action("idioma1")->text(), "Languaje");
    EXPECT_EQ(english.action("archivos")->menu()->title(), "File");

    const MenuBar spanish(Language::Spanish);
    EXPECT_EQ(entriesOf(*spanish.action("idioma1")->menu()), "*español English");
    EXPECT_EQ(spanish.action("nuevo")->text(), "Nuevo ");
}

TEST(MenuBar, ShortcutsOpenOneEntryEach) {
    const MenuBar menus(Language::English);
    const std::pair<const char*, const char*> expected[] = {
        {"nuevo", "Ctrl+N"},   {"abrir", "Ctrl+O"},  {"reciente", "Ctrl+R"}, {"Imprimir", "Ctrl+P"},
        {"explore", "Ctrl+I"}, {"buscar", "Ctrl+S"}, {"explorar", "Ctrl+E"}, {"Parar1", "Ctrl+T"}};
    for (const auto& [name, key] : expected)
        EXPECT_EQ(menus.action(name)->shortcut(), QKeySequence(key)) << name;
    QSet<QKeySequence> seen;
    for (const QAction* entry : menus.findChildren<QAction*>()) {
        for (const QKeySequence& key : entry->shortcuts()) {
            EXPECT_FALSE(key.isEmpty() || seen.contains(key)) << entry->objectName().toStdString();
            seen.insert(key);
        }
    }
}

TEST(MenuBar, AClickLeavesTheMarkToTheProcedure) {
    MenuBar menus(Language::Spanish);
    bool seen = false;
    QObject::connect(menus.action("English"), &QAction::triggered,
                     [&] { seen = menus.action("English")->isChecked(); });
    menus.action("English")->trigger();
    EXPECT_FALSE(seen || menus.action("English")->isChecked());
    EXPECT_TRUE(menus.action("español")->isChecked());

    menus.checkOnly("Iconosgrandes");
    EXPECT_EQ(entriesOf(*menus.action("vistas")->menu()), "*Iconosgrandes Iconospequeños lista Detalle");
    EXPECT_TRUE(menus.action("Pequeño")->isChecked()) << "another submenu";
}

TEST(Captions, KeepTheirBlanksAndSpelling) {
    struct Expected {
        const char16_t *control, *spanish, *english;
    };
    const Expected expected[] = {
        {u"nuevo", u"Nuevo ", u"New"},
        {u"botonescontexto", u"Botones con texto", u"Bottons with text"},
        {u"TabStrip2(1)", u"   Desde el directorio   ", u"    From directory   "},
        {u"TabStrip2(2)", u"       Manualmente       ", u"    Manualy   "},
        {u"TabStrip1(1)", u"Tipo", u" Type  "},
        {u"TabStrip1(5)", u"Notas", u" Notes  "},
        {u"Label9(2)", u"Generar una unidad  manualmente:", u"Generate an unit manualy:"},
        {u"Label10(2)", u"Busqueda por Nota :", u"Search by note:"},
        {u"Label13", u"Entre el :", u"Between:"},
        {u"Label19", u"Selecionar", u"Select"},
        {u"Copiararchivos2", u"Copiar archivos", u"Copy files"},
        {u"Toolbar1(11)(4)", u"Detalle", u"Details"},
    };
    for (const Expected& row : expected) {
        EXPECT_EQ(shell::caption(row.control, Language::Spanish), QString::fromUtf16(row.spanish));
        EXPECT_EQ(shell::caption(row.control, Language::English), QString::fromUtf16(row.english));
    }
    EXPECT_TRUE(shell::caption(u"Toolbar1(3)", Language::English).isNull());
    EXPECT_EQ(shell::toolbarToolTip(9, Language::Spanish), "Estadísticas");
    EXPECT_EQ(shell::toolbarToolTip(9, Language::English), "Statistics");

    QWidget root;
    auto* label = new QLabel("-", &root);
    label->setObjectName("Label9(4)");
    auto* button = new QPushButton("-", &root);
    button->setObjectName("Command6");
    auto* other = new QLabel("-", &root);
    auto* tabs = new QTabBar(&root);
    tabs->setObjectName("TabStrip1");
    tabs->addTab("-");
    tabs->addTab("-");
    shell::applyCaptions(root, Language::English);
    EXPECT_EQ(label->text() + button->text() + other->text() + tabs->tabText(1), "Unit name:OK- Unit  ");
}

TEST(Toolbar, AMousePressLetsUpWhatOnlyProceduresPress) {
    Toolbar toolbar(Language::Spanish);
    toolbar.resize(1000, 50);
    std::vector<int> clicks;
    QObject::connect(&toolbar, &Toolbar::clicked, [&](int button) { clicks.push_back(button); });
    for (const int button : {1, 3, 7, 10, 13}) toolbar.setPressed(button, true);
    click(*toolbar.button(Toolbar::Search));
    EXPECT_EQ(clicks, std::vector<int>{Toolbar::Search});
    EXPECT_FALSE(toolbar.isPressed(1) || toolbar.isPressed(3) || toolbar.isPressed(7) ||
                 toolbar.isPressed(10));
    EXPECT_FALSE(toolbar.isPressed(Toolbar::Search) || toolbar.button(Toolbar::Search)->isChecked());
    EXPECT_TRUE(toolbar.isPressed(Toolbar::Stop)) << "beyond the ten";

    toolbar.setEnabled(Toolbar::Print, false);
    click(*toolbar.button(Toolbar::Print));
    EXPECT_EQ(clicks.size(), 1u);
    EXPECT_EQ(toolbar.button(Toolbar::Separator14), nullptr);
    EXPECT_TRUE(toolbar.findChild<QWidget*>("Toolbar1(14)"));
}

TEST(Toolbar, ShowsItsCaptionsWhereThereIsRoom) {
    for (const Language language : {Language::Spanish, Language::English}) {
        Toolbar toolbar(language);
        QToolButton* button = toolbar.button(Toolbar::Statistics);
        toolbar.setRecent("/home/ana/b.zrq");
        const auto styleAt = [&](int width) {
            toolbar.resize(width, 50);
            QResizeEvent event(toolbar.size(), {});
            QApplication::sendEvent(&toolbar, &event);
            return button->toolButtonStyle();
        };
        EXPECT_EQ(styleAt(790), Qt::ToolButtonTextUnderIcon) << "a window of 800 pixels";
        EXPECT_EQ(styleAt(400), Qt::ToolButtonIconOnly);
        styleAt(790);
        toolbar.hideCaptions();
        EXPECT_EQ(toolbar.caption(Toolbar::Statistics), " ");
        EXPECT_EQ(button->toolButtonStyle(), Qt::ToolButtonIconOnly);
        toolbar.showCaptions();
        EXPECT_EQ(toolbar.caption(9), language == Language::Spanish ? "Estadíst." : "Statistics");
    }
}

TEST(Toolbar, DropDownListsChoose) {
    Toolbar toolbar(Language::English);
    std::vector<int> views;
    int recent = 0;
    QObject::connect(&toolbar, &Toolbar::viewChosen, [&](int view) { views.push_back(view); });
    QObject::connect(&toolbar, &Toolbar::recentChosen, [&] { ++recent; });
    const QList<QAction*> entries = toolbar.button(Toolbar::Views)->menu()->actions();
    ASSERT_EQ(entries.size(), 4);
    for (QAction* entry : entries) entry->trigger();
    EXPECT_EQ(views, (std::vector<int>{1, 2, 3, 4}));
    EXPECT_EQ(entries[1]->text(), "Small icons");

    toolbar.setRecent("/a.zrq");
    toolbar.setRecent("/b & c.zrq");
    ASSERT_EQ(toolbar.button(4)->menu()->actions().size(), 1);
    EXPECT_EQ(toolbar.button(4)->menu()->actions()[0]->text(), "/b && c.zrq");
    toolbar.button(4)->menu()->actions()[0]->trigger();
    EXPECT_EQ(recent, 1);
    toolbar.setRecent({});
    EXPECT_EQ(toolbar.button(4)->menu(), nullptr);
}

TEST(StatusBand, KeepsTheLastTextAndABoundedProgress) {
    StatusBand band;
    band.resize(1000, 30);
    for (int file = 0; file < 1000; ++file) band.setText("  Archivos: " + std::to_string(file));
    EXPECT_EQ(band.text(), "  Archivos: 999");

    band.showProgress(0);
    EXPECT_EQ(band.progress().maximum(), 1);
    band.advanceProgress();
    band.advanceProgress();
    EXPECT_EQ(band.progress().value(), 1);
    EXPECT_FALSE(band.progress().isHidden());
    band.hideProgress();
    EXPECT_TRUE(band.progress().isHidden());
}

TEST(StatusBand, ItsTextFitsAtEveryFontSize) {
    StatusBand band;
    band.setKind("Unidad de archivos varios");
    for (const int points : {8, 10, 12}) {
        band.applyFontSize(points);
        band.resize(1200, band.sizeHint().height());
        QResizeEvent event(band.QWidget::size(), {});
        QApplication::sendEvent(&band, &event);
        for (const char* name : {"Text9", "Label3", "Label2"}) {
            const auto* label = band.findChild<QLabel*>(name);
            EXPECT_GE(label->height(), label->fontMetrics().height()) << name << points;
            EXPECT_LE(label->geometry().bottom(), band.height()) << name << points;
            EXPECT_EQ(label->font().pointSize(), points);
        }
        const auto* kind = band.findChild<QLabel*>("Label2");
        EXPECT_GE(kind->width(), kind->sizeHint().width());
    }
    band.applyFontSize(8);
    EXPECT_EQ(band.findChild<QLabel*>("Text9")->geometry(), QRect(0, 3, 333, 21));
    EXPECT_EQ(band.progress().geometry(), band.findChild<QLabel*>("Label3")->geometry());
    EXPECT_EQ(band.findChild<QLabel*>("Picture16")->geometry(), QRect(470, 3, 27, 21));
}

TEST(Dialogs, FiltersTakeTheToolkitsForm) {
    EXPECT_EQ(shell::toolkitFilter("Archivos de Zarquelin (*.zrq)|*.zrq|"), "Archivos de Zarquelin (*.zrq)");
    EXPECT_EQ(shell::toolkitFilter("Text|*.a;*.b|All (*)|*|"), "Text (*.a *.b);;All (*)");
    EXPECT_EQ(shell::toolkitFilter(""), "");
}

}  // namespace
