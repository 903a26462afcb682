#pragma once

#include "browse/opening.h"
#include "browse/surface.h"

namespace shell {

// What opening and closing a catalogue needs of the window itself.
class CatalogueWindow {
  public:
    virtual ~CatalogueWindow() = default;
    virtual void setCatalogueOpen(bool open) = 0;    // menu entries and toolbar buttons
    virtual void showBrowseSurface(bool shown) = 0;  // tree, browse list, band, divider
    virtual void hidePanels() = 0;                   // search, import and notes panels, search list
    virtual void showSearchPanel() = 0;              // in the tree's place
    virtual void endScan() = 0;                      // of this catalogue, in silence; its rows stay
    virtual void setCaption(const QString& caption) = 0;
};

// The life of a catalogue file: new, open, recent, from the command line, save as, close.
class CatalogueActions {
  public:
    CatalogueActions(browse::Surface& surface, browse::Opening& opening, CatalogueWindow& window)
        : m_surface(surface), m_opening(opening), m_window(window) {}

    void nuevo1();
    void abrir1();
    void reciente1();
    void abrirdesdearchivo();  // the current catalogue was set from the command line
    void guardar();
    void cerrar();

  private:
    void clearSurface();
    void hidePanels();
    void openStateChange();  // up to, but without, Inicio
    void rememberAsLast();
    void reportFailure(const std::string& path, const std::string& reason);

    browse::Surface& m_surface;
    browse::Opening& m_opening;
    CatalogueWindow& m_window;
};

}  // namespace shell
