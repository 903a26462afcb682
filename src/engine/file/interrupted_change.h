#pragma once

#include <string>

namespace engine {

// Deletes the rollback journal that a program which died within a change left beside a name that leads to no
// catalogue any more. SQLite would take it for a part of the next file of that name, and spoil it.
void forgetInterruptedChange(const std::string& path);

}  // namespace engine
