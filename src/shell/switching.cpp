#include "shell/switching.h"

#include "browse/opening.h"
#include "frame/toolbar.h"
#include "notes/notes_panel.h"
#include "scan/import_panel.h"
#include "search/search_panel.h"
#include "shell/panes.h"

namespace shell {

void Switching::buscar1() {
    m_picture1.setTabOrder();
    showSearchPanel();
    m_surface.lists.listView2.show();
    m_surface.lists.listView2.raise();
    m_surface.frame.toolbar.setPressed(frame::Toolbar::Search, true);
    m_picture1.focusCombo2();
}

void Switching::explorar1() {
    QWidget::setTabOrder(&m_surface.treeView1, &m_surface.lists.listView1);
    m_surface.treeView1.setFocus();
    uncoverBrowsing();
    m_surface.frame.toolbar.setPressed(frame::Toolbar::Explore, true);
}

void Switching::importar1() {
    m_surface.frame.toolbar.setPressed(frame::Toolbar::Import, true);
    m_opening.actualizar();
    m_picture1.hide();
    m_picture2.show();
    m_picture2.raise();
    m_surface.lists.listView1.clear();
    m_surface.lists.listView2.hide();
    m_picture2.enter();
}

void Switching::importFromMenu() {
    m_surface.frame.toolbar.releaseAll(frame::Toolbar::New, frame::Toolbar::Separator14);
    importar1();
}

void Switching::showSearchPanel() {
    m_picture2.hide();
    m_panes.medidas();
    m_picture1.show();
    m_picture1.raise();
}

void Switching::pressWhatIsSeen() {
    const auto button = m_picture1.isVisible()   ? frame::Toolbar::Search
                        : m_picture2.isVisible() ? frame::Toolbar::Import
                                                 : frame::Toolbar::Explore;
    m_surface.frame.toolbar.setPressed(button, true);
}

void Switching::endScan() {
    m_picture2.abandon();
}

void Switching::hidePanels() {
    uncoverBrowsing();
    m_picture12.closeAtOnce();
}

void Switching::uncoverBrowsing() {
    m_picture2.hide();
    m_picture1.hide();
    m_surface.lists.listView2.hide();
}

}  // namespace shell
