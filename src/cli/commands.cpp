#include <algorithm>
#include <vector>

#include "cli/command.h"
#include "cli/families.h"

namespace cli {

std::span<const Command> commands() {
    static const std::vector<Command> all = [] {
        std::vector<Command> joined;
        for (const auto family : {catalogueCommands(), enteringCommands(), unitCommands(), listCommands(),
                                  searchCommands(), statsCommands(), rowCommands(), exportCommands()})
            joined.insert(joined.end(), family.begin(), family.end());
        return joined;
    }();
    return all;
}

const Command* findCommand(std::string_view name) {
    const auto all = commands();
    const auto found = std::ranges::find(all, name, &Command::name);
    return found == all.end() ? nullptr : &*found;
}

}  // namespace cli
