#include "stats/statistics_action.h"

#include "core/failure.h"
#include "frame/catalogue.h"
#include "frame/frame.h"
#include "frame/pointer.h"
#include "frame/status_band.h"
#include "frame/toolbar.h"
#include "platform/qtext.h"
#include "stats/statistics_window.h"

namespace stats {
namespace {

constexpr core::Bilingual working{" Generando Estadísticas ... ", " Genering Statistics ... "};
constexpr core::Bilingual tooManyFiles{"Más de 32767 archivos: las cifras las da «zarquelin-cli stats».",
                                       "More than 32767 files: zarquelin-cli stats tells the figures."};

// The errors of the procedure itself; the rest are the engine's.
constexpr int noSelection = 91;
constexpr int noSuchItem = 35600;

// A folder's unit is read from the list that shows its content, not from the tree.
engine::Result<Scope> scopeOf(const Selection& selection) {
    if (selection.isUnit) return Scope{*selection.node, std::nullopt};
    if (!selection.firstListedUnit) return std::unexpected(engine::Error{noSuchItem, "the list is empty"});
    return Scope{*selection.firstListedUnit, selection.rutaactual};
}

}  // namespace

StatisticsAction::StatisticsAction(frame::Frame& frame, QWidget* window) : m_frame(frame), m_parent(window) {}

void StatisticsAction::graficar1(const Selection& selection, core::Counters& counters) {
    std::optional<frame::Hourglass> hourglass(std::in_place);
    auto database = engine::OpenDatabase(m_frame.catalogue.path(), engine::Use::ReadOnly);
    if (!database) return explain(database.error());

    if (!selection.treeIsEmpty) {
        const auto shown = showScope(*database, selection);
        if (!shown) return explain(shown.error());
        if (!*shown) {
            database->Close();
            m_frame.status.setProgress(0);
            m_frame.status.hideProgress();
            hourglass.reset();  // the box is answered with an ordinary pointer
            m_frame.messages.show(platform::qtext(noFiles.in(m_frame.idioma)));
            return;
        }
    }
    rewriteTotals(*database, counters);
}

// Counts the selected node's scope and shows the window; false when it holds no files.
engine::Result<bool> StatisticsAction::showScope(engine::Database& database, const Selection& selection) {
    if (!selection.node) return std::unexpected(engine::Error{noSelection, "no node is selected"});

    form().setScopeTitle(scopeTitle(m_frame.idioma, selection.place));
    m_frame.status.showProgress(static_cast<int>(categoryCount));
    m_frame.status.setText(working.in(m_frame.idioma));

    const auto scope = TRY(scopeOf(selection));
    const auto statistics =
        TRY(countScope(database, scope, TotalLimit::Window, [this] { m_frame.status.advanceProgress(); }));
    if (statistics.totalarchivos < 1) return false;

    form().setStatistics(statistics, scope);
    form().setWindowState(form().windowState() & ~Qt::WindowMinimized);
    form().show();
    form().raise();
    m_frame.status.hideProgress();
    if (!selection.isUnit) m_frame.toolbar.setPressed(frame::Toolbar::Search, false);
    return true;
}

Form4& StatisticsAction::form() {
    if (!m_form) m_form = new Form4(m_frame.idioma, m_frame.dialogs, m_parent);
    return *m_form;
}

// Nothing is said aloud of what went wrong, but whoever points at the line learns it.
void StatisticsAction::explain(const engine::Error& error) {
    if (error.number == overflow)
        m_frame.status.explainText(tooManyFiles.in(m_frame.idioma));
    else if (error.number != noSelection && error.number != noSuchItem)
        m_frame.status.explainText(core::failureSentence(error, m_frame.idioma));
}

// The line is written first with the counters as they stood; an empty catalogue leaves it at that.
void StatisticsAction::rewriteTotals(engine::Database& database, core::Counters& counters) {
    auto rows = database.OpenRecordset("select * from datos order by numero");
    if (!rows) return explain(rows.error());
    m_frame.status.setText(core::statusText(counters, m_frame.idioma));
    if (rows->RecordCount() == 0 && !rows->error()) return;
    const auto counted = core::countAll(database);
    if (!counted) return explain(counted.error());
    counters = *counted;
    m_frame.status.setText(core::statusText(counters, m_frame.idioma));
}

}  // namespace stats
