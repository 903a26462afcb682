#include "lists/file_types.h"

#include <array>
#include <span>

#include "core/unit_kinds.h"

namespace lists {
namespace {

struct Ending {
    std::string_view lower;
    std::string_view upper;  // mixed case matches nothing: "Photo.Jpg" is a plain file
    bool browsingOnly = false;
};

struct Group {
    int picture;
    std::string core::Rotulos::*caption;
    std::span<const Ending> endings;
};

constexpr Ending audio[] = {{".mp3", ".MP3"}, {".wav", ".WAV"}, {".vox", ".VOX"}, {".au", ".AU"}};
constexpr Ending image[] = {{".jpg", ".JPG"}, {".bmp", ".BMP"}, {".gif", ".GIF"}, {".ico", ".ICO"}};
constexpr Ending video[] = {{".avi", ".AVI"}, {".mpge", ".MPGE"}, {".mpeg", ".MPEG", true},
                            {".mpg", ".MPG"}, {".mov", ".MOV"},   {".asf", ".ASF"}};
constexpr Ending program[] = {{".exe", ".EXE"}};
constexpr Ending text[] = {
    {".txt", ".TXT"}, {".doc", ".DOC"}, {".pdf", ".PDF"}, {".nfo", ".NFO"}, {".dat", ".DAT"}};
constexpr Ending web[] = {{".html", ".HTML"}, {".htm", ".HTM"}, {".mht", ".MHT"}};
constexpr Ending zipped[] = {
    {".zip", ".ZIP"}, {".rar", ".RAR"}, {".vox", ".VOX", true}, {".rad", ".RAD"}, {".cab", ".CAB"}};

using core::Rotulos;
constexpr std::array<Group, 7> groups{{
    {7, &Rotulos::rotuloaudio, audio},
    {8, &Rotulos::rotuloimagen, image},
    {9, &Rotulos::rotulovideo, video},
    {10, &Rotulos::rotuloejecutable, program},
    {11, &Rotulos::rotulotexto, text},
    {12, &Rotulos::rotuloweb, web},
    {13, &Rotulos::rotulocomprimido, zipped},
}};

bool holds(const Group& group, std::string_view ending, PatternSet set) {
    for (const Ending& known : group.endings) {
        if (known.browsingOnly && set != PatternSet::Browsing) continue;
        if (ending == known.lower || ending == known.upper) return true;
    }
    return false;
}

}  // namespace

FileKind fileKind(std::string_view archivo, PatternSet set, const core::Rotulos& rotulos) {
    FileKind kind{1, rotulos.rotuloarchivo};
    const auto dot = archivo.rfind('.');
    if (dot == std::string_view::npos) return kind;
    const std::string_view ending = archivo.substr(dot);
    for (const Group& group : groups)  // the last group that holds wins
        if (holds(group, ending, set)) kind = {group.picture, rotulos.*group.caption};
    return kind;
}

std::string tipoCaption(std::string_view tipo, core::Language language, std::string_view previous) {
    if (language == core::Language::Spanish) return std::string(tipo);
    for (const core::UnitKind& kind : core::unitKinds)
        if (tipo == kind.tipo) return std::string(kind.caption.english);
    if (tipo == core::folderTipo) return core::rotulos(language).rotulocarpeta;
    return std::string(previous);
}

}  // namespace lists
