#include "frame/captions.h"

#include <QAbstractButton>
#include <QHash>
#include <QLabel>
#include <QTabBar>

#include "platform/qtext.h"

namespace frame {

namespace {

constexpr Caption table[] = {
    // clang-format off
    {"filacompleta", {"Seleccionar fila completa", "Full row select"}},
    {"Tamañodefuente", {"Tamaño de fuente", "Font size"}},
    {"Pequeño", {"Pequeño", "Small"}},
    {"Mediano", {"Mediano", "Medium"}},
    {"Grande", {"Grande", "Big"}},
    {"cambiarnombre", {"Cambiar nombre", "Change name"}},
    {"Toolbar1(1)", {"Nuevo", "New"}},
    {"Toolbar1(2)", {"Abrir", "Open"}},
    {"Toolbar1(4)", {"Arriba", "Up"}},
    {"Toolbar1(5)", {"Importar", "Import"}},
    {"Toolbar1(6)", {"Buscar", "Search"}},
    {"Toolbar1(7)", {"Explorar", "Explore"}},
    {"Toolbar1(8)", {"Actualizar", "Refresh"}},
    {"Toolbar1(9)", {"Estadíst.", "Statistics"}},
    {"Toolbar1(10)", {"Eliminar", "Delete"}},
    {"Toolbar1(11)", {"Vistas", "Views"}},
    {"Toolbar1(12)", {"Imprimir", "Print"}},
    {"Toolbar1(13)", {"Parar", "Stop"}},
    {"Toolbar1(15)", {"Salir", "Exit"}},
    {"archivos", {"Archivos", "File"}},
    {"nuevo", {"Nuevo ", "New"}},
    {"abrir", {"Abrir", "Open"}},
    {"reciente", {"Reciente", "Recent"}},
    {"guardar", {"Guardar como ...", "Save as..."}},
    {"cerrar", {"Cerrar", "Close"}},
    {"Imprimir", {"Imprimir", "Print"}},
    {"salir", {"Salir", "Exit"}},
    {"edicion", {"Edición", "Edit"}},
    {"explore", {"Importar", "Import"}},
    {"buscar", {"Buscar", "Search"}},
    {"explorar", {"Explorar", "Explore"}},
    {"borr", {"Eliminar", "Delete"}},
    {"eliminar", {"Eliminar base de datos", "Delete database"}},
    {"borrarunidad1", {"Eliminar unidad", "Delete unit"}},
    {"Parar1", {"Parar", "Stop"}},
    {"actualizar1", {"Actualizar", "Refresh"}},
    {"ver", {"Ver", "View"}},
    {"barradetareas", {"Barra de tareas", "Tool bar"}},
    {"botonescontexto", {"Botones con texto", "Bottons with text"}},
    {"botonessintexto", {"Botones sin texto", "Bottons without text"}},
    {"vistas", {"Vistas", "Views"}},
    {"Iconosgrandes", {"Iconos grandes", "Big icons"}},
    {"Iconospequeños", {"Iconos pequeños", "Small icons"}},
    {"lista", {"Lista", "List"}},
    {"Detalle", {"Detalle", "Details"}},
    {"arriba", {"Subir un nivel", "Up a level"}},
    {"Herramientas", {"Herramientas", "Tools"}},
    {"graficos", {"Estadísticas", "Statistics"}},
    {"compactar", {"Compactar base de datos", "Compact database"}},
    {"reparar", {"Reparar base de datos", "Fix database"}},
    {"ayuda", {"Ayuda", "Help"}},
    {"idioma1", {"Idioma", "Languaje"}},
    {"website", {"Zarquelin en la web", "Zarquelin on the web"}},
    {"soporte", {"Soporte de Zarquelin", "Zarquelin support"}},
    {"feedback", {"Envia tu opinión", "Send your feedback"}},
    {"acerca", {"Acerca de Zarquelin", "About Zarquelin"}},
    {"graficos2", {"Estadísticas", "Statistics"}},
    {"borrarunidad", {"Eliminar", "Delete"}},
    {"Propiedades", {"Propiedades", "Properties"}},
    {"abrirlistitem", {"Abrir", "Open"}},
    {"insertarcomentario", {"Insertar notas", "Insert notes"}},
    {"vercomentarios", {"Ver notas", "See notes"}},
    {"Label4", {"Dirección:", "Path:"}},
    {"Toolbar1(11)(1)", {"Iconos grandes", "Big icons"}},
    {"Toolbar1(11)(2)", {"Iconos pequeños", "Small icons"}},
    {"Toolbar1(11)(3)", {"Lista", "List"}},
    {"Toolbar1(11)(4)", {"Detalle", "Details"}},
    {"Label8", {"Importar registros:", "Import registers:"}},
    {"TabStrip2(1)", {"   Desde el directorio   ", "    From directory   "}},
    {"TabStrip2(2)", {"       Manualmente       ", "    Manualy   "}},
    {"Label9(1)", {"Seleccione el directorio:", "Select the directory:"}},
    {"Label9(2)", {"Generar una unidad  manualmente:", "Generate an unit manualy:"}},
    {"Label9(3)", {"Contenido de la unidad:", "Unit content:"}},
    {"Label9(4)", {"Nombre de la unidad:", "Unit name:"}},
    {"Label19", {"Selecionar", "Select"}},
    {"Label20", {"Catalogar", "Catalog"}},
    {"Label5", {"Buscar", "Search"}},
    {"Label1", {"Busqueda de registros:", "Registers search:"}},
    {"Label12", {"Opciones de busqueda :", "Search options:"}},
    {"TabStrip1(1)", {"Tipo", " Type  "}},
    {"TabStrip1(2)", {"Unidad", " Unit  "}},
    {"TabStrip1(3)", {"Fecha", " Date  "}},
    {"TabStrip1(4)", {"Tamaño", " Size  "}},
    {"TabStrip1(5)", {"Notas", " Notes  "}},
    {"Label10(2)", {"Busqueda por Nota :", "Search by note:"}},
    {"Label10(1)", {"Busqueda por tamaño :", "Search by size:"}},
    {"Label10(0)", {"Busqueda por fecha :", "Search by date:"}},
    {"Label7", {"Busqueda en una unidad :", "Search by unit:"}},
    {"Label6", {"Busqueda por tipo de archivo:", "Search by type:"}},
    {"Label10(3)", {"Busqueda por Nota :", "Search by note:"}},
    {"Label10(4)", {"Busqueda por tamaño :", "Search by size:"}},
    {"Label10(5)", {"Busqueda por fecha :", "Search by date:"}},
    {"Label17", {"Busqueda en una unidad :", "Search by unit:"}},
    {"Label18", {"Busqueda por tipo de archivo:", "Search by type:"}},
    {"Label16", {"Entre :", "Between:"}},
    {"Label15", {"y :", "And:"}},
    {"Label13", {"Entre el :", "Between:"}},
    {"Label14", {"y el :", "And:"}},
    {"Command4", {"Ocultar notas", "Hide notes"}},
    {"Command6", {"Aceptar", "OK"}},
    {"iniciomenu", {"Inicio rapido", "Quick start"}},
    {"Copiararchivos", {"Copiar archivos", "Copy files"}},
    {"Copiararchivos2", {"Copiar archivos", "Copy files"}},
    // The languages call themselves the same in both.
    {"español", {"Español", "Español"}},
    {"English", {"English", "English"}},
    // clang-format on
};

const QHash<QString, core::Bilingual>& textsByName() {
    static const auto built = [] {
        QHash<QString, core::Bilingual> texts;
        for (const Caption& entry : table) texts.insert(platform::qtext(entry.control), entry.text);
        return texts;
    }();
    return built;
}

// The tool tip in Spanish is the whole word where the button has only room for a short one.
constexpr Caption statisticsToolTip = {"Toolbar1(9)", {"Estadísticas", "Statistics"}};

// A screen reader has no use for the blanks that make room for the eye.
void applyTabs(QTabBar& strip, core::Language language) {
    for (int tab = 0; tab < strip.count(); ++tab) {
        const QString text = caption(QStringLiteral("%1(%2)").arg(strip.objectName()).arg(tab + 1), language);
        if (text.isNull()) continue;
        strip.setTabText(tab, text);
        strip.setAccessibleTabName(tab, text.trimmed());
    }
}

template <class Control>
void applyText(const QWidget& root, core::Language language) {
    for (auto* control : root.findChildren<Control*>()) {
        const QString text = caption(control->objectName(), language);
        if (!text.isNull()) control->setText(text);
    }
}

}  // namespace

std::span<const Caption> captions() {
    return table;
}

QString caption(QStringView objectName, core::Language language) {
    const auto found = textsByName().constFind(objectName.toString());
    return found == textsByName().constEnd() ? QString() : platform::qtext(found->in(language));
}

QString toolbarToolTip(int button, core::Language language) {
    const QString name = QStringLiteral("Toolbar1(%1)").arg(button);
    if (name == platform::qtext(statisticsToolTip.control))
        return platform::qtext(statisticsToolTip.text.in(language));
    return caption(name, language);
}

void applyCaptions(QWidget& root, core::Language language) {
    applyText<QLabel>(root, language);
    applyText<QAbstractButton>(root, language);
    for (auto* strip : root.findChildren<QTabBar*>()) applyTabs(*strip, language);
}

}  // namespace frame
