#include "core/catalogue_file.h"

#include <filesystem>

#include "core/text.h"
#include "engine/maintenance.h"
#include "platform/files.h"

namespace core {
namespace {

namespace fs = std::filesystem;

// A template on read-only media, or installed without write permission, must still give a catalogue to write
// in.
void makeWritable(const std::string& path) {
    std::error_code ignored;
    fs::permissions(path, fs::perms::owner_write, fs::perm_options::add, ignored);
}

}  // namespace

std::string templatePath() {
    return platform::programFolder() + "/original.ejm";
}

engine::Result<> createCatalogue(const std::string& path) {
    TRY(engine::CopyDatabase(templatePath(), path));
    makeWritable(path);
    return {};
}

engine::Result<> copyCatalogue(const std::string& source, const std::string& destination) {
    const auto copied = engine::CopyDatabase(source, destination);
    if (copied || (copied.error().number != engine::error::unrecognizedFormat &&
                   copied.error().number != engine::error::corrupt))
        return copied;
    return engine::CopyUnreadable(source, destination);
}

std::string scratchPath(const std::string& cataloguePath) {
    const std::string name = cataloguePath.substr(cataloguePath.rfind('/') + 1);
    std::string scratch = replaceAll(cataloguePath, name, scratchName);
    std::error_code ignored;
    // Links count too: what is deleted from the working copy must never be deleted from the catalogue.
    if (scratch == cataloguePath || fs::equivalent(scratch, cataloguePath, ignored)) return {};
    return scratch;
}

}  // namespace core
