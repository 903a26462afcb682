#pragma once

#include <string>
#include <string_view>

namespace core {

enum class Language { Spanish, English };

// Only the exact text "Español" means Spanish; anything else is English.
[[nodiscard]] Language languageOf(std::string_view idioma);

// A text in both languages, as it stands on the screen.
struct Bilingual {
    std::string_view spanish;
    std::string_view english;
    [[nodiscard]] constexpr std::string_view in(Language language) const {
        return language == Language::Spanish ? spanish : english;
    }
};

// The captions that several rooms share. The words stored in a catalogue are always the Spanish ones.
struct Rotulos {
    std::string rotuloexpandir, rotulocontraer;
    std::string rotulounidadvaria, rotulounidadaudio, rotulounidadvideo, rotulounidadprogramas,
        rotulounidadjuegos;
    std::string rotulocarpeta, rotuloarchivo;
    std::string rotulocatalogo, rotulotodos;
    std::string rotuloaudio, rotuloimagen, rotulovideo, rotuloejecutable, rotulotexto, rotuloweb,
        rotulocomprimido;
    std::string rotuloaccediendo, rotulounidadcarpetas, rotulounidad;
    std::string rotuloprefijounidad, rotuloprefijounidades, rotuloprefijocarpetas, rotuloprefijoarchivos;
    std::string rotulocarpetas, rotuloarchivos;  // of a search's result line
};

[[nodiscard]] const Rotulos& rotulos(Language language);

}  // namespace core
