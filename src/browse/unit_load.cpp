#include "browse/unit_load.h"

#include <array>

#include "browse/showing.h"
#include "core/catalogue_file.h"
#include "engine/unit_copy.h"
#include "frame/pointer.h"
#include "frame/status_band.h"
#include "platform/files.h"
#include "platform/qtext.h"

namespace browse {
namespace {

// Adds the folders to the tree as the loader finds them.
class TreeFiller : public FolderSink {
  public:
    TreeFiller(Surface& surface, Node unit, const std::string& disco, UnitLoad::Names names)
        : m_surface(surface), m_disco(disco), m_names(names) {
        m_open[0] = unit;
    }

    bool yieldAndTestStop() override {
        frame::yieldToQueue();
        const BrowseState& estado = m_surface.estado;
        // Whatever took the unit's node away during the yield has said so.
        return estado.cargaparada || estado.cargando != m_open[0];
    }

    void addFolder(int nivel, std::string_view carpeta) override {
        if (m_names == UnitLoad::Names::Learn) m_surface.nombres.addFolder(nivel + 1, m_disco, carpeta);
        m_open[nivel] = m_surface.treeView1.addNode(m_open[nivel - 1], platform::qtext(carpeta), 2, 3);
        m_surface.frame.status.advanceProgress();
    }

  private:
    Surface& m_surface;
    const std::string& m_disco;
    UnitLoad::Names m_names;
    std::array<Node, 12> m_open{};  // the node added last at each `nivel`, the unit at 0
};

// The unit is the one being loaded for as long as the object lives.
class Turn {
  public:
    Turn(Surface& surface, Node unit) : m_surface(surface) {
        m_surface.estado.cargando = unit;
        m_surface.estado.cargaparada = false;
    }
    ~Turn() {
        m_surface.estado.cargando = noNode;
        m_surface.estado.cargaparada = true;
        m_surface.frame.status.hideProgress();
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

  private:
    Surface& m_surface;
};

}  // namespace

UnitLoad::UnitLoad(Surface& surface, Node unit, std::string disco, Names names)
    : m_surface(surface), m_unit(unit), m_disco(std::move(disco)), m_names(names) {}

std::optional<LoadEnd> UnitLoad::fromCatalogue(engine::Database& database) {
    const Turn turn(m_surface, m_unit);
    return from(database, FirstLevel::FoldersOnly);
}

std::optional<LoadEnd> UnitLoad::from(engine::Database& database, FirstLevel first) {
    auto all = database.OpenRecordset(allFoldersOf(m_disco));
    m_surface.frame.status.showProgress(all ? static_cast<int>(all->RecordCount()) : 1);
    m_surface.frame.status.setProgress(1);
    const controls::TreeView::Filling filling(m_surface.treeView1);
    TreeFiller filler(m_surface, m_unit, m_disco, m_names);
    const auto end = loadFolders(database, m_disco, first, filler);
    if (end) return *end;
    removeFolders();
    showFailure(m_surface, end.error());
    return std::nullopt;
}

// A unit without folders counts as not loaded.
void UnitLoad::removeFolders() {
    const controls::TreeModel& nodes = m_surface.treeView1.nodes();
    if (!nodes.contains(m_unit)) return;
    while (const Node last = nodes.lastChild(m_unit)) m_surface.treeView1.remove(last);
}

std::optional<LoadEnd> UnitLoad::fromWorkingCopy(const std::string& cataloguePath) {
    const Turn turn(m_surface, m_unit);
    const std::string copyPath = core::scratchPath(cataloguePath);
    if (!copyPath.empty()) {
        TreeFiller untilStopped(m_surface, m_unit, m_disco, m_names);
        auto copy = engine::CopyUnit(cataloguePath, copyPath, m_disco,
                                     [&] { return !untilStopped.yieldAndTestStop(); });
        if (copy) {
            std::optional<LoadEnd> end = LoadEnd::Stopped;
            if (*copy) {
                // On the copy's own handle: what is deleted here cannot be deleted from the catalogue.
                (void)(*copy)->Execute("delete * from datos where disco<>('" + m_disco + "') ");
                end = from(**copy, FirstLevel::NoFiles);
            }
            if (end == LoadEnd::Stopped && m_surface.estado.cargando == m_unit) return end;
            if (*copy) (*copy)->Close();
            (void)platform::DeleteFile(copyPath);
            return end;
        }
    }
    auto catalogue = engine::OpenDatabase(cataloguePath, engine::Use::ReadOnly);
    if (catalogue) return from(*catalogue, FirstLevel::NoFiles);
    showFailure(m_surface, catalogue.error());
    return std::nullopt;
}

}  // namespace browse
