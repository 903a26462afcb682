#include "browse/opening.h"

#include "browse/tail.h"
#include "controls/qtext.h"
#include "core/serial_date.h"
#include "core/unit_kinds.h"
#include "frame/catalogue.h"
#include "frame/pointer.h"
#include "frame/status_band.h"

namespace browse {
namespace {

using controls::qtext;

constexpr core::Bilingual loadingUnit{"Cargando unidad: ", "Loading unit: "};

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

using Names = std::vector<std::string>;
using Units = std::vector<core::UnitItem>;

// 0 for a unit whose first row bears an unknown word.
int pictureOf(engine::Database& database, const std::string& disco) {
    return core::unitPicture(core::unitTipo(database, disco).value_or(std::string()));
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
    m_surface.nombres.blank();
    m_events.begins();
    setColumns();
    frame::yieldToQueue();

    auto database = engine::OpenDatabase(m_surface.frame.catalogue.path());
    if (database) {
        agregarcombos(*database);
        m_surface.contadores = core::countAll(*database).value_or(core::Counters{});
    } else {
        m_surface.imageCombo1.clear();
        m_surface.estado.indicecombo = 0;
        m_events.unitsListed({});
    }
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

void Opening::agregarcombos(engine::Database& database) {
    m_surface.imageCombo1.clear();
    Units units;
    for (const std::string& disco : core::unitNames(database).value_or(Names{})) {
        m_surface.nombres.addUnit(disco);
        // A unit whose first row bears an unknown word has no node and no items.
        if (const int picture = pictureOf(database, disco)) showUnit(units.emplace_back(disco, picture));
        m_surface.frame.status.setText(std::string(loadingUnit.in(m_surface.frame.idioma)) + disco);
    }
    m_events.unitsListed(units);
    m_surface.treeView1.repaintNow();
    m_surface.estado.indicecombo = m_surface.imageCombo1.count();
    if (m_surface.estado.indicecombo > 0) m_surface.imageCombo1.setSelected(1);
    frame::yieldToQueue();
}

void Opening::agregarcombo3() {
    Units units;
    if (auto database = engine::OpenDatabase(m_surface.frame.catalogue.path()))
        for (const std::string& disco : core::unitNames(*database).value_or(Names{}))
            if (const int picture = pictureOf(*database, disco)) units.emplace_back(disco, picture);
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
        m_surface.contadores = core::countAll(*database).value_or(core::Counters{});
    writeCounters();
    m_events.totalsCounted();
    m_surface.frame.status.hideProgress();
}

}  // namespace browse
