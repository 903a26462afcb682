#include "core/first_use.h"

#include <string>

#include "core/serial_date.h"
#include "engine/text/collation.h"

namespace core {

void loadLibraryTables() {
    std::string key;
    static_cast<void>(engine::appendSortKey(key, "a"));
    static_cast<void>(dateText(0));
}

}  // namespace core
