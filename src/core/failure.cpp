#include "core/failure.h"

#include <algorithm>
#include <filesystem>

namespace core {
namespace {

namespace error = engine::error;

struct Sentence {
    int number;
    Bilingual text;
};

constexpr Bilingual anyOther{"No se pudo leer o escribir.", "It could not be read or written."};

// The search panel can be in front with no catalogue behind it.
constexpr Bilingual noneOpen{"No hay ningún catálogo abierto.", "No catalogue is open."};

constexpr Sentence sentences[] = {
    {error::fileNotFound, {"No existe.", "It does not exist."}},
    {error::diskFull, {"El disco está lleno.", "The disk is full."}},
    {error::readOnly, {"Es de solo lectura.", "It is read only."}},
    {error::replaced,
     {"Ya no está, u otro programa ha puesto otro archivo en su lugar.",
      "It is gone, or another program has put another file in its place."}},
    {error::interrupted,
     {"Un cambio quedó a medias: abra una copia, con su -journal, donde se pueda escribir.",
      "A change was broken off: open a copy, with its -journal, where it can be written."}},
    {error::fileExists, {"Ya existe.", "It exists already."}},
    {error::cannotOpenFile, {"No se puede abrir.", "It cannot be opened."}},
    {error::locked, {"Otro programa lo está usando.", "Another program is using it."}},
    {error::unrecognizedFormat, {"No es un catálogo.", "It is not a catalogue."}},
    {error::corrupt,
     {"El catálogo está dañado; se puede reparar.", "The catalogue is damaged; it can be repaired."}},
    {error::outOfMemory, {"No hay memoria suficiente.", "There is not enough memory."}},
    {error::syntaxInExpression,
     {"Ha introducido un caracter no permitido.", "You have inserted a restricted character."}},
};

}  // namespace

std::string_view failureSentence(const engine::Error& failed, Language idioma) {
    const auto* found = std::ranges::find(sentences, failed.number, &Sentence::number);
    return (found == std::end(sentences) ? anyOther : found->text).in(idioma);
}

std::string failureLine(const std::string& catalogue, const engine::Error& error, Language idioma) {
    return "  " + std::filesystem::path(catalogue).filename().native() + ": " +
           std::string(failureSentence(error, idioma));
}

std::string failureMessage(const std::string& catalogue, const engine::Error& error, Language idioma) {
    if (catalogue.empty()) return std::string(noneOpen.in(idioma));
    const std::string sentence(failureSentence(error, idioma));
    return isRefusedStatement(error) ? sentence : catalogue + '\n' + sentence;
}

bool isRefusedStatement(const engine::Error& failed) {
    return failed.number == error::syntaxInExpression || failed.number == error::unknownName ||
           failed.number == error::unknownTable;
}

}  // namespace core
