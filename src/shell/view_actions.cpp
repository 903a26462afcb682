#include "shell/view_actions.h"

#include <QAction>
#include <array>

#include "frame/menus.h"
#include "frame/status_band.h"
#include "frame/toolbar.h"

namespace shell {
namespace {

using View = controls::ListView::View;

struct ViewEntry {
    const char* name;
    View view;
};
constexpr std::array<ViewEntry, 4> viewEntries{{
    {"Iconosgrandes", View::LargeIcons},
    {"Iconospequeños", View::SmallIcons},
    {"lista", View::List},
    {"Detalle", View::Report},
}};

struct FontEntry {
    const char* name;
    int points;
};
constexpr std::array<FontEntry, 3> fontEntries{{{"Pequeño", 8}, {"Mediano", 10}, {"Grande", 12}}};

}  // namespace

void ViewActions::setView(int entry) {
    const ViewEntry& chosen = viewEntries.at(entry - 1);
    m_surface.lists.listView1.setView(chosen.view);
    m_surface.lists.listView2.setView(chosen.view);
    m_surface.frame.menus.checkOnly(QString::fromUtf8(chosen.name));
}

void ViewActions::cycleView() {
    m_cycle = m_cycle % static_cast<int>(viewEntries.size()) + 1;
    setView(m_cycle);
}

void ViewActions::setFontSize(int points) {
    for (QWidget* control :
         std::initializer_list<QWidget*>{&m_surface.treeView1, &m_surface.lists.listView1,
                                         &m_surface.lists.listView2, &m_surface.imageCombo1}) {
        QFont font = control->font();
        font.setPointSize(points);
        control->setFont(font);
    }
    m_surface.frame.status.applyFontSize(points);
    for (const FontEntry& entry : fontEntries)
        if (entry.points == points) m_surface.frame.menus.checkOnly(QString::fromUtf8(entry.name));
}

void ViewActions::toggleFullRow() {
    setFullRow(!m_surface.frame.menus.action(QStringLiteral("filacompleta"))->isChecked());
}

void ViewActions::setFullRow(bool full) {
    m_surface.frame.menus.setChecked(QStringLiteral("filacompleta"), full);
    m_surface.lists.listView1.setFullRowSelect(full);
    m_surface.lists.listView2.setFullRowSelect(full);
}

void ViewActions::showToolbarTexts(bool shown) {
    if (shown)
        m_surface.frame.toolbar.showCaptions();
    else
        m_surface.frame.toolbar.hideCaptions();
    m_surface.frame.menus.checkOnly(shown ? QStringLiteral("botonescontexto")
                                          : QStringLiteral("botonessintexto"));
}

}  // namespace shell
