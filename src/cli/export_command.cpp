#include <string>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/output.h"
#include "core/catalog_row.h"

namespace cli {
namespace {

constexpr core::Bilingual unknownFormat{"--format es csv o json", "--format is csv or json"};

int runExport(const Invocation& invocation) {
    const Arguments& arguments = invocation.arguments;
    const std::string format = arguments.value("--format").value_or(arguments.json ? "json" : "csv");
    if (format != "csv" && format != "json") return fail(WrongUsage, unknownFormat.in(invocation.language));
    const bool csv = format == "csv";

    const std::string& catalogue = arguments.operands[0];
    auto database = openCatalogue(catalogue, invocation.language, engine::Use::ReadOnly);
    if (!database) return UnusableCatalogue;
    auto rows = database->OpenRecordset("select * from datos order by numero");
    if (!rows) return unusable(catalogue, rows.error(), invocation.language);

    const bool empty = rows->Eof() && !rows->error();
    const platform::Drives drives = csv ? platform::Drives() : platform::Drives::current();
    if (csv) print(csvHeader());
    core::CatalogRow row;
    for (; !rows->Eof(); rows->MoveNext()) {
        core::readRow(*rows, row);
        print(csv ? csvRow(row) : jsonRow(row, drives));
    }
    if (rows->error()) return unusable(catalogue, *rows->error(), invocation.language);
    return empty ? NothingFound : Done;
}

constexpr Option exportOptions[]{{"--format", "csv|json", {"la forma de las filas", "the form of the rows"}}};

constexpr Command exportTable[]{
    {"export",
     "CAT",
     {"Escribe todas las filas del catálogo, por número.", "Writes every row of the catalogue, by number."},
     exportOptions,
     runExport},
};

}  // namespace

std::span<const Command> exportCommands() {
    return exportTable;
}

}  // namespace cli
