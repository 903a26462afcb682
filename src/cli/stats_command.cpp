#include <expected>
#include <string>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/operands.h"
#include "cli/output.h"
#include "stats/statistics.h"

namespace cli {
namespace {

std::expected<stats::Scope, int> scopeOf(engine::Database& database, const Invocation& invocation) {
    const auto& operands = invocation.arguments.operands;
    const auto disco = TRY(unitOperand(database, operands[1], invocation));
    stats::Scope scope{.unit = disco, .path = {}};
    if (operands.size() < 3) return scope;
    const auto place = TRY(rowOperand(database, disco, operands[2], core::FoundRow::Folder, invocation));
    if (place.kind == core::FoundRow::Folder) scope.ruta = place.row.ruta;
    if (place.kind == core::FoundRow::File)
        return std::unexpected(fail(NothingFound, operands[2], isNoFolder.in(invocation.language)));
    return scope;
}

std::string jsonLine(const stats::Statistics& statistics) {
    JsonLine line;
    for (std::size_t category = 0; category < stats::categoryCount; ++category)
        line.number(stats::categories[category].key, statistics.cantidadcategoria[category]);
    return line.number("total", statistics.totalarchivos).take();
}

std::string plainTable(const stats::Statistics& statistics, core::Language language) {
    std::string lines;
    for (std::size_t category = 0; category < stats::categoryCount; ++category)
        lines += std::string(stats::categories[category].caption.in(language)) + '\t' +
                 std::to_string(statistics.cantidadcategoria[category]) + '\t' +
                 std::to_string(statistics.percentage(category)) + " %\n";
    return lines + "Total:\t" + std::to_string(statistics.totalarchivos) + '\n';
}

int runStats(const Invocation& invocation) {
    const Arguments& arguments = invocation.arguments;
    const std::string& catalogue = arguments.operands[0];
    auto database = openCatalogue(catalogue, invocation.language, engine::Use::ReadOnly);
    if (!database) return UnusableCatalogue;
    const auto scope = scopeOf(*database, invocation);
    if (!scope) return scope.error();
    const auto statistics = stats::countScope(*database, *scope, stats::TotalLimit::None);
    if (!statistics) return unusable(catalogue, statistics.error(), invocation.language);
    if (statistics->totalarchivos < 1)
        return fail(NothingFound, arguments.operands[1], stats::noFiles.in(invocation.language));
    print(arguments.json ? jsonLine(*statistics) : plainTable(*statistics, invocation.language));
    return Done;
}

constexpr Command commandTable[]{
    {"stats",
     "CAT UNIT [PATH]",
     {"Cuenta los archivos de una unidad o carpeta por categoría.",
      "Counts the files of a unit or folder by category."},
     {},
     runStats},
};

}  // namespace

std::span<const Command> statsCommands() {
    return commandTable;
}

}  // namespace cli
