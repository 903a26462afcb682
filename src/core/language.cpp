#include "core/language.h"

namespace core {
namespace {

struct Entry {
    std::string Rotulos::*rotulo;
    Bilingual text;
};

constexpr Entry entries[]{
    {&Rotulos::rotuloexpandir, {"Expandir", "Expand"}},
    {&Rotulos::rotulocontraer, {"Contraer", "Collapse"}},
    {&Rotulos::rotulounidadvaria, {"Unidad de archivos varios", "Mixed files unit"}},
    {&Rotulos::rotulounidadaudio, {"Unidad de audio", "Audio unit"}},
    {&Rotulos::rotulounidadvideo, {"Unidad de video", "Video unit"}},
    {&Rotulos::rotulounidadprogramas, {"Unidad de programas", "Aplications unit"}},
    {&Rotulos::rotulounidadjuegos, {"Unidad de juegos", "Games unit"}},
    {&Rotulos::rotulocarpeta, {"Carpeta de archivos", "Files folder"}},
    {&Rotulos::rotuloarchivo, {"Archivo", "File"}},
    {&Rotulos::rotulocatalogo, {"Cátalogo completo:", "Complete catalog:"}},
    {&Rotulos::rotulotodos, {"Todos los archivos y carpetas", "All files and folders"}},
    {&Rotulos::rotuloaudio, {"archivo de audio", "Audio file"}},
    {&Rotulos::rotuloimagen, {"archivo de imagen", "Picture file"}},
    {&Rotulos::rotulovideo, {"archivo de video", "Video file"}},
    {&Rotulos::rotuloejecutable, {"archivo ejecutable", "Aplication"}},
    {&Rotulos::rotulotexto, {"archivo de texto", "Text file"}},
    {&Rotulos::rotuloweb, {"archivo web", "Web file"}},
    {&Rotulos::rotulocomprimido, {"archivo comprimido", "Zipped file"}},
    {&Rotulos::rotuloaccediendo, {" Accediendo a la información...", " Acceding to the information..."}},
    {&Rotulos::rotulounidadcarpetas, {"Unidad de carpetas y archivos", "Folders and files unit"}},
    {&Rotulos::rotulounidad, {"Unidad", "Unit"}},
    {&Rotulos::rotuloprefijounidad, {"  Unidad: ", "  Unit: "}},
    {&Rotulos::rotuloprefijounidades, {"  Unidades: ", "  Units: "}},
    {&Rotulos::rotuloprefijocarpetas, {"  Carpetas: ", "  Folders: "}},
    {&Rotulos::rotuloprefijoarchivos, {"  Archivos: ", "  Files: "}},
    {&Rotulos::rotulocarpetas, {" Carpetas encontradas: ", " Folders found: "}},
    {&Rotulos::rotuloarchivos, {"  Archivos encontrados: ", "  Files found: "}},
};

Rotulos filled(Language language) {
    Rotulos rotulos;
    for (const Entry& entry : entries) rotulos.*entry.rotulo = entry.text.in(language);
    return rotulos;
}

}  // namespace

Language languageOf(std::string_view idioma) {
    return idioma == "Español" ? Language::Spanish : Language::English;
}

const Rotulos& rotulos(Language language) {
    static const Rotulos spanish = filled(Language::Spanish);
    static const Rotulos english = filled(Language::English);
    return language == Language::Spanish ? spanish : english;
}

}  // namespace core
