#include "shell/maintenance_actions.h"

#include <type_traits>

#include "browse/showing.h"
#include "core/catalogue_file.h"
#include "core/failure.h"
#include "core/maintenance.h"
#include "core/text.h"
#include "core/unit_name.h"
#include "engine/maintenance.h"
#include "frame/catalogue.h"
#include "frame/long_work.h"
#include "frame/status_band.h"
#include "frame/toolbar.h"
#include "platform/qtext.h"
#include "scan/scan_request.h"
#include "search/search_panel.h"
#include "shell/switching.h"

namespace shell {
namespace {

using platform::qtext;

constexpr core::Bilingual compacting{"  Compactando el catálogo ...", "  Compacting the catalogue ..."};
constexpr core::Bilingual repairing{"  Reparando el catálogo ...", "  Repairing the catalogue ..."};
constexpr core::Bilingual keptAs{"  Reparado. El archivo dañado se conserva como ",
                                 "  Repaired. The damaged file is kept as "};
constexpr core::Bilingual deleting{"  Eliminando ...", "  Deleting ..."};
constexpr core::Bilingual renaming{"  Cambiando el nombre de la unidad ...", "  Renaming the unit ..."};
constexpr core::Bilingual eraseAll{"¿Desea realmente eliminar la totalidad de la base de datos?",
                                   "Do you really want to erase de complete database?"};
constexpr core::Bilingual reallySure{"¿Está completamente seguro?", "Are you completely sure?"};
constexpr core::Bilingual eraseUnit{"¿Desea realmente eliminar la unidad ", "Do you really want to erase "};
constexpr core::Bilingual fromRegistry{" del registro?", " from registry?"};
constexpr core::Bilingual nameExists{"Ya existe una unidad con dicho nombre,por favor elija otro. ",
                                     "There is a unit with this name, please choose another. "};

// The engine takes no notice of case: what it does to a unit it does to every spelling of the name.
lists::ItemStore::Units spellingsOf(const std::string& disco) {
    return [name = core::lowerCase(disco)](std::string_view other) { return core::lowerCase(other) == name; };
}

// Does something to all or many rows, which can take a while.
template <class Change>
std::invoke_result_t<Change, engine::Database&> change(frame::Frame& frame, const core::Bilingual& what,
                                                       const Change& change) {
    const frame::LongWork work(frame, what);
    auto database = TRY(engine::OpenDatabase(frame.catalogue.path()));
    return change(database);
}

}  // namespace

// No message comes from either, worked or not; a failure stands in the status line.
void MaintenanceActions::compactar() {
    const auto compacted = [this] {
        frame::LongWork work(m_surface.frame, compacting);
        work.closeMenu();
        return core::compactCatalogue(m_surface.frame.catalogue.path());
    }();
    if (!compacted) browse::showFailure(m_surface, compacted.error());
}

void MaintenanceActions::reparar() {
    const auto repaired = [this] {
        frame::LongWork work(m_surface.frame, repairing);
        work.closeMenu();
        return engine::RepairDatabase(m_surface.frame.catalogue.path());
    }();
    if (!repaired) return browse::showFailure(m_surface, repaired.error());
    if (!repaired->empty()) showRepaired(*repaired);
}

// What is shown comes from the damaged file, or could not be read from it.
void MaintenanceActions::showRepaired(const std::string& damaged) {
    m_surface.estado.dejarCarga();
    m_surface.lists.listView1.clear();
    m_surface.lists.listView2.clear();
    m_surface.clic.indicefila = -1;
    m_opening.inicio();
    m_surface.frame.status.setText(std::string(keptAs.in(m_surface.frame.idioma)) +
                                   damaged.substr(damaged.rfind('/') + 1));
}

void MaintenanceActions::tell(const engine::Error& error) {
    const frame::Frame& frame = m_surface.frame;
    m_surface.frame.messages.show(qtext(core::failureMessage(frame.catalogue.path(), error, frame.idioma)));
}

bool MaintenanceActions::confirmed(const core::Bilingual& question) {
    return m_surface.frame.messages.askYesNo(qtext(question.in(m_surface.frame.idioma)));
}

void MaintenanceActions::eliminar() {
    if (!confirmed(eraseAll) || !confirmed(reallySure)) return;
    m_switching.endScan();  // whose rows to come would be none of those erased
    const auto erased = change(m_surface.frame, deleting, core::deleteAll);
    if (!erased) return tell(erased.error());
    emptySurface();
}

void MaintenanceActions::emptySurface() {
    m_surface.estado.dejarCarga();
    m_surface.lists.listView1.clear();
    m_surface.lists.listView2.clear();
    m_surface.clic.indicefila = -1;
    m_surface.treeView1.clear();
    m_surface.nombres.blank();
    m_surface.imageCombo1.clear();
    m_surface.estado.indicecombo = 0;
    m_switching.hidePanels();
    m_surface.frame.toolbar.setPressed(frame::Toolbar::New, false);
    m_surface.frame.toolbar.setPressed(frame::Toolbar::Explore, true);
    m_picture1.setUnits({});
    m_surface.contadores = {};
    m_surface.frame.status.blank();
    m_surface.frame.status.setText(core::emptiedStatus);
}

void MaintenanceActions::borrarunidad() {
    const browse::Node node = m_surface.treeView1.selected();
    if (node == browse::noNode || !m_surface.isUnit(node)) return;
    const core::Language idioma = m_surface.frame.idioma;
    const QString question =
        qtext(eraseUnit.in(idioma)) + m_surface.treeView1.nodes().text(node) + qtext(fromRegistry.in(idioma));
    if (!m_surface.frame.messages.askYesNo(question)) return;

    const auto erased = change(m_surface.frame, deleting, [&](engine::Database& database) {
        return core::deleteUnit(database, m_surface.nodeText(node));
    });
    if (!erased) return browse::showFailure(m_surface, erased.error());
    removeSelectedUnit(node);
    m_opening.actualizar();
}

void MaintenanceActions::removeSelectedUnit(browse::Node unit) {
    const auto gone = spellingsOf(m_surface.nodeText(unit));
    m_surface.lists.listView1.clear();
    m_surface.lists.listView2.removeUnits(gone);
    lists::ClickedRow& clic = m_surface.clic;
    if (gone(m_surface.lists.searchShown() ? clic.discofila2 : clic.discofila1)) clic.indicefila = -1;
    m_surface.frame.status.blank();  // told of this unit
    browse::dropPathItem(m_surface);
    forgetUnits(gone);
    m_surface.treeView1.remove(unit);  // was it a folder that bears the unit's name?
    m_surface.imageCombo1.setText(QString());
}

void MaintenanceActions::forgetUnits(const lists::ItemStore::Units& gone, browse::Node kept) {
    const controls::TreeModel& nodes = m_surface.treeView1.nodes();
    browse::Node next = browse::noNode;
    for (browse::Node root = nodes.firstChild(browse::noNode); root != browse::noNode; root = next) {
        next = nodes.nextSibling(root);
        const QString disco = nodes.text(root);
        if (root == kept || !gone(disco.toStdString())) continue;
        if (m_surface.estado.cargando == root) m_surface.estado.dejarCarga();
        m_surface.treeView1.remove(root);
        m_surface.nombres.removeUnit(disco.toStdString());
        m_surface.imageCombo1.removeItem(
            m_surface.imageCombo1.findText(disco, Qt::MatchExactly | Qt::MatchCaseSensitive) + 1);
        m_picture1.removeUnit(disco.toStdString());
    }
    m_surface.estado.indicecombo = m_surface.imageCombo1.count();
}

bool MaintenanceActions::isShown(const std::string& disco) const {
    const auto isIt = spellingsOf(disco);
    const controls::TreeModel& nodes = m_surface.treeView1.nodes();
    browse::Node root = nodes.firstChild(browse::noNode);
    while (root != browse::noNode && !isIt(nodes.text(root).toStdString())) root = nodes.nextSibling(root);
    return root != browse::noNode;
}

void MaintenanceActions::cambiarnombre() {
    const browse::Node node = m_surface.treeView1.selected();
    if (node != browse::noNode && m_surface.isUnit(node)) m_surface.treeView1.editLabel(node);
}

bool MaintenanceActions::rename(browse::Node unit, const QString& newText) {
    const QString disco = m_surface.treeView1.nodes().text(unit);
    const std::string typed = newText.toStdString();
    const auto tellTaken = [this] {
        m_surface.frame.messages.show(qtext(nameExists.in(m_surface.frame.idioma)));
        return false;
    };
    if (core::nameTaken(m_surface.nombres.listanivel(1), typed)) return tellTaken();
    const auto done =
        change(m_surface.frame, renaming, [&](engine::Database& database) -> engine::Result<std::string> {
            engine::Transaction whole(database);
            TRY(whole.begin());
            // Another program's unit, which nobody here has seen, is not to be merged with this one.
            if (!isShown(core::discoOf(typed)) && TRY(scan::unitExists(database, typed)))
                return std::unexpected(engine::Error{engine::error::fileExists, typed});
            auto renamed = TRY(core::renameUnit(database, disco.toStdString(), typed));
            TRY(whole.commit());
            return renamed;
        });
    if (!done && done.error().number == engine::error::fileExists) return tellTaken();
    if (!done) {
        tell(done.error());
        return false;
    }
    showRenamed(unit, disco, qtext(*done));
    return true;
}

void MaintenanceActions::showRenamed(browse::Node unit, const QString& disco, const QString& renamed) {
    if (m_surface.estado.cargando == unit) m_surface.estado.dejarCarga();
    m_surface.treeView1.setText(unit, renamed);
    // Its folders stand in the name lists under the old name: the next click loads them anew.
    while (m_surface.treeView1.nodes().childCount(unit) > 0)
        m_surface.treeView1.remove(m_surface.treeView1.nodes().firstChild(unit));
    const auto moved = spellingsOf(disco.toStdString());
    browse::dropPathItem(m_surface);
    // Units of one name have become one.
    forgetUnits([&](std::string_view other) { return moved(other) || other == renamed.toStdString(); }, unit);
    m_surface.nombres.removeUnit(disco.toStdString());
    m_surface.nombres.addUnit(renamed.toStdString());
    m_surface.lists.listView2.renameUnits(moved, renamed);
    for (std::string* clicked : {&m_surface.clic.discofila1, &m_surface.clic.discofila2})
        if (moved(*clicked)) *clicked = renamed.toStdString();
    if (const int number = m_surface.imageCombo1.findText(disco) + 1; number > 0)
        m_surface.imageCombo1.setItemText(number, renamed);
    m_opening.agregarcombo3();
}

}  // namespace shell
