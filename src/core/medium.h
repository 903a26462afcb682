#pragma once

#include <array>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/language.h"
#include "core/notice.h"
#include "platform/drives.h"

namespace core {

// Finding a catalogued file on its medium. The catalogue has an acute accent wherever a real name has an
// apostrophe, so a path is looked for in several spellings; and a disc may be in another drive than the one
// it was scanned in.

enum class Spelling { Stored, Restored };  // Restored: each acute accent turned back into an apostrophe

struct Candidate {
    Spelling path;
    Spelling name;
    bool operator==(const Candidate&) const = default;
};

// The spellings in the order in which opening and copying try them.
inline constexpr std::array openingTries{
    Candidate{Spelling::Stored, Spelling::Stored}, Candidate{Spelling::Stored, Spelling::Restored},
    Candidate{Spelling::Restored, Spelling::Restored},
    Candidate{Spelling::Stored, Spelling::Stored},  // once more before giving up
};
inline constexpr std::array copyCandidates{
    Candidate{Spelling::Stored, Spelling::Stored}, Candidate{Spelling::Restored, Spelling::Stored},
    Candidate{Spelling::Restored, Spelling::Restored},
    Candidate{Spelling::Stored, Spelling::Restored},  // on fixed disks and in the root of a drive only
};

// Where a file lay when it was scanned. Both texts are as catalogued.
struct CataloguedFile {
    std::string ruta;  // drive form
    std::string name;

    // `ruta` up to its first backslash, "E:"; empty when there is none (the row of a hand-made unit).
    [[nodiscard]] std::string_view letraunidad() const;
    [[nodiscard]] bool liesInRoot() const;
    // `ruta` moved to another drive; only the leading drive is replaced.
    [[nodiscard]] std::string rutaotraunidad(std::string_view drive) const;
};

// A file that exists. `path` and `folder` are native, the rest is in the catalogue's form.
struct FoundFile {
    std::string path;
    std::string folder;
    std::string base;  // the folder as tried
    std::string name;  // as tried
    Candidate candidate;
};

[[nodiscard]] std::string spelled(std::string_view text, Spelling spelling);

// The first of the candidates that is a file in the folder `base`, which is in drive form.
[[nodiscard]] std::optional<FoundFile> findFile(const platform::Drives& drives, std::string_view base,
                                                std::string_view name, std::span<const Candidate> candidates);

// The same in every drive in turn, the file's own included.
[[nodiscard]] std::optional<FoundFile> scanDrives(const platform::Drives& drives, const CataloguedFile& file,
                                                  std::span<const Candidate> candidates);

// Asked anew before each look, since a disc may have come or gone.
using DriveSource = std::function<platform::Drives()>;

// The drive scan; when it finds nothing, "Introduzca la unidad ..." and the scan once more.
[[nodiscard]] std::optional<FoundFile> scanDrivesAsking(const DriveSource& drives, const CataloguedFile& file,
                                                        std::span<const Candidate> candidates,
                                                        const std::function<void()>& askForUnit);

[[nodiscard]] Notice introduceUnit(std::string_view disco, Language language);
[[nodiscard]] Notice noSuchFile(std::string_view name, Language language);

}  // namespace core
