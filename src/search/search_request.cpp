#include "search/search_request.h"

#include <algorithm>
#include <charconv>

namespace search {

SearchRequest requestFor(std::string name, const core::Rotulos& rotulos) {
    SearchRequest request;
    request.name = std::move(name);
    request.type = rotulos.rotulotodos;
    request.unit = rotulos.rotulocatalogo;
    return request;
}

Family familyOf(const SearchRequest& request) {
    if (request.note) return request.size ? Family::SizeNote : Family::Note;
    return request.size ? Family::Size : Family::Name;
}

Case caseOf(const SearchRequest& request, const core::Rotulos& rotulos) {
    const bool allTypes = request.type == rotulos.rotulotodos;
    const bool allUnits = request.unit == rotulos.rotulocatalogo;
    if (allUnits) return allTypes ? Case::A : Case::B;
    return allTypes ? Case::C : Case::D;
}

std::optional<FileType> typeOf(std::string_view caption, const core::Rotulos& rotulos) {
    const auto type = std::ranges::find_if(
        fileTypes, [&](FileType candidate) { return captionOf(candidate, rotulos) == caption; });
    if (type == fileTypes.end()) return std::nullopt;
    return *type;
}

const std::string& captionOf(FileType type, const core::Rotulos& rotulos) {
    switch (type) {
        case FileType::Audio:
            return rotulos.rotuloaudio;
        case FileType::Picture:
            return rotulos.rotuloimagen;
        case FileType::Video:
            return rotulos.rotulovideo;
        case FileType::Application:
            return rotulos.rotuloejecutable;
        case FileType::Text:
            return rotulos.rotulotexto;
        case FileType::Web:
            return rotulos.rotuloweb;
        case FileType::Zipped:
            return rotulos.rotulocomprimido;
        case FileType::All:
            break;
    }
    return rotulos.rotulotodos;
}

double numericValue(std::string_view text) {
    std::string digits;
    std::ranges::remove_copy_if(text, std::back_inserter(digits),
                                [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; });
    std::string_view number = digits;
    if (number.starts_with('+')) number.remove_prefix(1);
    // A sign alone, "inf" and "nan" are no numbers here.
    const std::size_t begin = number.starts_with('-') ? 1 : 0;
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (begin >= number.size() || !(isDigit(number[begin]) || number[begin] == '.')) return 0;
    double value = 0;
    std::from_chars(number.data(), number.data() + number.size(), value);
    return value == 0 ? 0 : value;  // no negative zero
}

}  // namespace search
