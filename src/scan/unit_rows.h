#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/catalog_row.h"

namespace scan {

// The rows of one scanned unit, by their path below the folder that was scanned. Packed: a row takes some
// seventy bytes, its path and its note.
class UnitRows {
  public:
    struct Row {
        std::int64_t numero = 0;
        std::int64_t largo = 0;  // of a file
        double fecha = 0;
        std::size_t text = 0;          // where its path begins, and behind that its note
        std::uint32_t pathLength = 0;  // with its own name
        std::uint32_t nameLength = 0;
        std::uint32_t noteLength = 0;
        std::uint8_t nivel = 0;
        bool isFile = false;
        bool hasNote = false;
        bool factsKnown = true;  // false: date and length could not be asked for
    };

    // `base` is the scanned folder in drive form, as rows spell it; `disco` the unit.
    UnitRows(std::string base, std::string disco) : m_base(std::move(base)), m_disco(std::move(disco)) {}

    // False, and nothing is added, for a row that no scan of that folder can have made.
    [[nodiscard]] bool add(const core::CatalogRow& row);
    void lastFactsUnknown() { m_rows.back().factsKnown = false; }

    [[nodiscard]] const std::string& base() const { return m_base; }
    [[nodiscard]] const std::string& disco() const { return m_disco; }
    [[nodiscard]] const std::vector<Row>& rows() const { return m_rows; }

    // Relative to the base, with backslashes. Views hold until the next add().
    [[nodiscard]] std::string_view path(const Row& row) const { return {&m_text[row.text], row.pathLength}; }
    [[nodiscard]] std::string_view name(const Row& row) const;
    [[nodiscard]] std::string_view folder(const Row& row) const;  // that it lies in
    [[nodiscard]] std::string_view note(const Row& row) const;

    // The row as a scan of `base` writes it, with its note.
    [[nodiscard]] core::CatalogRow catalogRow(const Row& row, const std::string& base) const;

    // Whether a path in drive form lies below the base, and what of it does.
    [[nodiscard]] bool isBelowBase(std::string_view ruta, std::string_view& below) const;

  private:
    std::string m_base;
    std::string m_disco;
    std::vector<Row> m_rows;
    std::string m_text;
};

// The folder that a unit was scanned from, told by any of its rows: `ruta` without the folders that lie below
// the unit. Empty when the row's path is too short for its level.
[[nodiscard]] std::string scannedFolder(const core::CatalogRow& row);

}  // namespace scan
