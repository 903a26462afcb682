#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/catalog_row.h"
#include "platform/drives.h"

namespace cli {

// Text as a terminal may show it: no character of it breaks the line, moves the cursor or turns the reading
// direction. Such characters, and bytes that are no UTF-8, show as \n, \t, \xNN or \u{NNNN}.
[[nodiscard]] std::string shown(std::string_view text);
void appendShown(std::string& out, std::string_view text);
// The same of a note, which keeps its line ends.
[[nodiscard]] std::string shownNote(std::string_view note);

// One JSON object on one line, control characters of all sorts escaped. Text that is no valid UTF-8 (only a
// foreign hand can have stored it) is mended with replacement characters.
class JsonLine {
  public:
    JsonLine& text(std::string_view key, std::string_view value);
    JsonLine& textOrNull(std::string_view key, const std::optional<std::string>& value);
    JsonLine& number(std::string_view key, std::int64_t value);
    JsonLine& numberOrNull(std::string_view key, std::optional<std::int64_t> value);
    JsonLine& real(std::string_view key, double value);
    JsonLine& boolean(std::string_view key, bool value);
    JsonLine& texts(std::string_view key, std::span<const std::string> values);
    // A list of objects, each as take() gave it.
    JsonLine& objects(std::string_view key, std::span<const std::string> lines);

    // The finished line with its line feed; the object starts anew.
    [[nodiscard]] std::string take();

  private:
    void key(std::string_view name);
    void quoted(std::string_view value);
    std::string m_line = "{";
};

// A row of `datos` under its column names: `nivel` as text, `fecha` as the serial number, absent values null.
// Then `path`, the native path it stands for with these drives (null without one), and `modified`.
void addRow(JsonLine& line, const core::CatalogRow& row, const platform::Drives& drives);
[[nodiscard]] std::string jsonRow(const core::CatalogRow& row, const platform::Drives& drives);

// The native path of a row's file or folder, in the spelling that is on the medium if one is: rows have "´"
// for an apostrophe. Nothing where its drive is not there, and for a hand-made unit.
[[nodiscard]] std::optional<std::string> nativePath(const core::CatalogRow& row,
                                                    const platform::Drives& drives);

// The same as comma-separated values: fields in quotes where they need them, absent values empty, an empty
// text as two quotes, lines ended by CR LF.
[[nodiscard]] std::string csvHeader();
[[nodiscard]] std::string csvRow(const core::CatalogRow& row);

// Writes to the standard output. finish() flushes it and tells whether everything has arrived.
void print(std::string_view text);
[[nodiscard]] bool finishOutput();

}  // namespace cli
