#include "scan/listing.h"

#include <algorithm>

#include "core/text.h"
#include "platform/names.h"

namespace scan {
namespace {

enum class Spelling { IsItsOwnKey, AsciiWithCapitals, NeedsUnicode };

Spelling spellingOf(std::string_view name) {
    auto spelling = Spelling::IsItsOwnKey;
    for (const char c : name) {
        if (static_cast<unsigned char>(c) >= 0x80) return Spelling::NeedsUnicode;
        if (c >= 'A' && c <= 'Z') spelling = Spelling::AsciiWithCapitals;
    }
    return spelling;
}

std::uint64_t prefixOf(std::string_view key) {
    std::uint64_t prefix = 0;
    for (std::size_t i = 0; i < 8; ++i)
        prefix = prefix << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
    return prefix;
}

}  // namespace

void Listing::clear() {
    m_text.clear();
    m_folders.clear();
    m_files.clear();
}

Listing::Entry Listing::makeEntry(std::string_view name, bool isLink) {
    Entry entry{};
    entry.isLink = isLink;
    entry.name = entry.key = static_cast<std::uint32_t>(m_text.size());
    entry.nameLength = entry.keyLength = static_cast<std::uint32_t>(name.size());
    m_text.append(name).push_back('\0');

    const Spelling spelling = spellingOf(name);
    if (spelling != Spelling::IsItsOwnKey) {
        entry.key = static_cast<std::uint32_t>(m_text.size());
        if (spelling == Spelling::AsciiWithCapitals)
            for (const char c : name)
                m_text.push_back(c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c);
        else
            m_text.append(core::lowerCase(platform::toStoredName(name)));
        entry.keyLength = static_cast<std::uint32_t>(m_text.size()) - entry.key;
    }
    entry.prefix = prefixOf({m_text.data() + entry.key, entry.keyLength});
    return entry;
}

bool Listing::precedes(const Entry& left, const Entry& right) const {
    if (left.prefix != right.prefix) return left.prefix < right.prefix;
    const std::string_view leftKey{m_text.data() + left.key, left.keyLength};
    const std::string_view rightKey{m_text.data() + right.key, right.keyLength};
    if (const int order = leftKey.compare(rightKey); order != 0) return order < 0;
    return name(left) < name(right);
}

void Listing::sort() {
    const auto byName = [this](const Entry& left, const Entry& right) { return precedes(left, right); };
    std::sort(m_folders.begin(), m_folders.end(), byName);
    std::sort(m_files.begin(), m_files.end(), byName);
}

}  // namespace scan
