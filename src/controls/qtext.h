#pragma once

#include <QString>
#include <string_view>

namespace controls {

// The program's UTF-8 texts as the toolkit's.
[[nodiscard]] inline QString qtext(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace controls
