#include "scan/unit_rows.h"

#include <charconv>

#include "core/text.h"
#include "core/unit_kinds.h"
#include "scan/walker.h"

namespace scan {
namespace {

// 1 to 12; 0 for a text that is no level.
int levelOf(const std::string& nivel) {
    int level = 0;
    const char* end = nivel.data() + nivel.size();
    const auto [stopped, failure] = std::from_chars(nivel.data(), end, level);
    const bool valid =
        failure == std::errc() && stopped == end && level >= 1 && level <= Walker::deepestLevel;
    return valid ? level : 0;
}

bool isScanned(const core::CatalogRow& row) {
    return row.archivo ? row.tipo == core::fileTipo && !row.archivo->empty() : row.tipo == core::folderTipo;
}

}  // namespace

bool UnitRows::isBelowBase(std::string_view ruta, std::string_view& below) const {
    if (!ruta.starts_with(m_base)) return false;
    below = ruta.substr(m_base.size());
    if (below.empty() || m_base.ends_with('\\')) return true;
    if (!below.starts_with('\\')) return false;
    below.remove_prefix(1);
    return true;
}

bool UnitRows::add(const core::CatalogRow& row) {
    std::string_view below;
    const int level = levelOf(row.nivel);
    if (level == 0 || !isScanned(row) || !isBelowBase(row.ruta, below)) return false;
    if (!row.archivo && below.empty()) return false;  // the scanned folder itself has no row

    Row& added = m_rows.emplace_back();
    added.numero = row.numero;
    added.nivel = static_cast<std::uint8_t>(level);
    added.fecha = row.fecha;
    added.largo = row.largo.value_or(0);
    added.isFile = row.archivo.has_value();
    added.text = m_text.size();
    m_text += below;
    if (row.archivo) {
        if (!below.empty()) m_text += '\\';
        m_text += *row.archivo;
    }
    added.pathLength = static_cast<std::uint32_t>(m_text.size() - added.text);
    added.nameLength =
        static_cast<std::uint32_t>(row.archivo ? row.archivo->size() : core::lastComponent(below).size());
    added.hasNote = row.comentario.has_value();
    if (added.hasNote) m_text += *row.comentario;
    added.noteLength = static_cast<std::uint32_t>(m_text.size() - added.text - added.pathLength);
    return true;
}

std::string_view UnitRows::name(const Row& row) const {
    return path(row).substr(row.pathLength - row.nameLength);
}

std::string_view UnitRows::folder(const Row& row) const {
    const bool atTop = row.pathLength == row.nameLength;
    return path(row).substr(0, atTop ? 0 : row.pathLength - row.nameLength - 1);
}

std::string_view UnitRows::note(const Row& row) const {
    return std::string_view(m_text).substr(row.text + row.pathLength, row.noteLength);
}

core::CatalogRow UnitRows::catalogRow(const Row& row, const std::string& base) const {
    core::CatalogRow made;
    const std::string_view below = row.isFile ? folder(row) : path(row);
    made.numero = row.numero;
    made.ruta = below.empty() ? base : core::joinPath(base, below);
    made.carpeta = row.isFile ? carpetaOf(made.ruta) : core::lastComponent(made.ruta);
    made.nivel = std::to_string(row.nivel);
    made.fecha = row.fecha;
    made.tipo = row.isFile ? core::fileTipo : core::folderTipo;
    made.disco = m_disco;
    if (row.isFile) {
        made.archivo = name(row);
        made.largo = row.largo;
    }
    if (row.hasNote) made.comentario = note(row);
    return made;
}

std::string scannedFolder(const core::CatalogRow& row) {
    std::string base = row.ruta;
    for (int above = levelOf(row.nivel) - (row.archivo ? 1 : 0); above > 0; --above) {
        const std::size_t backslash = base.rfind('\\');
        if (backslash == std::string::npos) return {};
        base.resize(backslash);
    }
    if (base.size() == 2 && base.ends_with(':')) base += '\\';  // the root of a drive
    return base;
}

}  // namespace scan
