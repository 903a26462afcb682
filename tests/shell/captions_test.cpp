// The menus and captions as the users know them, odd spelling and blanks included.

#include "frame/captions.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>

#include "frame/menus.h"

namespace {

using core::Language;
using frame::MenuBar;

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
    const frame::MenuBar english(Language::English);
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

    const frame::MenuBar spanish(Language::Spanish);
    EXPECT_EQ(entriesOf(*spanish.action("idioma1")->menu()), "*español English");
    EXPECT_EQ(spanish.action("nuevo")->text(), "Nuevo ");
}

TEST(MenuBar, ShortcutsOpenOneEntryEach) {
    const frame::MenuBar menus(Language::English);
    QSet<QKeySequence> seen;
    for (const QAction* entry : menus.findChildren<QAction*>()) {
        for (const QKeySequence& key : entry->shortcuts()) {
            EXPECT_FALSE(key.isEmpty() || seen.contains(key)) << entry->objectName().toStdString();
            seen.insert(key);
        }
    }
}

TEST(Captions, KeepTheirBlanksAndSpelling) {
    EXPECT_EQ(frame::caption(u"TabStrip2(1)", Language::Spanish), "   Desde el directorio   ");
    EXPECT_EQ(frame::caption(u"TabStrip1(1)", Language::English), " Type  ");
    EXPECT_EQ(frame::caption(u"botonescontexto", Language::English), "Bottons with text");
    EXPECT_EQ(frame::caption(u"Label19", Language::Spanish), "Selecionar");
    EXPECT_EQ(frame::toolbarToolTip(9, Language::Spanish), "Estadísticas");
}

}  // namespace
