#include "browse/opening.h"

#include "browse/showing.h"
#include "core/failure.h"
#include "core/serial_date.h"
#include "core/unit_kinds.h"
#include "frame/catalogue.h"
#include "frame/long_work.h"
#include "frame/pointer.h"
#include "frame/status_band.h"
#include "platform/qtext.h"

namespace browse {
namespace {

using platform::qtext;

constexpr core::Bilingual loadingUnit{"Cargando unidad: ", "Loading unit: "};
constexpr core::Bilingual counting{"  Contando carpetas y archivos ...", "  Counting folders and files ..."};

struct ColumnSpec {
    core::Bilingual caption;
    double width;  // of the list's width; 0 for the columns that are never shown
    Qt::Alignment alignment = Qt::AlignLeft;
};

constexpr ColumnSpec visibleColumns[] = {
    {{"Nombre", "Name"}, 1.0 / 3},         {{"Notas", "Notes"}, 1.0 / 12},
    {{"Tipo", "Type"}, 1.0 / 5},           {{"Tamaño", "Size"}, 1.0 / 5, Qt::AlignRight},
    {{"Modificado", "Modified"}, 1.0 / 5},
};
constexpr double decemberEvening = 38338.999;  // as long as dates are
constexpr ColumnSpec hiddenColumn{{"", ""}, 0};
constexpr ColumnSpec diskColumn{{"Disco", "Disk"}, 1.0 / 5};
constexpr ColumnSpec pathColumn{{"Ruta", "Path"}, 1.0 / 2};

using Units = std::vector<core::UnitItem>;

// Hands over each unit and its picture, which is 0 where its first row bears an unknown word. A unit that
// cannot be read is left out; the result is why. One whose name no statement can carry is left out in
// silence.
template <class Take>
engine::Result<> eachUnit(engine::Database& database, Take take) {
    const auto names = TRY(core::unitNames(database));
    engine::Result<> whole;
    for (const std::string& disco : names) {
        if (const auto tipo = core::unitTipo(database, disco))
            take(disco, core::unitPicture(*tipo));
        else if (!core::isRefusedStatement(tipo.error()))
            whole = std::unexpected(tipo.error());
    }
    return whole;
}

enum class Whereabouts { Hidden, Shown };

// Ten columns; only the search list shows where each row lies.
std::vector<lists::ItemList::Column> columns(core::Language language, Whereabouts whereabouts) {
    std::vector<lists::ItemList::Column> result;
    const auto add = [&](const ColumnSpec& spec) {
        result.push_back({qtext(spec.caption.in(language)), spec.width, spec.alignment});
    };
    for (const ColumnSpec& spec : visibleColumns) add(spec);
    result[3].longest = QStringLiteral("8888888 KB");
    result[4].longest = qtext(core::dateText(decemberEvening));
    for (int column = 6; column <= 8; ++column) add(hiddenColumn);
    add(whereabouts == Whereabouts::Shown ? diskColumn : hiddenColumn);
    add(whereabouts == Whereabouts::Shown ? pathColumn : hiddenColumn);
    return result;
}

}  // namespace

void Opening::setColumns() {
    const core::Language language = m_surface.frame.idioma;
    m_surface.lists.listView1.setColumns(columns(language, Whereabouts::Hidden));
    m_surface.lists.listView2.setColumns(columns(language, Whereabouts::Shown));
    m_surface.lists.listView1.setView(controls::ListView::View::Report);
    m_surface.lists.listView2.setView(controls::ListView::View::Report);
}

void Opening::inicio() {
    const int opening = ++m_openings;
    m_events.begins();
    setColumns();
    frame::yieldToQueue();
    if (opening != m_openings) return;

    m_surface.nombres.blank();
    m_surface.treeView1.clear();  // of what was catalogued meanwhile
    auto database = engine::OpenDatabase(m_surface.frame.catalogue.path());
    m_surface.imageCombo1.clear();
    const auto listed = database ? agregarcombos(*database) : std::unexpected(database.error());
    if (!database) {
        m_surface.estado.indicecombo = 0;
        m_events.unitsListed({});
    }
    if (opening != m_openings) return;
    m_surface.contadores = {};
    if (listed)
        count(*database);
    else
        showFailure(m_surface, listed.error());
}

// What could not be counted is not shown as nothing.
void Opening::count(engine::Database& database) {
    const auto counted = [&] {
        const frame::LongWork work(m_surface.frame, counting);
        return core::countAll(database);
    }();
    if (!counted) return showFailure(m_surface, counted.error());
    m_surface.contadores = *counted;
    writeCounters();
}

void Opening::showUnit(const core::UnitItem& unit) {
    const QString text = qtext(unit.disco);
    m_surface.treeView1.addNode(noNode, text, unit.picture, unit.picture);
    m_surface.imageCombo1.addItem(m_surface.imageCombo1.count() + 1, text, unit.picture);
}

void Opening::addUnit(const core::UnitItem& unit) {
    dropPathItem(m_surface);
    // Another unit was given this name while it was scanned.
    if (m_surface.imageCombo1.findText(qtext(unit.disco), Qt::MatchExactly | Qt::MatchCaseSensitive) >= 0)
        return;
    if (!m_surface.nombres.isUnit(unit.disco))
        m_surface.nombres.addUnit(unit.disco);  // to be browsed at once
    showUnit(unit);
    m_surface.estado.indicecombo = m_surface.imageCombo1.count();
    m_surface.imageCombo1.setSelected(m_surface.estado.indicecombo);
    m_events.unitAdded(unit);
}

engine::Result<> Opening::agregarcombos(engine::Database& database) {
    Units units;
    const auto whole = eachUnit(database, [&](const std::string& disco, int picture) {
        m_surface.nombres.addUnit(disco);
        // A unit whose first row bears an unknown word has no node and no items.
        if (picture != 0) showUnit(units.emplace_back(disco, picture));
        m_surface.frame.status.setText(std::string(loadingUnit.in(m_surface.frame.idioma)) + disco);
    });
    m_events.unitsListed(units);
    m_surface.treeView1.repaintNow();
    m_surface.estado.indicecombo = m_surface.imageCombo1.count();
    if (m_surface.estado.indicecombo > 0) m_surface.imageCombo1.setSelected(1);
    frame::yieldToQueue();
    return whole;
}

void Opening::agregarcombo3() {
    Units units;
    auto database = engine::OpenDatabase(m_surface.frame.catalogue.path());
    const auto whole = database ? eachUnit(*database,
                                           [&](const std::string& disco, int picture) {
                                               if (picture != 0) units.emplace_back(disco, picture);
                                           })
                                : std::unexpected(database.error());
    if (!whole) return showFailure(m_surface, whole.error());
    m_events.unitsListed(units);
}

void Opening::writeCounters() {
    m_surface.frame.status.setText(core::statusText(m_surface.contadores, m_surface.frame.idioma));
}

void Opening::actualizar() {
    const frame::Hourglass hourglass;
    m_surface.treeView1.update();
    m_surface.lists.listView1.update();
    if (auto database = engine::OpenDatabase(m_surface.frame.catalogue.path()))
        count(*database);
    else
        showFailure(m_surface, database.error());
    m_events.totalsCounted();
    m_surface.frame.status.hideProgress();
}

}  // namespace browse
