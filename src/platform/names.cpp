#include "platform/names.h"

#include <algorithm>

#include "platform/utf8.h"

namespace platform {
namespace {

bool isEscape(char32_t character) {
    return (character & ~char32_t{0xFF}) == escapeBase;
}

bool isEscaped(unsigned char byte) {
    return byte >= 0x80 || byte == '\\';
}

}  // namespace

std::string toStoredName(std::string_view diskName) {
    const auto plainEnd = std::ranges::find_if(diskName, isEscaped);
    std::string name(diskName.begin(), plainEnd);
    for (std::size_t at = name.size(); at < diskName.size();) {
        const std::size_t begin = at;
        const char32_t character = nextCharacter(diskName, at);
        const std::string_view bytes = diskName.substr(begin, at - begin);
        if (isStrayByte(character) || character == '\\' || isEscape(character))
            for (const unsigned char byte : bytes) appendCharacter(name, escapeBase | byte);
        else
            name += bytes;
    }
    return name;
}

// Only bytes that toStoredName escapes turn back: a hostile name cannot smuggle in '/', '.' or NUL.
std::string toDiskName(std::string_view storedName) {
    std::string name;
    name.reserve(storedName.size());
    for (std::size_t at = 0; at < storedName.size();) {
        const std::size_t begin = at;
        const char32_t character = nextCharacter(storedName, at);
        if (isEscape(character) && isEscaped(static_cast<unsigned char>(character & 0xFF)))
            name += static_cast<char>(character & 0xFF);
        else
            name += storedName.substr(begin, at - begin);
    }
    return name;
}

}  // namespace platform
