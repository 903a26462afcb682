#include "platform/drives.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "platform/answering.h"
#include "platform/mount_table.h"
#include "platform/names.h"

namespace platform {
namespace {

constexpr const char* overrideVariable = "ZARQUELIN_DRIVES";

char upper(char c) {
    return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c;
}

bool isLetter(char c) {
    return upper(c) >= 'A' && upper(c) <= 'Z';
}

// The letter of "E:" or "E:\..."; 0 for anything else.
char letterOf(std::string_view drivePath) {
    const bool isDrive = drivePath.size() >= 2 && isLetter(drivePath[0]) && drivePath[1] == ':';
    return isDrive ? upper(drivePath[0]) : '\0';
}

std::optional<DriveType> typeNamed(std::string_view name) {
    if (name.empty() || name == "fixed") return DriveType::Fixed;
    if (name == "removable") return DriveType::Removable;
    if (name == "network") return DriveType::Network;
    if (name == "optical") return DriveType::Optical;
    if (name == "absent") return DriveType::Absent;
    return std::nullopt;
}

std::string withSingleSlashes(std::string_view path) {
    std::string clean;
    std::ranges::unique_copy(path, std::back_inserter(clean),
                             [](char a, char b) { return a == '/' && b == '/'; });
    while (clean.size() > 1 && clean.ends_with('/')) clean.pop_back();
    return clean;
}

// One entry of the override: "E=/mnt/a,optical", or "E=,optical" for a drive without a medium. The last comma
// parts the type only if a type stands behind it.
std::optional<Drive> parsedEntry(std::string_view entry) {
    const std::size_t equals = entry.find('=');
    if (equals != 1 || !isLetter(entry[0])) return std::nullopt;
    std::string_view mountPoint = entry.substr(2);
    DriveType type = DriveType::Fixed;
    if (const std::size_t comma = mountPoint.rfind(','); comma != std::string_view::npos) {
        if (const auto named = typeNamed(mountPoint.substr(comma + 1))) {
            type = *named;
            mountPoint = mountPoint.substr(0, comma);
        }
    }
    if (!mountPoint.empty() && !mountPoint.starts_with('/')) return std::nullopt;
    return Drive{upper(entry[0]), type, withSingleSlashes(mountPoint)};
}

// What of a native path lies below a mount point, from its slash on; nothing when it lies elsewhere.
std::optional<std::string_view> below(std::string_view path, std::string_view mountPoint) {
    if (mountPoint == "/") return path;
    if (mountPoint.empty()) return std::nullopt;
    if (!path.starts_with(mountPoint)) return std::nullopt;
    path.remove_prefix(mountPoint.size());
    if (!path.empty() && path[0] != '/') return std::nullopt;
    return path;
}

}  // namespace

Drives::Drives(std::vector<Drive> drives) : m_drives(std::move(drives)) {}

Drives Drives::current() {
    if (const char* override_ = std::getenv(overrideVariable)) return parse(override_);
    std::ifstream table("/proc/self/mountinfo", std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(table), {});
    return Drives(assignLetters(parseMountInfo(text), machineProbe()));
}

Drives Drives::parse(std::string_view override_) {
    std::vector<Drive> drives;
    while (!override_.empty()) {
        const std::size_t end = std::min(override_.find(';'), override_.size());
        const auto drive = parsedEntry(override_.substr(0, end));
        if (drive && std::ranges::find(drives, drive->letter, &Drive::letter) == drives.end())
            drives.push_back(*drive);
        override_.remove_prefix(std::min(end + 1, override_.size()));
    }
    return Drives(std::move(drives));
}

DriveType Drives::type(std::string_view driveName) const {
    const auto drive = std::ranges::find(m_drives, letterOf(driveName), &Drive::letter);
    return drive == m_drives.end() ? DriveType::Absent : drive->type;
}

bool Drives::answers(std::string_view driveName) const {
    const auto drive = std::ranges::find(m_drives, letterOf(driveName), &Drive::letter);
    return drive == m_drives.end() || drive->type != DriveType::Network || answersInTime(drive->mountPoint);
}

std::string Drives::toDrivePath(std::string_view nativePath) const {
    std::string clean;
    if (nativePath.find("//") != std::string_view::npos ||
        (nativePath.size() > 1 && nativePath.ends_with('/'))) {
        clean = withSingleSlashes(nativePath);
        nativePath = clean;
    }
    if (!nativePath.starts_with('/')) return {};

    const Drive* best = nullptr;
    std::string_view rest;
    for (const Drive& drive : m_drives) {
        if (best && drive.mountPoint.size() <= best->mountPoint.size()) continue;
        if (const auto inside = below(nativePath, drive.mountPoint)) {
            best = &drive;
            rest = *inside;
        }
    }
    if (!best) return {};

    std::string path = best->name();
    path += rest.empty() ? "/" : toStoredName(rest);  // a name's own backslash is an escape by now
    std::ranges::replace(path, '/', '\\');
    return path;
}

std::optional<std::string> Drives::toNativePath(std::string_view drivePath) const {
    const auto drive = std::ranges::find(m_drives, letterOf(drivePath), &Drive::letter);
    if (drive == m_drives.end() || drive->mountPoint.empty()) return std::nullopt;
    drivePath.remove_prefix(2);
    if (!drivePath.empty() && drivePath[0] != '\\') return std::nullopt;
    if (drivePath.find_first_of(std::string_view("/\0", 2)) != std::string_view::npos) return std::nullopt;

    std::string path = drive->mountPoint == "/" ? std::string() : drive->mountPoint;
    while (!drivePath.empty()) {
        const std::size_t end = std::min(drivePath.find('\\'), drivePath.size());
        const std::string_view component = drivePath.substr(0, end);
        if (component == "." || component == "..") return std::nullopt;
        if (!component.empty()) (path += '/') += toDiskName(component);
        drivePath.remove_prefix(std::min(end + 1, drivePath.size()));
    }
    return path.empty() ? "/" : path;
}

}  // namespace platform
