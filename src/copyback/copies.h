#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/lookup.h"
#include "core/medium.h"
#include "platform/files.h"
#include "platform/held_files.h"

namespace copyback {

// One row that is to be copied, and how many of the folders that lead to it are made in the destination.
struct CopyItem {
    core::CatalogRow row;
    std::size_t folders = 0;
    core::Spelling first = core::Spelling::Stored;
};

// What copying a place takes: a file alone, or a folder or unit with all that is below it, in the order of
// the catalogue. A folder keeps its name, a unit has none.
[[nodiscard]] engine::Result<std::vector<CopyItem>> itemsOf(engine::Database& database,
                                                            const core::FoundRow& place);

// Copies rows to a folder, with the names that they have on their medium, without asking for it. No file of
// one run replaces another of the same.
class Copies {
  public:
    enum class Existing { Replace, Leave };
    enum class End { Done, NoMedium, Failed };

    Copies(platform::Drives drives, std::string destination, Existing existing);

    // Of a folder that is on its medium, makes it.
    End copy(const CopyItem& item);
    // What the last copy failed for, in English.
    [[nodiscard]] const std::string& failure() const { return m_failure; }

  private:
    End copyFile(const CopyItem& item);
    End makeFolder(const CopyItem& item);
    [[nodiscard]] std::optional<core::FoundFile> locateAnew(const CopyItem& item) const;
    [[nodiscard]] std::optional<std::string> folderFor(std::string_view base, std::size_t folders);
    End failed(std::string text);

    platform::Drives m_drives;
    std::string m_destination;
    Existing m_existing;
    std::set<std::string> m_sources;
    // The source of each file: on some disks two names lead to one.
    std::map<platform::FileIdentity, std::string> m_written;
    std::string m_failure;
};

}  // namespace copyback
