#include "engine/format.h"

#include <algorithm>

#include "engine/text/folding.h"

namespace engine {

std::string columnNames() {
    std::string names;
    for (const ColumnInfo& column : columns) names.append(names.empty() ? "" : ", ").append(column.name);
    return names;
}

std::optional<Column> columnNamed(std::string_view name) {
    // Asked for each field of each row, and nearly always spelled as here.
    const auto exact = std::ranges::find(columns, name, &ColumnInfo::name);
    if (exact != columns.end()) return static_cast<Column>(exact - columns.begin());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].name.size() == name.size() && equalFolded(columns[i].name, name)) {
            return static_cast<Column>(i);
        }
    }
    return std::nullopt;
}

}  // namespace engine
