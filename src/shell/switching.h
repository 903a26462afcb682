#pragma once

#include "browse/surface.h"

namespace search {
class SearchPanel;
}
namespace scan {
class ImportPanel;
}

namespace shell {

class Panes;

// Which of browsing, search and import is in front. The search panel and its result list cover the tree and
// the browse list; every criterion stays as it was.
class Switching {
  public:
    Switching(browse::Surface& surface, search::SearchPanel& picture1, scan::ImportPanel& picture2,
              Panes& panes)
        : m_surface(surface), m_picture1(picture1), m_picture2(picture2), m_panes(panes) {}

    void buscar1();
    void explorar1();
    void importar1();
    void explore();  // the menu's way to import
    // After the counters were refreshed: the browse surface uncovered.
    void uncoverBrowsing();

  private:
    browse::Surface& m_surface;
    search::SearchPanel& m_picture1;
    scan::ImportPanel& m_picture2;
    Panes& m_panes;
};

}  // namespace shell
