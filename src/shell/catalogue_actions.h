#pragma once

#include <functional>

#include "browse/opening.h"
#include "browse/surface.h"

namespace shell {

class Switching;

// The life of a catalogue file: new, open, recent, from the command line, save as, close.
class CatalogueActions {
  public:
    // `openChanged` shows that a catalogue is open, or that none is.
    CatalogueActions(browse::Surface& surface, browse::Opening& opening, Switching& switching,
                     std::function<void(bool open)> openChanged)
        : m_surface(surface),
          m_opening(opening),
          m_switching(switching),
          m_openChanged(std::move(openChanged)) {}

    void nuevo1();
    void abrir1();
    void reciente1();
    void reopen(const std::string& path);  // reciente1 with a file that is not the last one
    void abrirdesdearchivo();              // the current catalogue was set from the command line
    void guardar();
    void cerrar();

  private:
    void clearSurface();
    void hidePanels();
    void openStateChange();  // up to, but without, Inicio
    void reportFailure(const std::string& source, const std::string& path, const engine::Error& error);

    browse::Surface& m_surface;
    browse::Opening& m_opening;
    Switching& m_switching;
    std::function<void(bool open)> m_openChanged;
};

}  // namespace shell
