#pragma once

#include <string>

#include "engine/error.h"
#include "platform/temporary_file.h"

namespace engine {

[[nodiscard]] Error errorOf(const platform::FileError& failure);

// The file that is written beside `target`, to be put in its place.
[[nodiscard]] Result<platform::TemporaryFile> replacementFor(const std::string& target);

// Puts it there with the permissions of `model`, as a copy has them unless it is the target's own. What was
// done to names in the folder until now is certain before.
[[nodiscard]] Result<> putInPlace(platform::TemporaryFile& replacement, const std::string& model);

// Deletes the rollback journal that a program which died within a change left beside a name that leads to no
// catalogue any more. SQLite would take it for a part of the next file of that name, and spoil it: where this
// fails, no file may be put there.
[[nodiscard]] Result<> forgetInterruptedChange(const std::string& path);

}  // namespace engine
