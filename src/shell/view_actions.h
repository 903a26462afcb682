#pragma once

#include "browse/surface.h"

namespace shell {

// How the lists look: view, font size, full-row selection, and the toolbar's texts.
class ViewActions {
  public:
    explicit ViewActions(browse::Surface& surface) : m_surface(surface) {}

    // 1 large icons, 2 small icons, 3 list, 4 report: the order of the menu.
    void setView(int entry);
    void showReport() { setView(4); }
    void cycleView();  // the next of the four; starts with large icons
    void resetCycle() { m_cycle = 0; }

    void setFontSize(int points);  // 8, 10 or 12
    void setFullRow(bool full);
    void toggleFullRow();  // `filacompleta`
    void showToolbarTexts(bool shown);

  private:
    browse::Surface& m_surface;
    int m_cycle = 0;
};

}  // namespace shell
