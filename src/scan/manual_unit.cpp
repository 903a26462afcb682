#include "scan/manual_unit.h"

#include "core/inserts.h"
#include "core/serial_date.h"
#include "core/unit_kinds.h"
#include "core/unit_name.h"
#include "scan/scan_request.h"

namespace scan {

const UnitRefusal* refusalOf(const ManualUnit& unit) {
    if (unit.content.empty()) return &refusal::manualWithoutContent;
    if (unit.name.empty()) return &refusal::manualWithoutName;
    return nullptr;
}

namespace {

engine::Result<> insertManualUnit(const ManualUnit& unit, std::string& tipo, engine::Database& database) {
    if (unit.kind >= 1 && unit.kind <= std::ssize(core::unitKinds))
        tipo = core::unitKinds[unit.kind - 1].tipo;

    const auto last = TRY(lastNumero(database));
    core::CatalogRow row;
    row.numero = last + 1;
    row.ruta = std::string("C:").append(unit.content);  // no drive: only how such a row is marked
    row.carpeta = unit.content;
    row.nivel = "1";
    row.fecha = core::today();
    row.tipo = tipo;
    row.disco = core::discoOf(unit.name);
    (void)TRY(database.Execute(core::insertFolder(row)));
    return {};
}

}  // namespace

engine::Result<const UnitRefusal*> addManualUnit(const ManualUnit& unit, std::string& tipo,
                                                 engine::Database& database) {
    if (const UnitRefusal* incomplete = refusalOf(unit)) return incomplete;
    engine::Transaction whole(database);
    TRY(whole.begin());
    if (TRY(unitExists(database, unit.name))) return &refusal::manualNameTaken;
    TRY(insertManualUnit(unit, tipo, database));
    TRY(whole.commit());
    return nullptr;
}

}  // namespace scan
