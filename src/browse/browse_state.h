#pragma once

#include <string>

namespace browse {

// Where the user is, as the clicks on tree, path combo and lists leave it. There is no other model of the
// location.
struct BrowseState {
    std::string discoactual;     // unit of the node listed
    std::size_t largodisco = 0;  // length of discoactual
    int nivelactual = 0;         // depth listed: 1 a unit, 2 to 11 a folder; the `nivel` of the rows shown
    std::string rutaactual;      // path combo's text without the unit, as the last folder summary took it
    bool nodopulsado = false;    // a node was clicked in this run; going up waits for it
    bool cargaparada = true;     // no load of a unit is running, or the user stopped it
    int cargando = 0;            // the node of the unit whose folders are being loaded; 0 for none
    int porCargar = 0;           // the node of the unit to load after it: the one clicked last
    int listados = 0;            // how often another node was listed
    bool hijosnodo = false;      // the clicked node had children when it was clicked
    int indicecombo = 0;         // number of unit items in ImageCombo1; the next one is the path

    // The user's stop leaves the half of a unit that is in the tree.
    void pararCarga() {
        cargaparada = true;
        porCargar = 0;
    }
    // The unit's node, or what stood under it, has gone.
    void dejarCarga() { cargando = porCargar = 0; }
};

}  // namespace browse
