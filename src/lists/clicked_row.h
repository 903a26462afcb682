#pragma once

#include <string>

namespace lists {

// What the last click on a list item left for double click, menus, notes and copying. Re-listing does not
// clear it. The name, type and index are shared by both lists; unit and path are kept for each.
struct ClickedRow {
    bool filaelegida1 = false;  // an item of ListView1 / ListView2 has been clicked
    bool filaelegida2 = false;
    int indicefila = -1;          // 0-based position of the clicked item; below zero means none
    std::string nodoactual;       // the item's text; shared with the clicked tree node
    std::string tipofilaelegida;  // the type as displayed
    std::string discofila1, rutafila1;
    std::string discofila2, rutafila2;
};

}  // namespace lists
