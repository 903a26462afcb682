#include "scan/left_out.h"

#include <initializer_list>

namespace scan {
namespace {

// For one and for many.
struct Wording {
    core::Bilingual one, many;
};
constexpr Wording unreadFolders{{"1 carpeta que no se pudo leer", "1 folder that could not be read"},
                                {"# carpetas que no se pudieron leer", "# folders that could not be read"}};
constexpr Wording kernelFolders{{"1 carpeta del sistema", "1 folder of the system"},
                                {"# carpetas del sistema", "# folders of the system"}};
constexpr Wording deepFolders{
    {"lo que hay en 1 carpeta del último nivel", "what is in 1 folder at the depth limit"},
    {"lo que hay en # carpetas del último nivel", "what is in # folders at the depth limit"}};
constexpr Wording itemsWithoutFacts{{"la fecha y el tamaño de 1 elemento", "the date and size of 1 item"},
                                    {"la fecha y el tamaño de # elementos", "the date and size of # items"}};

std::string counted(std::int64_t number, const Wording& wording, core::Language language) {
    if (number == 0) return {};
    std::string text((number == 1 ? wording.one : wording.many).in(language));
    if (const std::size_t at = text.find('#'); at != text.npos) text.replace(at, 1, std::to_string(number));
    return text;
}

// With the first of them.
std::string listed(const std::vector<std::string>& folders, const Wording& wording, core::Language language) {
    if (folders.empty()) return {};
    return counted(std::ssize(folders), wording, language) + " (" + folders.front() +
           (folders.size() > 1 ? ", ...)" : ")");
}

std::string joined(std::initializer_list<std::string> parts) {
    std::string all;
    for (const std::string& part : parts)
        if (!part.empty()) all.append(all.empty() ? "" : ", ").append(part);
    return all;
}

}  // namespace

void LeftOut::add(Gap gap, std::string_view drivePath) {
    if (gap == Gap::Content || gap == Gap::Kernel)
        (gap == Gap::Kernel ? m_kernel : m_unread).emplace_back(drivePath);
    else
        ++(gap == Gap::Depth ? m_tooDeep : m_withoutFacts);
}

std::string LeftOut::failedText(core::Language language) const {
    return joined(
        {listed(m_unread, unreadFolders, language), counted(m_withoutFacts, itemsWithoutFacts, language)});
}

std::string LeftOut::text(core::Language language) const {
    return joined({listed(m_unread, unreadFolders, language), listed(m_kernel, kernelFolders, language),
                   counted(m_tooDeep, deepFolders, language),
                   counted(m_withoutFacts, itemsWithoutFacts, language)});
}

}  // namespace scan
