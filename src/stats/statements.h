#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace stats {

// What is counted: a whole unit, those of its rows whose path contains `path`, at any depth, or those in the
// one folder `ruta` and below it.
struct Scope {
    std::string unit;                      // as in `disco`, its " :" included
    std::optional<std::string> path;       // folder scope: below the unit, "\fotos\2003"
    std::optional<std::string> ruta = {};  // one folder, in drive form
};

// The rows of one of the first seven categories. Rows of every `tipo` count.
[[nodiscard]] std::string selectCategory(const Scope& scope, std::size_t category);

// The file rows of the scope.
[[nodiscard]] std::string selectTotal(const Scope& scope);

}  // namespace stats
