#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

enum class DriveType { Absent = 1, Removable = 2, Fixed = 3, Network = 4, Optical = 5 };

struct Drive {
    char letter = 'C';  // upper case
    DriveType type = DriveType::Fixed;
    std::string mountPoint;  // native absolute path without a trailing slash; empty: no medium

    [[nodiscard]] std::string name() const { return {letter, ':'}; }  // "C:"
};

// The machine's file systems under drive letters, as one snapshot: `C:` is "/", others follow from `D:`
// (fixed ones by mount point first, then removable, optical and network ones in mount order). Pseudo file
// systems have no letter. The environment variable ZARQUELIN_DRIVES ("C=/;E=/mnt/a,optical") replaces the
// list.
class Drives {
  public:
    Drives() = default;
    explicit Drives(std::vector<Drive> drives);
    [[nodiscard]] static Drives current();  // reads the mount table, or the override
    [[nodiscard]] static Drives parse(
        std::string_view override_);  // the override's form; bad entries are skipped

    [[nodiscard]] const std::vector<Drive>& list() const { return m_drives; }
    [[nodiscard]] DriveType type(std::string_view driveName) const;  // "E:", in either case

    // Whether looking at a drive gives an answer soon: a network drive whose server is gone would never give
    // one. Asked only before such a drive is really needed; waits for a second at most.
    [[nodiscard]] bool answers(std::string_view driveName) const;

    // Drive form of a native absolute path, by the longest mount point that holds it: "E:\fotos\2003", and
    // "E:\" for the mount point itself. Names are converted as names.h tells. Empty when no drive
    // holds the path.
    [[nodiscard]] std::string toDrivePath(std::string_view nativePath) const;
    // The native path of a drive-form path; nothing when its drive has no mount point. Both "E:" and "E:\"
    // give the mount point. Components "." and ".." are refused, so that no row leads out of its folder.
    [[nodiscard]] std::optional<std::string> toNativePath(std::string_view drivePath) const;

  private:
    std::vector<Drive> m_drives;
};

}  // namespace platform
