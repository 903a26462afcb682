#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <string_view>

#include "core/language.h"
#include "engine/database.h"
#include "stats/categories.h"
#include "stats/statements.h"

namespace stats {

struct Statistics {
    std::array<std::int64_t, categoryCount> cantidadcategoria{};  // Resto last; it may be negative
    std::int64_t totalarchivos = 0;                               // file rows; the divisor of all percentages

    // A category's share in whole percent, halves to the even neighbour. The scope must hold files.
    [[nodiscard]] std::int64_t percentage(std::size_t category) const;
    bool operator==(const Statistics&) const = default;
};

// The number of the error that a total past its limit gives.
inline constexpr int overflow = 6;

// The largest total that is counted. The window holds the total in 16 bits; scripts have no limit.
enum class TotalLimit : std::int64_t {
    Window = std::numeric_limits<std::int16_t>::max(),
    None = std::numeric_limits<std::int64_t>::max(),
};

// Called behind each of the seven category counts, and once more when a total of at least one file is known.
using Progress = std::function<void()>;

// Counts a scope by eight statements. A scope without files is no error: its total is 0 and Resto is not
// computed. Fails on the first statement that the engine refuses, and with `overflow` past the limit.
[[nodiscard]] engine::Result<Statistics> countScope(engine::Database& database, const Scope& scope,
                                                    TotalLimit limit, const Progress& progress = {});

// What is said of a scope with no files, be it a unit or a folder.
inline constexpr core::Bilingual noFiles{"Esta unidad no contiene archivos.", "This unit hasn´t files."};

// " Estadísticas de:  " and where the user is.
[[nodiscard]] std::string scopeTitle(core::Language idioma, std::string_view place);

// A category's name over the statistics of a scope; over those of a folder it is Spanish in both languages.
[[nodiscard]] std::string_view categoryName(core::Language idioma, const Scope& scope, std::size_t category);

}  // namespace stats
