#include "core/maintenance.h"

#include "core/literals.h"
#include "core/text.h"
#include "core/unit_name.h"
#include "engine/maintenance.h"

namespace core {
namespace {

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
    return executed(database, "delete * from datos where disco like ('" + asPattern(disco) + "')");
}

engine::Result<std::string> renameUnit(engine::Database& database, std::string_view oldDisco,
                                       std::string_view newText) {
    for (const std::string_view name : {oldDisco, newText})
        if (auto safe = refuseApostrophe(name); !safe) return std::unexpected(safe.error());
    std::string newDisco = discoOf(newText);
    const auto renamed = executed(
        database, "update datos set disco='" + newDisco + "' where disco=('" + std::string(oldDisco) + "')");
    if (!renamed) return std::unexpected(renamed.error());
    return newDisco;
}

bool nameTaken(std::string_view listanivel1, std::string_view newText) {
    const auto holds = [&](const std::string& name) {
        return like(listanivel1, R"(* \\ )" + discoOf(name) + R"( \\ *)");
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
