#include "scan/import_job.h"

#include <QLineEdit>
#include <QWidget>

#include "controls/image_combo.h"
#include "core/catalogue_file.h"
#include "core/unit_name.h"
#include "frame/captions.h"
#include "frame/catalogue.h"
#include "frame/long_work.h"
#include "frame/pointer.h"
#include "frame/status_band.h"
#include "frame/toolbar.h"
#include "platform/drives.h"
#include "platform/qtext.h"
#include "scan/manual_unit.h"
#include "scan/refusal.h"
#include "scan/row_writer.h"
#include "scan/scan_request.h"
#include "scan/status_text.h"
#include "scan/walk_display.h"

namespace scan {
namespace {

using frame::Toolbar;
using platform::qtext;

constexpr int newScannedUnitPicture = 4;  // until the catalogue is opened anew
constexpr core::Bilingual canceled{"Operación cancelada.", "Canceled operation."};

std::optional<engine::Database> openIfPossible(const std::string& path) {
    auto database = engine::OpenDatabase(path);
    if (!database) return std::nullopt;
    return std::move(*database);
}

}  // namespace

void ImportJob::run() {
    if (m_running) return;
    {
        const frame::Hourglass hourglass(frame::Hourglass::WithArrow);
        const frame::Running running(m_frame);
        m_running = true;
        m_parar = m_abandoned = false;
        m_missing.clear();
        if (m_fields.directoryPane.isHidden())
            generarunidad();
        else
            catalogueDirectory();
        m_parar = true;
        m_running = false;
    }
    if (m_abandoned) return;
    m_events.ended();
    if (!m_missing.empty()) m_frame.status.setText(m_frame.status.text().toStdString() + m_missing);
}

void ImportJob::catalogueDirectory() {
    auto database = openIfPossible(m_frame.catalogue.path());
    const QString name = m_fields.Text3.text();
    const ScanRequest request{name.toStdString(),
                              m_fields.Text4.text().isEmpty() ? std::string() : m_fields.directory};
    const engine::Result<const UnitRefusal*> refusal =
        database ? refusalOf(request, *database) : refusalOf(request);
    const engine::Result<WalkStart> start =
        database ? walkStart(request, *database, platform::Drives::current()) : WalkStart();
    // A catalogue that cannot be read gets no unit, and neither does a folder that no drive letter leads to.
    if (!refusal || isRefused(*refusal) || !database || !start ||
        (start->drivePath.empty() && isRefused(&scan::refusal::scanWithoutDirectory))) {
        m_fields.Text3.clear();  // the typed name too
        m_fields.Text4.clear();
        return close(database);
    }

    m_events.walkBegins();
    m_name = qtext(core::discoOf(name.toStdString()));
    m_shownDirectory = m_fields.Text4.text();
    m_fields.Text3.setText(m_name);

    WalkDisplay display(m_frame, m_parar);
    const WalkResult result = [&] {
        RowWriter rows(*database, name.toStdString(), [&] { display.paint(); });
        return Walker(rows, display, *start).run();
    }();
    if (result.writes.nameTaken && !m_parar) {  // by another program, since the first look
        static_cast<void>(isRefused(&refusal::scanNameTaken));
        emptyFields();
        close(database);
        return m_events.walkEnds();
    }
    m_missing = missingText(display.leftOut(), result.writes, m_frame.idioma);
    if (result.stopped) return;  // what the stop has shown stays as it is
    if (m_missing.empty() && result.counts.folders + result.counts.files == 0)  // no row, no unit
        m_missing = "  " + m_name.toStdString() + ' ' + std::string(nothingThere.in(m_frame.idioma));
    finish(result.counts);
    emptyFields();
    close(database);
    m_events.walkEnds();
}

bool ImportJob::isRefused(const UnitRefusal* refusal) {
    if (!refusal) return false;
    m_frame.messages.show(qtext(refusal->text.in(m_frame.idioma)), qtext(refusal->title));
    if (refusal->emptiesName) m_fields.Text3.clear();
    (refusal->focus == Field::Directory ? m_fields.Text4 : m_fields.Text3).setFocus();
    return true;
}

void ImportJob::finish(const Counts& counts) {
    m_frame.status.setText(finalStatus(counts, m_frame.idioma));
    m_events.unitScanned({m_name.toStdString(), newScannedUnitPicture});
    m_frame.toolbar.setPressed(Toolbar::New, false);
}

// What was entered meanwhile, for the next unit, stays.
void ImportJob::emptyFields() {
    if (m_fields.Text3.text() == m_name) m_fields.Text3.clear();
    if (m_fields.Text4.text() == m_shownDirectory) m_fields.Text4.clear();
}

// Every walk but a stopped one ends here, and so does every refusal.
void ImportJob::close(std::optional<engine::Database>& database) {
    m_frame.status.hideProgress();
    static_cast<void>(core::compactCatalogue(m_frame.catalogue.path()));  // finds the file still open
    m_frame.toolbar.setPressed(Toolbar::Explore, true);
    database.reset();
}

void ImportJob::generarunidad() {
    auto database = openIfPossible(m_frame.catalogue.path());
    const int kind = m_fields.ImageCombo4.selectedItem();
    const QString name = m_fields.Text3.text();
    const ManualUnit unit{name.toStdString(), m_fields.Text11.text().toStdString(), kind};
    const engine::Result<const UnitRefusal*> refusal =
        database ? addManualUnit(unit, m_tipo, *database) : refusalOf(unit);
    if (!refusal) m_missing = missingText({}, {.lost = 1, .firstError = refusal.error()}, m_frame.idioma);
    if (!refusal || isRefused(*refusal) || !database) return;

    m_fields.Text3.setText(qtext(core::discoOf(name.toStdString())));
    const core::UnitItem made{m_fields.Text3.text().toStdString(), m_fields.ImageCombo4.itemPicture(kind)};
    m_fields.Text3.clear();
    m_fields.Text11.clear();
    m_events.unitTyped(made);
}

void ImportJob::abandon() {
    if (m_parar) return;
    m_parar = m_abandoned = true;
    m_frame.status.hideProgress();
    emptyFields();
}

void ImportJob::Parar() {
    if (m_parar) return;
    m_parar = true;
    m_frame.status.hideProgress();
    m_frame.messages.show(qtext(canceled.in(m_frame.idioma)));
    m_fields.ImageCombo4.clear();
    m_events.stopped();
}

}  // namespace scan
