#include "core/catalogue_file.h"

#include <filesystem>
#include <optional>

#include "core/text.h"
#include "engine/database.h"
#include "engine/maintenance.h"

namespace core {
namespace {

namespace fs = std::filesystem;

// A template on read-only media, or installed without write permission, must still give a catalogue to write
// in.
void makeWritable(const std::string& path) {
    std::error_code ignored;
    fs::permissions(path, fs::perms::owner_write, fs::perm_options::add, ignored);
}

std::unexpected<platform::FileError> refused(const std::string& path, const engine::Error& error) {
    return std::unexpected(
        platform::FileError{platform::FileError::permissionDenied, path + ": " + error.text});
}

// Nothing for what is no catalogue: its bytes are as good at any time.
platform::FileResult<std::optional<engine::Database>> heldStill(const std::string& path) {
    auto database = engine::OpenDatabase(path, engine::Use::ReadOnly);
    if (!database) return std::nullopt;
    if (const auto still = database->HoldStill(); !still) return refused(path, still.error());
    return std::move(*database);
}

}  // namespace

platform::FileResult<> createCatalogue(const std::string& path) {
    const std::string original = platform::programFolder() + '/' + std::string(templateName);
    if (auto copied = copyCatalogue(original, path); !copied) return copied;
    makeWritable(path);
    return {};
}

platform::FileResult<> copyCatalogue(const std::string& source, const std::string& destination) {
    auto held = heldStill(source);
    if (!held) return std::unexpected(held.error());
    auto replaced = engine::OpenDatabase(destination);
    if (replaced) {
        if (const auto alone = replaced->BeginTrans();
            !alone && alone.error().number != engine::error::readOnly)
            return refused(destination, alone.error());
    } else if (replaced.error().number == engine::error::locked) {
        return refused(destination, replaced.error());
    } else {
        engine::ForgetInterruptedChange(destination);
    }
    return platform::CopyFile(source, destination);
}

platform::FileResult<> copyToScratch(const std::string& source, const std::string& scratch) {
    auto held = heldStill(source);
    if (!held) return std::unexpected(held.error());
    return platform::CopyFile(source, scratch, platform::Flush::No);
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
