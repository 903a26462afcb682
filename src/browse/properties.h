#pragma once

#include <string>
#include <string_view>

#include "core/language.h"
#include "engine/database.h"

namespace browse {

// What the properties window tells about the selected node of the tree.
struct PropertiesRequest {
    std::string node = {};  // the node's text
    bool isUnit = false;    // otherwise a folder, told by the next three
    std::string discoactual = {};
    std::string rutaactual = {};  // the folder's path below the unit
    int nivelactual = 0;
    int picture = 0;  // of the path combo's selected item
    std::string firstListType =
        {};  // the type caption of the browse list's first item, empty when it has none
};

struct Properties {
    std::string type;
    std::string name;
    std::string size;      // "12 MB"
    std::string contents;  // "3 archivos y 2 carpetas."
    int picture = 0;
    bool operator==(const Properties&) const = default;
};

// Files of one kilobyte or less do not count in a unit's size.
[[nodiscard]] engine::Result<Properties> propertiesOf(const PropertiesRequest& request,
                                                      engine::Database& database, core::Language idioma);

}  // namespace browse
