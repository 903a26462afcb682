#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/catalog_row.h"
#include "scan/folder.h"
#include "scan/listing.h"
#include "scan/row_sink.h"
#include "scan/walk_observer.h"

namespace scan {

struct WalkResult {
    Counts counts;         // rows made, whether or not the catalogue took them
    bool stopped = false;  // the observer ended the walk, or no more rows were taken
    bool readable = true;  // the chosen folder itself could be opened
    WriteSummary writes;
};

// Where a walk starts and under which unit its rows go.
struct WalkStart {
    std::string nativePath;
    std::string drivePath;        // the same folder in drive form, as the rows spell it
    std::string disco;            // the unit's name with its " :"
    std::int64_t lastNumero = 0;  // the number of rows in the catalogue beforehand
    Exclusion exclusion{};        // names that get no row, and folders that are not entered
};

// What a file's row tells as its folder's name: of a drive root the two characters of the drive.
[[nodiscard]] std::string_view carpetaOf(std::string_view ruta);

// Turns a directory tree into rows: for each folder, its subfolders in order, each followed by all that lies
// under it, then its own files. Rows end at level 12, where the order is turned round: of a folder at level
// 11 the files come first, then the subfolders, which get a row but are not looked into.
//
// A link to a folder gets a row and is not followed, nor is a folder where one of the kernel's own file
// systems is mounted, unless the walk began in one. Everything else that is no folder is a file row: links to
// files with the date and length of the file, links to nothing with their own, sockets and the like unopened.
// What vanishes before its row is made is left out; what may not be looked at gets date and length 0.
class Walker {
  public:
    static constexpr int deepestLevel = 12;

    Walker(RowSink& rows, WalkObserver& observer, WalkStart start);
    [[nodiscard]] WalkResult run();

  private:
    enum class Flow { Goes, Stops };

    [[nodiscard]] Flow walk(Folder& folder, int level);
    [[nodiscard]] Flow descend(const Folder& parent, const Listing::Entry& entry, int level);
    void lastLevel(const Folder& parent, const Listing::Entry& entry);
    [[nodiscard]] bool isLookedInto(const Folder& folder, const Folder& parent);
    [[nodiscard]] const Listing& list(Folder& folder, int level);

    [[nodiscard]] bool folderRow(const Folder& parent, const Listing& names, const Listing::Entry& entry,
                                 int level);
    void fileRows(const Folder& folder, const Listing& names, int level);
    [[nodiscard]] std::string_view rowName(std::string_view diskName);

    RowSink& m_rows;
    WalkObserver& m_observer;
    WalkStart m_start;
    Counts m_counts;
    std::int64_t m_numero;
    std::string m_path;  // drive form of the folder at hand, free of apostrophes
    std::string m_convertedName;
    core::CatalogRow m_folderRow;
    core::CatalogRow m_fileRow;
    std::array<Listing, deepestLevel + 1> m_listings;  // one a level, kept for their memory
};

}  // namespace scan
