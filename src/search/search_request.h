#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/language.h"
#include "search/statement_row.h"

namespace search {

// What a search asks for, as its controls show it. A type and a unit are in force when their texts differ
// from the first items ("all files and folders", "complete catalog"); date, size and note when their boxes
// are on.
struct SearchRequest {
    std::string name;  // Combo2
    std::string type;  // ImageCombo2
    std::string unit;  // ImageCombo3, with its " :"
    bool date = false;
    double from = 0;  // serial numbers of DTPicker1 and DTPicker2; the whole last day falls in the range
    double until = 0;
    bool size = false;
    std::string minimum;  // Text6 and Text7, in kilobytes; nothing swaps a reversed range
    std::string maximum;
    bool note = false;
    std::string noteText;  // Combo1

    bool operator==(const SearchRequest&) const = default;
};

// A request for `name` alone, all types and units.
[[nodiscard]] SearchRequest requestFor(std::string name, const core::Rotulos& rotulos);

[[nodiscard]] Family familyOf(const SearchRequest& request);
[[nodiscard]] Case caseOf(const SearchRequest& request, const core::Rotulos& rotulos);

// The type that an item of ImageCombo2 stands for; nothing for a text that is none of the eight.
[[nodiscard]] std::optional<FileType> typeOf(std::string_view caption, const core::Rotulos& rotulos);
[[nodiscard]] const std::string& captionOf(FileType type, const core::Rotulos& rotulos);

// The number with which a text begins, blanks being skipped; 0 when it begins with none.
[[nodiscard]] double numericValue(std::string_view text);

}  // namespace search
