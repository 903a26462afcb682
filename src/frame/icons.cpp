#include "frame/icons.h"

#include <string_view>

#include "controls/pictures.h"

namespace frame {

namespace {

struct IconName {
    std::u16string_view control;
    const char* icon;  // a freedesktop name
};

constexpr IconName iconNames[] = {
    {u"Toolbar1(1)", "document-new"},
    {u"Toolbar1(2)", "document-open"},
    {u"Toolbar1(4)", "go-up"},
    {u"Toolbar1(5)", "document-import"},
    {u"Toolbar1(6)", "edit-find"},
    {u"Toolbar1(7)", "view-list-tree"},
    {u"Toolbar1(8)", "view-refresh"},
    {u"Toolbar1(9)", "view-statistics"},
    {u"Toolbar1(10)", "edit-delete"},
    {u"Toolbar1(11)", "view-list-icons"},
    {u"Toolbar1(11)(1)", "view-list-icons"},
    {u"Toolbar1(11)(2)", "view-list-text"},
    {u"Toolbar1(11)(3)", "view-file-columns"},
    {u"Toolbar1(11)(4)", "view-list-details"},
    {u"Toolbar1(12)", "document-print"},
    {u"Toolbar1(13)", "process-stop"},
    {u"Toolbar1(15)", "application-exit"},

    {u"nuevo", "document-new"},
    {u"abrir", "document-open"},
    {u"reciente", "document-open-recent"},
    {u"guardar", "document-save-as"},
    {u"cerrar", "document-close"},
    {u"Imprimir", "document-print"},
    {u"salir", "application-exit"},
    {u"explore", "document-import"},
    {u"buscar", "edit-find"},
    {u"explorar", "view-list-tree"},
    {u"borr", "edit-delete"},
    {u"Parar1", "process-stop"},
    {u"actualizar1", "view-refresh"},
    {u"Copiararchivos", "edit-copy"},
    {u"Tamañodefuente", "format-font-size-more"},
    {u"vistas", "view-list-icons"},
    {u"arriba", "go-up"},
    {u"graficos", "view-statistics"},
    {u"compactar", "archive-insert"},
    {u"reparar", "tools-wizard"},
    {u"idioma1", "preferences-desktop-locale"},
    {u"soporte", "help-contents"},
    {u"website", "internet-services"},
    {u"feedback", "mail-send"},
    {u"acerca", "help-about"},

    {u"abrirnodo", "folder-open"},
    {u"cambiarnombre", "edit-rename"},
    {u"graficos2", "view-statistics"},
    {u"borrarunidad", "edit-delete"},
    {u"Propiedades", "document-properties"},
    {u"abrirlistitem", "document-open"},
    {u"Copiararchivos2", "edit-copy"},
    {u"insertarcomentario", "document-edit"},
    {u"vercomentarios", "document-preview"},
};

}  // namespace

QIcon iconOf(QStringView control) {
    for (const IconName& entry : iconNames) {
        if (control == QStringView(entry.control)) return controls::actionIcon(QLatin1String(entry.icon));
    }
    return {};
}

}  // namespace frame
