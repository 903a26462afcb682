#include <algorithm>
#include <string>
#include <vector>

#include "browse/node_listing.h"
#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/output.h"
#include "cli/row_output.h"
#include "core/catalog_row.h"
#include "core/serial_date.h"
#include "core/text.h"
#include "core/unit_kinds.h"

namespace cli {
namespace {

constexpr core::Bilingual notCatalogued{"no está en el catálogo", "is not in the catalogue"};

// FOLDER\SUB, with or without a backslash at either end.
std::vector<std::string> foldersOf(const std::string& path) {
    std::vector<std::string> folders;
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t end = std::min(path.find('\\', at), path.size());
        if (end > at) folders.push_back(path.substr(at, end - at));
        at = end + 1;
    }
    return folders;
}

// Name, kilobytes (none for a folder) and date.
std::string plainRow(const core::CatalogRow& row) {
    return shown(row.archivo.value_or(row.carpeta)) + '\t' + (row.largo ? std::to_string(*row.largo) : "") +
           '\t' + core::dateText(row.fecha) + '\n';
}

engine::Result<long long> printRows(engine::Database& database, const std::string& select,
                                    RowOutput& output) {
    auto rows = database.OpenRecordset(select);
    if (!rows) return std::unexpected(rows.error());
    long long count = 0;
    for (; !rows->Eof(); rows->MoveNext(), ++count) {
        const core::CatalogRow row = core::readRow(*rows);
        if (!output.forPrograms(row)) print(plainRow(row));
    }
    if (rows->error()) return std::unexpected(*rows->error());
    return count;
}

int runList(const Invocation& invocation) {
    const auto& operands = invocation.arguments.operands;
    auto database = openCatalogue(operands[0], engine::Use::ReadOnly);
    if (!database) return UnusableCatalogue;

    // Names lose their apostrophes on the way into a catalogue.
    const std::string disco = core::withoutApostrophes(operands[1]) + std::string(core::unitSuffix);
    const std::string path = operands.size() > 2 ? core::withoutApostrophes(operands[2]) : std::string();
    const auto listing = browse::nodeListing(*database, disco, foldersOf(path));
    if (!listing) return fail(UnusableCatalogue, operands[0], listing.error().text);
    if (!*listing)
        return fail(NothingFound, path.empty() ? operands[1] : operands[1] + '\\' + operands[2],
                    notCatalogued.in(invocation.language));

    RowOutput output(invocation);
    long long count = 0;
    for (const std::string& select : {(*listing)->folders, (*listing)->files}) {
        if (select.empty()) continue;
        const auto printed = printRows(*database, select, output);
        if (!printed) return fail(UnusableCatalogue, operands[0], printed.error().text);
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
