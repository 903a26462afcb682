#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/catalog_row.h"

namespace cli {

// One JSON object on one line. Text that is no valid UTF-8 (only a foreign hand can have stored it) is mended
// with replacement characters.
class JsonLine {
  public:
    JsonLine& text(std::string_view key, std::string_view value);
    JsonLine& textOrNull(std::string_view key, const std::optional<std::string>& value);
    JsonLine& number(std::string_view key, std::int64_t value);
    JsonLine& numberOrNull(std::string_view key, std::optional<std::int64_t> value);
    JsonLine& real(std::string_view key, double value);
    JsonLine& boolean(std::string_view key, bool value);

    // The finished line with its line feed; the object starts anew.
    [[nodiscard]] std::string take();

  private:
    void key(std::string_view name);
    void quoted(std::string_view value);
    std::string m_line = "{";
};

// A row of `datos` under its column names: `nivel` as text, `fecha` as the serial number, absent values null.
[[nodiscard]] std::string jsonRow(const core::CatalogRow& row);

// The same as comma-separated values: fields in quotes where they need them, absent values empty, an empty
// text as two quotes, lines ended by CR LF.
[[nodiscard]] std::string csvHeader();
[[nodiscard]] std::string csvRow(const core::CatalogRow& row);

// Writes to the standard output. finish() flushes it and tells whether everything has arrived.
void print(std::string_view text);
[[nodiscard]] bool finishOutput();

}  // namespace cli
