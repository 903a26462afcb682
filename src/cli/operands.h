#pragma once

#include <expected>
#include <string>

#include "cli/command.h"
#include "core/lookup.h"

namespace cli {

// The things that operands name. Where there is none, or several, they say so and give the exit status
// instead.

// The `disco` of a unit of the catalogue that the first operand names, or of another.
[[nodiscard]] std::expected<std::string, int> unitOperand(engine::Database& database, const std::string& name,
                                                          const Invocation& invocation);
[[nodiscard]] std::expected<std::string, int> unitOperand(engine::Database& database,
                                                          const std::string& catalogue,
                                                          const std::string& name,
                                                          const Invocation& invocation);

// A row of that unit; see core::findRow.
[[nodiscard]] std::expected<core::FoundRow, int> rowOperand(engine::Database& database,
                                                            const std::string& disco, const std::string& path,
                                                            core::FoundRow::Kind preferred,
                                                            const Invocation& invocation);

inline constexpr core::Bilingual noSuchUnit{"no existe esa unidad", "there is no such unit"};
// What is said of a folder where a file is wanted, and the other way round.
inline constexpr core::Bilingual isFolder{"es una carpeta", "is a folder"};
inline constexpr core::Bilingual isNoFolder{"no es una carpeta", "is no folder"};

}  // namespace cli
