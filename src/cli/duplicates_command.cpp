#include <algorithm>
#include <charconv>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/operands.h"
#include "cli/output.h"
#include "cli/row_output.h"
#include "core/lookup.h"
#include "core/text.h"
#include "core/unit_name.h"
#include "duplicates/duplicates.h"

namespace cli {
namespace {

constexpr core::Bilingual unknownKey{"--by es name, size o date, unidos por comas",
                                     "--by is name, size or date, joined by commas"};
constexpr core::Bilingual wrongLeast{"--min-kb es un número de KB", "--min-kb is a number of KB"};

bool readKeys(std::string_view text, duplicates::Request& request) {
    struct Key {
        std::string_view name;
        bool duplicates::Request::*key;
    };
    constexpr Key keys[]{{"name", &duplicates::Request::byName},
                         {"size", &duplicates::Request::bySize},
                         {"date", &duplicates::Request::byDate}};
    for (const Key& key : keys) request.*key.key = false;
    for (;;) {
        const std::string_view word = text.substr(0, text.find(','));
        const auto key = std::ranges::find(keys, word, &Key::name);
        if (key == std::end(keys)) return false;
        request.*key->key = true;
        if (word.size() == text.size()) return true;
        text.remove_prefix(word.size() + 1);
    }
}

bool readNumber(std::string_view text, std::int64_t& number) {
    const auto [stopped, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    return failure == std::errc() && stopped == text.data() + text.size() && number >= 0;
}

// A group as lines of KB, unit and path, and an empty line behind it.
void printPlain(const duplicates::Group& group) {
    for (const duplicates::Copy& copy : group.copies)
        print(std::to_string(copy.largo) + '\t' + shown(core::unitName(copy.disco)) + '\t' +
              shown(core::joinPath(copy.ruta, copy.archivo)) + '\n');
    print("\n");
}

void printJson(const duplicates::Group& group) {
    JsonLine line;
    line.text("archivo", group.copies.front().archivo).number("largo", group.largo);
    std::vector<std::string> copies;
    for (const duplicates::Copy& copy : group.copies)
        copies.push_back(JsonLine()
                             .text("disco", copy.disco)
                             .text("ruta", copy.ruta)
                             .text("archivo", copy.archivo)
                             .take());
    print(line.objects("copies", copies).take());
}

int runDuplicates(const Invocation& invocation) {
    const Arguments& arguments = invocation.arguments;
    duplicates::Request request;
    if (const auto keys = arguments.value("--by"); keys && !readKeys(*keys, request))
        return fail(WrongUsage, *keys, unknownKey.in(invocation.language));
    if (const auto least = arguments.value("--min-kb"); least && !readNumber(*least, request.leastKilobytes))
        return fail(WrongUsage, *least, wrongLeast.in(invocation.language));

    const std::string& catalogue = arguments.operands[0];
    auto database = openCatalogue(catalogue, invocation.language, engine::Use::ReadOnly);
    if (!database) return UnusableCatalogue;
    for (const std::string& name : arguments.values("--unit")) {
        auto disco = unitOperand(*database, name, invocation);
        if (!disco) return disco.error();
        request.discos.push_back(std::move(*disco));
    }

    RowOutput paths(invocation);
    long long groups = 0;
    const auto found = duplicates::find(*database, request, [&](const duplicates::Group& group) {
        ++groups;
        if (!arguments.has(pathsOption.name)) return (arguments.json ? printJson : printPlain)(group);
        for (const duplicates::Copy& copy : group.copies) {
            core::CatalogRow row;
            row.ruta = copy.ruta;
            row.archivo = copy.archivo;
            paths.forPrograms(row);
        }
    });
    if (!found) return unusable(catalogue, found.error(), invocation.language);
    return paths.status(groups > 0);
}

constexpr Option duplicatesOptions[]{
    {"--unit", "NAME", {"solo en esa unidad", "only in that unit"}, true},
    {"--min-kb", "N", {"solo archivos de N KB o más", "only files of N KB or more"}},
    {"--by",
     "KEYS",
     {"en qué coinciden: name, size y date, unidos por comas; si falta, name,size",
      "what agrees: name, size and date, joined by commas; without it name,size"}},
    pathsOption};

constexpr Command duplicatesTable[]{
    {"duplicates",
     "CAT",
     {"Busca archivos que están más de una vez, primero los que más espacio ocupan de más.",
      "Looks for files that are there more than once, those that waste most first."},
     duplicatesOptions,
     runDuplicates},
};

}  // namespace

std::span<const Command> duplicatesCommands() {
    return duplicatesTable;
}

}  // namespace cli
