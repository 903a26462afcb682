#pragma once

#include <QLabel>

#include "browse/going_up.h"
#include "browse/list_activation.h"
#include "browse/node_click.h"
#include "browse/opening.h"
#include "browse/path_combo.h"
#include "browse/surface.h"
#include "controls/divider.h"
#include "copyback/copy_action.h"
#include "frame/catalogue.h"
#include "frame/enabling.h"
#include "frame/menus.h"
#include "frame/status_band.h"
#include "frame/toolbar.h"
#include "notes/notes_panel.h"
#include "scan/import_panel.h"
#include "search/search_panel.h"
#include "shell/catalogue_actions.h"
#include "shell/cover.h"
#include "shell/maintenance_actions.h"
#include "shell/panes.h"
#include "shell/switching.h"
#include "shell/view_actions.h"
#include "stats/statistics_action.h"

namespace shell {

class Form1;

// The controls of the main window that belong to no room. Children of the window, which deletes them.
struct WindowControls {
    WindowControls(Form1& window, core::Language idioma);

    QWidget* client;  // all but the menu bar
    frame::MenuBar* menus;
    QWidget* frame1;
    frame::Toolbar* toolbar;
    QLabel* label4;
    controls::ImageCombo* imageCombo1;
    controls::TreeView* treeView1;
    lists::ItemList* listView1;
    lists::ItemList* listView2;
    controls::Divider* imgSplitter;
    frame::StatusBand* picture4;
};

// Everything that the main window owns, in the order in which it comes into being.
struct MainWindowParts {
    MainWindowParts(Form1& window, core::Language idioma, frame::Messages& messages, frame::Dialogs& dialogs);

    // What is enabled now follows from the state alone.
    void applyState() { frame::apply(frame::enabledIn(state), *controls.menus, *controls.toolbar); }
    // Title, browse surface and what is enabled.
    void showCatalogueOpen(bool open);
    void resetPanels();
    // The stopped scan's rows stay in the catalogue, which is opened anew to show them.
    void reopenAfterStop();

    // What the rooms' events set off elsewhere.
    [[nodiscard]] browse::OpeningEvents openingEvents();
    [[nodiscard]] scan::ImportEvents importEvents();

    Form1& window;
    WindowControls controls;
    frame::Catalogue catalogue;
    frame::WindowState state;
    int jobs = 0;  // that can be stopped; one may begin while another gives way
    frame::Frame frame;
    lists::RowMemory rowMemory;

    search::SearchPanel* picture1;
    scan::ImportPanel* picture2;
    browse::Surface surface;
    notes::NotesPanel* picture12;
    Panes panes;
    Cover overTree;
    Cover overListView1;

    browse::Opening opening;
    browse::NodeClick nodeClick;
    browse::PathCombo pathCombo;
    browse::GoingUp goingUp;
    browse::ListActivation listActivation;
    Switching switching;
    CatalogueActions catalogueActions;
    MaintenanceActions maintenance;
    ViewActions views;
    stats::StatisticsAction statistics;
};

}  // namespace shell
