#include <cstdio>
#include <memory>
#include <string>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/interrupt.h"
#include "cli/output.h"
#include "exchange/import_rows.h"

namespace cli {
namespace {

constexpr core::Bilingual wrongFormat{"--format es csv o json", "--format is csv or json"};
constexpr core::Bilingual cannotOpen{"no se puede abrir", "cannot be opened"};
constexpr core::Bilingual lineWord{"línea ", "line "};
constexpr core::Bilingual unitExists{"ya existe una unidad con ese nombre: ",
                                     "there is such a unit already: "};
constexpr core::Bilingual stoppedImport{"interrumpido; nada ha cambiado", "interrupted; nothing has changed"};

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

int tell(const exchange::ImportFailure& failure, const Invocation& invocation) {
    using Kind = exchange::ImportFailure::Kind;
    const auto& operands = invocation.arguments.operands;
    const auto in = [&](core::Bilingual text) { return std::string(text.in(invocation.language)); };
    const std::string line = in(lineWord) + std::to_string(failure.damage.line) + ": ";
    switch (failure.kind) {
        case Kind::Catalogue:
            return unusable(operands[0], failure.error, invocation.language);
        case Kind::Stopped:
            fail(NothingFound, in(stoppedImport));
            return statusOfInterrupt();
        case Kind::UnitExists:
            return fail(WrongUsage, operands[1], line + in(unitExists) + failure.unit);
        case Kind::Damaged:
            break;
    }
    const std::string& column = failure.damage.column;
    return fail(WrongUsage, operands[1],
                line + (column.empty() ? "" : column + ' ') + in(failure.damage.reason));
}

int runImport(const Invocation& invocation) {
    const Arguments& arguments = invocation.arguments;
    const auto format = arguments.value("--format");
    if (format && format != "csv" && format != "json")
        return fail(WrongUsage, *format, wrongFormat.in(invocation.language));
    auto database = openCatalogue(arguments.operands[0], invocation.language, engine::Use::Catalogue);
    if (!database) return UnusableCatalogue;
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(arguments.operands[1].c_str(), "rbe"));
    if (!file) return fail(WrongUsage, arguments.operands[1], cannotOpen.in(invocation.language));

    const exchange::Format form = !format             ? exchange::formatOf(file.get())
                                  : *format == "json" ? exchange::Format::Json
                                                      : exchange::Format::Csv;
    const auto reader = exchange::makeReader(file.get(), form);
    const InterruptGuard interrupts;
    const auto rows = exchange::importRows(*database, *reader, wasInterrupted);
    if (!rows) return tell(rows.error(), invocation);
    if (arguments.json) print(JsonLine().number("rows", *rows).take());
    return *rows > 0 ? Done : NothingFound;
}

constexpr Option importOptions[]{{"--format",
                                  "csv|json",
                                  {"la forma de las filas; si falta, la que muestra el archivo",
                                   "the form of the rows; without it, what the file shows"}}};

constexpr Command importTable[]{
    {"import",
     "CAT FILE",
     {"Añade las unidades que escribió export; todas o ninguna.",
      "Adds the units that export wrote; all or none."},
     importOptions,
     runImport},
};

}  // namespace

std::span<const Command> importCommands() {
    return importTable;
}

}  // namespace cli
