#include "cli/operands.h"

#include "cli/arguments.h"
#include "cli/console.h"

namespace cli {
namespace {

constexpr core::Bilingual notCatalogued{"no está en el catálogo", "is not in the catalogue"};
constexpr core::Bilingual couldBe{"puede ser cualquiera de estos", "could be any of these"};

int told(const core::LookupFailure& failure, const std::string& catalogue, const std::string& name,
         core::Bilingual missing, const Invocation& invocation) {
    switch (failure.kind) {
        case core::LookupFailure::Missing:
            return fail(NothingFound, name, missing.in(invocation.language));
        case core::LookupFailure::Unreadable:
            return unusable(catalogue, failure.error, invocation.language);
        case core::LookupFailure::Several:
            break;
    }
    fail(WrongUsage, name, couldBe.in(invocation.language));
    for (const std::string& candidate : failure.candidates) fail(WrongUsage, candidate);
    return WrongUsage;
}

}  // namespace

std::expected<std::string, int> unitOperand(engine::Database& database, const std::string& name,
                                            const Invocation& invocation) {
    return unitOperand(database, invocation.arguments.operands[0], name, invocation);
}

std::expected<std::string, int> unitOperand(engine::Database& database, const std::string& catalogue,
                                            const std::string& name, const Invocation& invocation) {
    auto disco = core::findUnit(database, name);
    if (!disco) return std::unexpected(told(disco.error(), catalogue, name, noSuchUnit, invocation));
    return std::move(*disco);
}

std::expected<core::FoundRow, int> rowOperand(engine::Database& database, const std::string& disco,
                                              const std::string& path, core::FoundRow::Kind preferred,
                                              const Invocation& invocation) {
    auto row = core::findRow(database, disco, path, platform::Drives::current(), preferred);
    if (!row)
        return std::unexpected(
            told(row.error(), invocation.arguments.operands[0], path, notCatalogued, invocation));
    return std::move(*row);
}

}  // namespace cli
