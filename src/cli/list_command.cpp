#include <string>

#include "browse/node_listing.h"
#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/operands.h"
#include "cli/output.h"
#include "cli/row_output.h"
#include "core/catalog_row.h"
#include "core/serial_date.h"

namespace cli {
namespace {

// Name, kilobytes (none for a folder) and date.
std::string plainRow(const core::CatalogRow& row) {
    return shown(row.archivo.value_or(row.carpeta)) + '\t' + (row.largo ? std::to_string(*row.largo) : "") +
           '\t' + core::dateText(row.fecha) + '\n';
}

engine::Result<long long> printRows(engine::Database& database, const std::string& select,
                                    const std::string& disco, RowOutput& output) {
    auto rows = TRY(database.OpenRecordset(select));
    long long count = 0;
    for (; !rows.Eof(); rows.MoveNext()) {
        const core::CatalogRow row = core::readRow(rows);
        if (row.disco != disco) continue;  // a unit whose name differs in case
        ++count;
        if (!output.forPrograms(row)) print(plainRow(row));
    }
    if (rows.error()) return std::unexpected(*rows.error());
    return count;
}

int runList(const Invocation& invocation) {
    const auto& operands = invocation.arguments.operands;
    auto database = openCatalogue(operands[0], invocation.language, engine::Use::ReadOnly);
    if (!database) return UnusableCatalogue;

    const auto disco = unitOperand(*database, operands[1], invocation);
    if (!disco) return disco.error();
    const std::string path = operands.size() > 2 ? operands[2] : std::string();
    const auto place = rowOperand(*database, *disco, path, core::FoundRow::Folder, invocation);
    if (!place) return place.error();
    if (place->kind != core::FoundRow::Unit && place->kind != core::FoundRow::Folder)
        return fail(NothingFound, path, isNoFolder.in(invocation.language));

    const browse::ListingStatements listing = browse::listingOf(*place);
    RowOutput output(invocation);
    long long count = 0;
    for (const std::string& select : {listing.folders, listing.files}) {
        const auto printed = printRows(*database, select, *disco, output);
        if (!printed) return unusable(operands[0], printed.error(), invocation.language);
        count += *printed;
    }
    return output.status(count > 0);
}

constexpr Option listOptions[]{pathsOption};

constexpr Command listTable[]{
    {"list",
     "CAT UNIT [PATH]",
     {"Muestra lo que hay en una unidad o carpeta.", "Lists what lies directly in a unit or folder."},
     listOptions,
     runList},
};

}  // namespace

std::span<const Command> listCommands() {
    return listTable;
}

}  // namespace cli
