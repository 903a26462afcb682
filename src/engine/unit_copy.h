#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "engine/database.h"

namespace engine {

// Makes `scratch` a catalogue that holds the rows of one unit of `source` alone, in their order, and opens it
// for Use::Scratch; what was there is replaced. Costs by the unit, not by the catalogue. `goOn` is asked
// every few thousand rows, while the source is not locked; nothing is given when it says no.
[[nodiscard]] Result<std::optional<Database>> CopyUnit(const std::string& source, const std::string& scratch,
                                                       std::string_view disco,
                                                       const std::function<bool()>& goOn);

}  // namespace engine
