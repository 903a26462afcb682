#include "platform/names.h"

#include <algorithm>

namespace platform {
namespace {

// The escapes U+F000..U+F0FF in UTF-8: EF 80 80 to EF 83 BF.
constexpr unsigned char escapeLead = 0xEF;
constexpr unsigned char escapeFirstMiddle = 0x80;
constexpr unsigned char escapeLastMiddle = 0x83;

unsigned char byteAt(std::string_view text, std::size_t at) {
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
}

bool isContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

// Length of the well-formed UTF-8 character that starts at `at`; 0 when there is none.
std::size_t characterLength(std::string_view text, std::size_t at) {
    const unsigned char lead = byteAt(text, at), second = byteAt(text, at + 1);
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4 || !isContinuation(second)) return 0;
    if (lead < 0xE0) return 2;
    if (!isContinuation(byteAt(text, at + 2))) return 0;
    if (lead < 0xF0) {
        const bool overlong = lead == 0xE0 && second < 0xA0;
        const bool surrogate = lead == 0xED && second > 0x9F;
        return overlong || surrogate ? 0 : 3;
    }
    if (!isContinuation(byteAt(text, at + 3))) return 0;
    const bool overlong = lead == 0xF0 && second < 0x90;
    const bool beyondLast = lead == 0xF4 && second > 0x8F;
    return overlong || beyondLast ? 0 : 4;
}

bool isEscape(std::string_view text, std::size_t at) {
    const unsigned char middle = byteAt(text, at + 1);
    return byteAt(text, at) == escapeLead && middle >= escapeFirstMiddle && middle <= escapeLastMiddle &&
           isContinuation(byteAt(text, at + 2));
}

void appendEscape(std::string& out, unsigned char byte) {
    out += char(escapeLead);
    out += char(escapeFirstMiddle | (byte >> 6));
    out += char(0x80 | (byte & 0x3F));
}

unsigned char escapedByte(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>((byteAt(text, at + 1) & 0x03) << 6 | (byteAt(text, at + 2) & 0x3F));
}

}  // namespace

std::string toStoredName(std::string_view diskName) {
    const auto plainEnd = std::ranges::find_if(
        diskName, [](char c) { return static_cast<unsigned char>(c) >= 0x80 || c == '\\'; });
    std::string name(diskName.begin(), plainEnd);
    for (std::size_t at = name.size(); at < diskName.size();) {
        const std::size_t length = characterLength(diskName, at);
        if (length == 0 || diskName[at] == '\\' || isEscape(diskName, at)) {
            appendEscape(name, byteAt(diskName, at));
            // The rest of an escape character is escaped byte by byte as stray continuations.
            ++at;
        } else {
            name.append(diskName, at, length);
            at += length;
        }
    }
    return name;
}

std::string toDiskName(std::string_view storedName) {
    if (storedName.find(char(escapeLead)) == std::string_view::npos) return std::string(storedName);
    std::string name;
    name.reserve(storedName.size());
    for (std::size_t at = 0; at < storedName.size();) {
        // Only bytes that toStoredName escapes turn back: a hostile name cannot smuggle in '/', '.'
        // or NUL.
        const unsigned char byte = isEscape(storedName, at) ? escapedByte(storedName, at) : 0;
        if (byte >= 0x80 || byte == '\\') {
            name += char(byte);
            at += 3;
        } else {
            name += storedName[at++];
        }
    }
    return name;
}

}  // namespace platform
