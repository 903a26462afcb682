#include "core/path_readings.h"

#include <algorithm>
#include <filesystem>

#include "platform/names.h"

namespace core {
namespace {

// The names between the separators, put together with backslashes.
template <class Convert>
std::string joined(std::string_view path, std::string_view separators, Convert convert) {
    std::string result;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find_first_of(separators), path.size());
        const std::string_view name = path.substr(0, end);
        if (!name.empty() && name != ".") {
            if (!result.empty()) result += '\\';
            result += convert(name);
        }
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return result;
}

class Readings {
  public:
    void add(bool relative, std::string path, bool folderOnly) {
        PathReading reading{relative, std::move(path), folderOnly};
        if (std::ranges::find(m_all, reading) == m_all.end()) m_all.push_back(std::move(reading));
    }
    // As stored, as typed with either separator, and with names that hold backslashes; these first where the
    // other separator shows that they are names.
    void addSpellings(bool relative, std::string_view path) {
        const auto addWith = [&](std::string_view separators, auto convert) {
            const bool folderOnly = !path.empty() && separators.contains(path.back());
            add(relative, joined(path, separators, convert), folderOnly);
        };
        const bool hasSlash = path.contains('/');
        if (hasSlash) addWith("/", platform::toStoredName);
        addWith("/\\", [](std::string_view name) { return std::string(name); });
        addWith("/\\", platform::toStoredName);
        if (!hasSlash) addWith("/", platform::toStoredName);
    }
    void addNative(const platform::Drives& drives, const std::filesystem::path& path, bool folderOnly) {
        std::string drivePath = drives.toDrivePath(path.native());
        if (drivePath.empty()) return;
        if (drivePath.ends_with('\\')) drivePath.pop_back();
        add(false, std::move(drivePath), folderOnly);
    }
    std::vector<PathReading> take() { return std::move(m_all); }

  private:
    std::vector<PathReading> m_all;
};

bool beginsWithDrive(std::string_view path) {
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    return path.size() >= 2 && isLetter(path[0]) && path[1] == ':';
}

}  // namespace

std::vector<PathReading> readingsOf(std::string_view typed, const platform::Drives& drives) {
    Readings readings;
    if (typed.starts_with('/')) {
        const std::filesystem::path path = std::filesystem::path(typed).lexically_normal();
        const bool folderOnly = !path.has_filename();
        readings.addNative(drives, path, folderOnly);
        // A scan goes by the real path of its folder.
        const auto file = folderOnly ? path.parent_path() : path;
        std::error_code failed;
        const auto folder = std::filesystem::weakly_canonical(file.parent_path(), failed);
        if (!failed) readings.addNative(drives, folder / file.filename(), folderOnly);
    }
    if (beginsWithDrive(typed)) readings.addSpellings(false, typed);
    readings.addSpellings(true, typed);
    return readings.take();
}

}  // namespace core
