#include "engine/file/connection.h"
#include "engine/guarded.h"
#include "engine/maintenance.h"
#include "engine/repair/faults.h"

namespace engine {

Result<Check> CheckDatabase(const std::string& nativePath) {
    return guarded([&]() -> Result<Check> {
        Check check;
        auto connection = Connection::open(nativePath, Use::ReadOnly);
        if (!connection) {
            if (connection.error().number != error::corrupt) return std::unexpected(connection.error());
            check.faults.push_back(connection.error().text);
            return check;
        }
        for (const auto part : {checkPages, checkValues}) TRY(part((*connection)->handle(), check));
        return check;
    });
}

}  // namespace engine
