#include "cli/folder_operand.h"

#include <filesystem>
#include <system_error>

namespace cli {

scan::Exclusion exclusionOf(const Arguments& arguments) {
    return {arguments.values("--exclude"), arguments.has("--no-hidden")};
}

std::string resolved(const std::string& folder) {
    std::error_code failed;
    const auto canonical = std::filesystem::canonical(folder, failed);
    if (!failed) return canonical.native();
    const auto absolute = std::filesystem::absolute(folder, failed);
    return failed ? folder : absolute.lexically_normal().native();
}

}  // namespace cli
