#include "engine/format.h"

#include "engine/text/folding.h"

namespace engine {

std::optional<Column> columnNamed(std::string_view name) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].name.size() == name.size() && equalFolded(columns[i].name, name)) {
            return static_cast<Column>(i);
        }
    }
    return std::nullopt;
}

}  // namespace engine
