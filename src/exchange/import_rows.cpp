#include "exchange/import_rows.h"

#include <set>

#include "core/inserts.h"
#include "core/text.h"
#include "core/units.h"

namespace exchange {
namespace {

using Kind = ImportFailure::Kind;

std::unexpected<ImportFailure> failure(const engine::Error& error) {
    return std::unexpected(ImportFailure{.kind = Kind::Catalogue, .error = error});
}

engine::Result<std::set<std::string>> unitsInLowerCase(engine::Database& database) {
    const auto names = TRY(core::unitNames(database));
    std::set<std::string> lower;
    for (const std::string& name : names) lower.insert(core::lowerCase(name));
    return lower;
}

}  // namespace

std::expected<long long, ImportFailure> importRows(engine::Database& database, RowReader& reader,
                                                   const std::function<bool()>& stopped) {
    constexpr long long askEvery = 256;
    engine::Transaction whole(database);
    if (const auto begun = whole.begin(); !begun) return failure(begun.error());
    const auto existing = unitsInLowerCase(database);
    if (!existing) return failure(existing.error());
    const auto before = core::totalRows(database);
    if (!before) return failure(before.error());

    std::set<std::string> seen;
    for (long long count = 0;; ++count) {
        if (count % askEvery == 0 && stopped()) return std::unexpected(ImportFailure{.kind = Kind::Stopped});
        auto row = reader.next();
        if (!row) return std::unexpected(ImportFailure{.kind = Kind::Damaged, .damage = row.error()});
        if (!*row) {
            if (const auto committed = whole.commit(); !committed) return failure(committed.error());
            return count;
        }
        if (!seen.contains((*row)->disco)) {
            if (existing->contains(core::lowerCase((*row)->disco)))
                return std::unexpected(ImportFailure{
                    .kind = Kind::UnitExists, .damage = {.line = reader.line()}, .unit = (*row)->disco});
            seen.insert((*row)->disco);
        }
        (*row)->numero += *before;
        if (const auto inserted = database.Execute(core::insertWhole(**row)); !inserted)
            return failure(inserted.error());
    }
}

}  // namespace exchange
