#include "core/maintenance.h"

#include "core/literals.h"
#include "core/text.h"
#include "core/unit_name.h"

namespace core {
engine::Result<> deleteAll(engine::Database& database) {
    (void)TRY(database.Execute("delete * from datos "));
    return {};
}

engine::Result<> deleteUnit(engine::Database& database, std::string_view disco) {
    TRY(refuseApostrophe(disco));
    (void)TRY(database.Execute("delete * from datos where disco like ('" + asPattern(disco) + "')"));
    return {};
}

engine::Result<std::string> renameUnit(engine::Database& database, std::string_view oldDisco,
                                       std::string_view newText) {
    for (const std::string_view name : {oldDisco, newText}) TRY(refuseApostrophe(name));
    std::string newDisco = discoOf(newText);
    (void)TRY(database.Execute("update datos set disco='" + newDisco + "' where disco=('" +
                               std::string(oldDisco) + "')"));
    return newDisco;
}

bool nameTaken(std::string_view listanivel1, std::string_view newText) {
    const auto holds = [&](const std::string& name) {
        return like(listanivel1, R"(* \\ )" + discoOf(name) + R"( \\ *)");
    };
    return holds(upperCase(newText)) || holds(lowerCase(newText));
}

}  // namespace core
