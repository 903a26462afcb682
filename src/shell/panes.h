#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "frame/layout.h"

namespace shell {

// Where the main window's controls stand: the band of toolbar and path combo, tree and lists around the
// divider, the status band. The panels take the tree's exact place, the second list the first one's.
class Panes {
  public:
    struct Controls {
        QWidget* client;  // the window's inside below the menu bar
        QWidget* frame1;
        QWidget* toolbar;
        QWidget* label4;
        QWidget* imageCombo1;
        QWidget* tree;
        QWidget* splitter;
        QWidget* status;
        std::vector<QWidget*> panels;                        // in the tree's place
        std::vector<QWidget*> lists;                         // the browse list, then what covers it
        std::function<void(const QRect& area)> listsPlaced;  // of the lists when nothing covers them
    };
    explicit Panes(Controls controls) : m_controls(std::move(controls)) {}

    void medidas();                   // lays everything out anew
    void sizeControls(int position);  // the divider was let go at this place, in pixels

    void showBrowsing(bool shown);  // tree, browse list and divider

    // What covers the upper part of the lists while the notes panel slides, in pixels.
    void setListsPushedDown(int pixels);

  private:
    [[nodiscard]] QRect listArea() const;

    Controls m_controls;
    frame::WindowLayout m_layout;
    int m_divider = 4200;  // as the user wants it; a narrow window holds it nearer
    int m_pushedDown = 0;
};

}  // namespace shell
