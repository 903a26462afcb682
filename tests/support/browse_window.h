#pragma once

#include <QMainWindow>
#include <string>
#include <vector>

#include "browse/node_click.h"
#include "browse/opening.h"
#include "platform/jet/maintenance.h"
#include "scan/row_writer.h"
#include "scan/scan_request.h"
#include "scan/walker.h"
#include "shell/frame/catalogue.h"
#include "shell/frame/menus.h"
#include "shell/frame/status_band.h"
#include "shell/frame/toolbar.h"
#include "support/mounted_discs.h"
#include "support/recording_messages.h"
#include "support/scripted_dialogs.h"

namespace test {

// The controls that browsing works on, in a bare window, over a catalogue made by scanning real discs.
class BrowseWindow : browse::OpeningHost {
  public:
    explicit BrowseWindow(core::Language idioma)
        : menus(idioma, &window),
          toolbar(idioma, &window),
          status(&window),
          frame{idioma, catalogue, messages, dialogs, menus, toolbar, status},
          tree(&window),
          combo1(controls::ImageCombo::Typing::Yes, &window),
          combo3(controls::ImageCombo::Typing::No, &window),
          list1(&window),
          list2(&window),
          surface{frame, tree, combo1, combo3, {list1, list2}, {}, {}, {}, {}} {
        window.resize(1000, 600);
        list1.setGeometry(300, 80, 690, 400);
        list2.setGeometry(300, 80, 690, 400);
        list2.hide();
        catalogue.setPath(m_folder / "test.zrq");
        jet::CreateDatabase(catalogue.path()).value();
    }

    void scan(const std::string& unit, const std::string& nativeFolder) {
        struct Silent : scan::WalkObserver {
            void started(std::int64_t) override {}
            void status(const scan::Counts&) override {}
            void topLevelDone() override {}
            bool yield(scan::RowWriter&) override { return false; }
        } observer;
        auto database = jet::OpenDatabase(catalogue.path()).value();
        scan::RowWriter rows(database);
        (void)scan::Walker(rows, observer, scan::walkStart({unit, nativeFolder}, database, discs())).run();
    }

    // Opens the catalogue and clicks on the unit.
    void browse(const std::string& unit) {
        tree.clear();
        browse::Opening(surface, *this).inicio();
        for (browse::Node node = tree.nodes().firstChild(browse::noNode); node != browse::noNode;
             node = tree.nodes().nextSibling(node))
            if (tree.nodes().text(node).toStdString() == unit + " :") {
                tree.setSelected(node);
                browse::NodeClick(surface).click(node);
            }
    }

    static std::vector<std::string> names(const browse::ItemList& list) {
        std::vector<std::string> all;
        for (int i = 0; i < list.count(); ++i) all.push_back(list.text(i).toStdString());
        return all;
    }

    MountedDiscs discs;
    QMainWindow window;
    shell::Catalogue catalogue;
    RecordingMessages messages;
    ScriptedDialogs dialogs;
    shell::MenuBar menus;
    shell::Toolbar toolbar;
    shell::StatusBand status;
    shell::Frame frame;
    controls::TreeView tree;
    controls::ImageCombo combo1, combo3;
    browse::ItemList list1, list2;
    browse::Surface surface;

  private:
    void resetPanels() override {}
    void layOutPanes() override {}
    void selectFirstType() override {}

    TemporaryFolder m_folder;
};

}  // namespace test
