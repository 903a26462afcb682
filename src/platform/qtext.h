#pragma once

#include <QString>
#include <string_view>

namespace platform {

// The program's UTF-8 texts as the toolkit's. Unlike QString::fromUtf8 it keeps a byte order mark at the
// beginning: a name on a disk may well have one.
[[nodiscard]] inline QString qtext(std::string_view text) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    const QString characters = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    return text.starts_with(mark) ? QChar(0xFEFF) + characters : characters;
}

}  // namespace platform
