#include <string>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/output.h"
#include "core/text.h"
#include "core/unit_kinds.h"
#include "stats/statistics.h"

namespace cli {
namespace {

// An apostrophe stands in no catalogue, since names lose theirs on the way in.
stats::Scope scopeOf(const std::vector<std::string>& operands) {
    stats::Scope scope;
    scope.unit = core::withoutApostrophes(operands[1]) + std::string(core::unitSuffix);
    if (operands.size() > 2 && !operands[2].empty()) {
        const std::string path = core::withoutApostrophes(operands[2]);
        scope.path = path.starts_with('\\') ? path : '\\' + path;
    }
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
    auto database = openCatalogue(catalogue, engine::Use::ReadOnly);
    if (!database) return UnusableCatalogue;
    const auto statistics =
        stats::countScope(*database, scopeOf(arguments.operands), stats::TotalLimit::None);
    if (!statistics) return fail(UnusableCatalogue, catalogue, statistics.error().text);
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
