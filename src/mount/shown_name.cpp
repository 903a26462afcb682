#include "mount/shown_name.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <functional>

#include "core/text.h"
#include "core/unit_name.h"
#include "platform/names.h"

namespace mount {
namespace {

constexpr std::size_t longestName = 255;  // bytes, as on every disk

// Cut where a character begins.
std::string cutTo(std::string name, std::size_t size) {
    if (name.size() <= size) return name;
    while (size > 0 && (static_cast<unsigned char>(name[size]) & 0xC0) == 0x80) --size;
    name.resize(size);
    return name;
}

std::string replacedBytes(std::string_view name) {
    std::string text;
    for (const char c : name) {
        if (c == '/')
            text += "∕";
        else if (c == '\0')
            text += "␀";
        else
            text += c;
    }
    return text;
}

}  // namespace

ShownName shownName(std::string_view catalogueName) {
    std::string name = platform::toDiskName(catalogueName);
    if (name.empty()) return {"␢", true};
    if (name == ".") return {"․", true};
    if (name == "..") return {"‥", true};
    const bool impossible = name.find_first_of(std::string_view("/\0", 2)) != std::string::npos;
    if (impossible) name = replacedBytes(name);
    if (name.size() <= longestName) return {std::move(name), impossible};
    // An acute accent takes more bytes than the apostrophe that it stands for.
    std::string shorter = core::withApostrophes(name);
    return {shorter.size() <= longestName ? std::move(shorter) : markedName(name, catalogueName), true};
}

ShownName shownUnitName(std::string_view disco) {
    if (!core::isDisco(disco)) return {shownName(disco).bytes, true};
    return shownName(core::unitName(disco));
}

std::string markedName(const std::string& shown, std::string_view catalogueName) {
    std::array<char, 32> mark{};
    const int size =
        std::snprintf(mark.data(), mark.size(), "~%016llx",
                      static_cast<unsigned long long>(std::hash<std::string_view>{}(catalogueName)));
    const auto length = static_cast<std::size_t>(size);
    return cutTo(shown, longestName - length).append(mark.data(), length);
}

}  // namespace mount
