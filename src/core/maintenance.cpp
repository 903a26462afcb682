#include "core/maintenance.h"

#include "core/text.h"
#include "core/unit_kinds.h"
#include "engine/maintenance.h"

namespace core {
namespace {

// An apostrophe ends the literal that it stands in. What comes behind it could make another valid statement,
// so it is refused here with the error that the engine mostly gives.
engine::Result<> refuseApostrophe(std::string_view name) {
    if (name.find('\'') == std::string_view::npos) return {};
    return std::unexpected(engine::Error{engine::error::syntaxInExpression,
                                         "an apostrophe in the unit name " + std::string(name)});
}

// A label edit can bring in a character that `like` takes for a wildcard; in brackets it stands for itself.
std::string literalPattern(std::string_view name) {
    std::string pattern;
    for (const char c : name) {
        const bool wild = c == '*' || c == '?' || c == '#' || c == '[';
        pattern += wild ? std::string{'[', c, ']'} : std::string(1, c);
    }
    return pattern;
}

engine::Result<> executed(engine::Database& database, const std::string& sql) {
    if (const auto touched = database.Execute(sql); !touched) return std::unexpected(touched.error());
    return {};
}

}  // namespace

engine::Result<> deleteAll(engine::Database& database) {
    return executed(database, "delete * from datos ");
}

engine::Result<> deleteUnit(engine::Database& database, std::string_view disco) {
    if (auto safe = refuseApostrophe(disco); !safe) return safe;
    return executed(database, "delete * from datos where disco like ('" + literalPattern(disco) + "')");
}

engine::Result<std::string> renameUnit(engine::Database& database, std::string_view oldDisco,
                                       std::string_view newText) {
    for (const std::string_view name : {oldDisco, newText})
        if (auto safe = refuseApostrophe(name); !safe) return std::unexpected(safe.error());
    std::string newDisco(newText);
    newDisco += unitSuffix;
    const auto renamed = executed(
        database, "update datos set disco='" + newDisco + "' where disco=('" + std::string(oldDisco) + "')");
    if (!renamed) return std::unexpected(renamed.error());
    return newDisco;
}

bool nameTaken(std::string_view listanivel1, std::string_view newText) {
    const auto holds = [&](const std::string& name) {
        return like(listanivel1, R"(* \\ )" + name + std::string(unitSuffix) + R"( \\ *)");
    };
    return holds(upperCase(newText)) || holds(lowerCase(newText));
}

engine::Result<std::string> repairCatalogue(const std::string& path) {
    return engine::RepairDatabase(path);
}

engine::Result<engine::Check> checkCatalogue(const std::string& path) {
    return engine::CheckDatabase(path);
}

}  // namespace core
