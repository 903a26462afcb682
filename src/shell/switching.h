#pragma once

#include "browse/surface.h"

namespace search {
class SearchPanel;
}
namespace scan {
class ImportPanel;
}
namespace notes {
class NotesPanel;
}
namespace browse {
class Opening;
}

namespace shell {

class Panes;

// Which of browsing, search and import is in front. The search panel and its result list cover the tree and
// the browse list; every criterion stays as it was.
class Switching {
  public:
    Switching(browse::Surface& surface, browse::Opening& opening, search::SearchPanel& picture1,
              scan::ImportPanel& picture2, notes::NotesPanel& picture12, Panes& panes)
        : m_surface(surface),
          m_opening(opening),
          m_picture1(picture1),
          m_picture2(picture2),
          m_picture12(picture12),
          m_panes(panes) {}

    void buscar1();
    void explorar1();
    void importar1();
    void importFromMenu();
    void showSearchPanel();  // without its list and the focus
    void pressWhatIsSeen();  // the button of the panel in front, or of browsing
    void endScan();          // of this catalogue, in silence; its rows stay
    void hidePanels();       // search, import and notes panels, search list
    // After the counters were refreshed: the browse surface uncovered.
    void uncoverBrowsing();

  private:
    browse::Surface& m_surface;
    browse::Opening& m_opening;
    search::SearchPanel& m_picture1;
    scan::ImportPanel& m_picture2;
    notes::NotesPanel& m_picture12;
    Panes& m_panes;
};

}  // namespace shell
