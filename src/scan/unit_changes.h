#pragma once

#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/database.h"
#include "scan/unit_rows.h"

namespace scan {

// What of the medium was found when it was read again.
struct FoundUnit {
    UnitRows rows;
    // The folders that could not be read, below the base ("" is the medium itself), each with the number of
    // rows found up to its own.
    std::unordered_map<std::string, std::size_t> unread;
};

// A unit as it stands in the catalogue beside what was found on its medium: which rows come, go and change,
// and the rows that are to stand instead.
//
// Rows belong together when path, name and kind are the same bytes. A row has changed when its size in KB
// differs, or its date by more than two seconds (the step of FAT). Dates are local time, so that a machine
// taken to another time zone finds all of them changed. What lies in a folder that could not be read keeps
// its rows, and what could not be looked at keeps its date and size. Notes stay with the rows that stay, and
// go over to a row whose path differs in case only, as FAT discs show names.
class UnitChanges {
  public:
    enum class Kind : char { Added = '+', Removed = '-', Changed = '~' };
    struct Change {
        Kind kind;
        std::uint32_t at;  // of a removed row in the stored ones, else in the new order
    };

    // New rows are numbered behind the `otherRows` rows of the other units.
    UnitChanges(UnitRows stored, FoundUnit found, std::int64_t otherRows);

    [[nodiscard]] const std::vector<Change>& changes() const { return m_changes; }
    [[nodiscard]] std::string path(const Change& change) const;  // below the base, as rows spell it

    // The row that comes or goes, with its note.
    [[nodiscard]] core::CatalogRow row(const Change& change) const;

    // The removed rows whose notes go with them.
    [[nodiscard]] const std::vector<Change>& lostNotes() const { return m_lostNotes; }

    // True when the catalogue tells everything as it is, also where it is.
    [[nodiscard]] bool areNone() const;

    // Puts the new rows in the place of the stored ones, within a transaction of the caller's. `stopped` is
    // asked now and then; false when it ended the work, and the transaction must be rolled back.
    [[nodiscard]] engine::Result<bool> write(engine::Database& database,
                                             const std::function<bool()>& stopped) const;

  private:
    static constexpr std::uint32_t none = 0xFFFF'FFFF;
    // Where a row of the new order comes from.
    struct Place {
        std::uint32_t found = none;
        std::uint32_t stored = none;  // of the same path, or the row that is kept
    };

    void match();
    void order();
    void passNotesOn();
    [[nodiscard]] std::optional<std::size_t> keeper(const UnitRows::Row& row) const;
    [[nodiscard]] bool isChanged(const Place& place) const;
    [[nodiscard]] core::CatalogRow newRow(std::size_t at) const;

    UnitRows m_stored;
    FoundUnit m_found;
    std::int64_t m_otherRows;
    std::vector<std::uint32_t> m_matches;  // of the found rows in the stored ones
    std::vector<bool> m_taken;             // of the stored rows
    std::vector<Place> m_order;
    std::vector<Change> m_changes;
    std::vector<Change> m_lostNotes;
    std::unordered_map<std::uint32_t, std::uint32_t> m_heirs;  // in the new order, of notes of stored rows
};

}  // namespace scan
