#include "scan/rescan.h"

#include <algorithm>

#include "core/literals.h"
#include "core/text.h"
#include "core/unit_kinds.h"
#include "core/units.h"
#include "scan/scan_request.h"
#include "scan/unit_medium.h"

namespace scan {
namespace {

using Kind = RescanFailure::Kind;

constexpr core::Bilingual noUnit{"no existe esa unidad", "there is no such unit"};
constexpr core::Bilingual handMade{"es una unidad hecha a mano y no tiene medio que leer",
                                   "is a unit made by hand and has no medium to read"};
constexpr core::Bilingual notScanned{"tiene filas que no vienen de una sola carpeta",
                                     "has rows that do not come from one folder"};
constexpr core::Bilingual caseTwin{"hay otra unidad cuyo nombre solo difiere en mayúsculas",
                                   "there is another unit whose name differs in case only"};
constexpr core::Bilingual noMedium{"no se reconoce su medio en ninguna unidad de disco; indique la carpeta",
                                   "its medium is recognised in no drive; name the folder"};
constexpr core::Bilingual unreadable{"no se puede leer su carpeta", "its folder cannot be read"};
constexpr core::Bilingual interrupted{"interrumpido; nada ha cambiado", "interrupted; nothing has changed"};

std::unexpected<RescanFailure> failure(Kind kind, core::Bilingual reason) {
    return std::unexpected(RescanFailure{kind, reason});
}
std::unexpected<RescanFailure> failure(const engine::Error& error) {
    return std::unexpected(RescanFailure{Kind::Catalogue, {}, error});
}

bool isHandMade(const core::CatalogRow& row) {
    return std::ranges::find(core::unitKinds, row.tipo, &core::UnitKind::tipo) != core::unitKinds.end();
}

// Keeps a walk's rows and its gaps, and passes the watching on.
class Collector : public RowSink, public WalkObserver {
  public:
    Collector(FoundUnit& found, WalkObserver& observer) : m_found(found), m_observer(observer) {}

    void add(const core::CatalogRow& row) override {
        static_cast<void>(m_found.rows.add(row));  // the walk's own row lies below the walk's own folder
    }

    void started(std::int64_t topLevelFolders) override { m_observer.started(topLevelFolders); }
    void status(const Counts& counts) override { m_observer.status(counts); }
    void topLevelDone() override { m_observer.topLevelDone(); }
    bool yield(RowSink& rows) override { return m_observer.yield(rows); }
    void gap(Gap gap, std::string_view drivePath) override {
        std::string_view below;
        if (gap == Gap::Facts) m_found.rows.lastFactsUnknown();
        if (gap == Gap::Content && m_found.rows.isBelowBase(drivePath, below))
            m_found.unread.emplace(below, m_found.rows.rows().size());
        m_observer.gap(gap, drivePath);
    }

  private:
    FoundUnit& m_found;
    WalkObserver& m_observer;
};

Rescanned<UnitChanges> changesOf(engine::Database& database, UnitRows stored, FoundUnit found) {
    const auto total = core::totalRows(database);
    if (!total) return failure(total.error());
    const std::int64_t others = *total - std::ssize(stored.rows());
    return UnitChanges(std::move(stored), std::move(found), others);
}

}  // namespace

Rescanned<UnitRows> storedUnit(engine::Database& database, const std::string& disco) {
    auto rows = database.OpenRecordset("select * from datos where disco=(" + core::literal(disco) +
                                       ") order by numero");
    if (!rows) return failure(rows.error());
    std::optional<UnitRows> unit;
    for (; !rows->Eof(); rows->MoveNext()) {
        const core::CatalogRow row = core::readRow(*rows);
        if (isHandMade(row)) return failure(Kind::Refused, handMade);
        if (!unit) unit.emplace(scannedFolder(row), row.disco);
        if (row.disco != unit->disco()) return failure(Kind::Refused, caseTwin);
        if (!unit->add(row)) return failure(Kind::Refused, notScanned);
    }
    if (rows->error()) return failure(*rows->error());
    if (!unit) return failure(Kind::NotFound, noUnit);
    return std::move(*unit);
}

Rescanned<FoundUnit> readMedium(const UnitRows& stored, const RescanRequest& request,
                                const platform::Drives& drives, WalkObserver& observer) {
    std::string directory = request.directory;
    if (directory.empty()) {
        const auto medium = findMedium(stored, drives);
        if (!medium) return failure(Kind::NotFound, noMedium);
        directory = *medium;
    }
    WalkStart start = walkStart({{}, directory, request.exclusion}, drives);
    if (start.drivePath.empty()) return failure(Kind::Refused, inNoDrive);
    start.disco = stored.disco();
    FoundUnit found{UnitRows(core::withoutApostrophes(start.drivePath), stored.disco()), {}};
    Collector collector(found, observer);
    const WalkResult walked = Walker(collector, collector, start).run();
    if (walked.stopped) return failure(Kind::Stopped, interrupted);
    if (!walked.readable) return failure(Kind::NotFound, unreadable);
    if (found.rows.rows().empty()) return failure(Kind::NotFound, nothingThere);
    return found;
}

Rescanned<UnitChanges> compareUnit(engine::Database& database, const RescanRequest& request,
                                   const platform::Drives& drives, WalkObserver& observer) {
    auto stored = TRY(storedUnit(database, request.disco));
    auto found = TRY(readMedium(stored, request, drives, observer));
    return changesOf(database, std::move(stored), std::move(found));
}

// Others may have written a note while the medium was read, so the rows are read once more under the lock.
Rescanned<UnitChanges> updateUnit(engine::Database& database, const RescanRequest& request,
                                  const platform::Drives& drives, WalkObserver& observer,
                                  const std::function<bool()>& stopped) {
    if (const auto writable = canWrite(database); !writable) return failure(writable.error());
    const auto readAgain = [&]() -> Rescanned<FoundUnit> {
        return readMedium(TRY(storedUnit(database, request.disco)), request, drives, observer);
    };
    auto found = TRY(readAgain());

    database.KeepChangesInMemory();  // 200,000 rows: readers wait for 0.3 s instead of 20 s
    engine::Transaction whole(database);
    if (const auto begun = whole.begin(); !begun) return failure(begun.error());
    auto stored = TRY(storedUnit(database, request.disco));
    auto changes = changesOf(database, std::move(stored), std::move(found));
    if (!changes || changes->areNone()) return changes;
    const auto written = changes->write(database, stopped);
    if (!written) return failure(written.error());
    if (!*written || stopped()) return failure(Kind::Stopped, interrupted);
    if (const auto committed = whole.commit(); !committed) return failure(committed.error());
    return changes;
}

}  // namespace scan
