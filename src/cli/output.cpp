#include "cli/output.h"

#include <unistd.h>

#include <QUtf8StringView>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

#include "cli/progress.h"
#include "core/locate.h"
#include "core/lookup.h"
#include "core/medium.h"
#include "core/serial_date.h"
#include "core/text.h"
#include "platform/files.h"
#include "platform/qtext.h"
#include "platform/utf8.h"

namespace cli {
namespace {

// What a terminal, or a reader of lines, might obey: the control characters of both sets, line and paragraph
// separators, and what turns the reading direction.
bool isControl(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x061C || c == 0x200E || c == 0x200F ||
           (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

std::string hexadecimal(std::uint32_t number, int digits) {
    char text[16];
    return {text, static_cast<std::size_t>(std::snprintf(text, sizeof text, "%0*x", digits, number))};
}

void appendCharacterShown(std::string& out, char32_t c) {
    if (platform::isStrayByte(c))
        out += "\\x" + hexadecimal(c - platform::strayByteBase, 2);
    else if (!isControl(c))
        return platform::appendCharacter(out, c);
    else if (c == '\n')
        out += "\\n";
    else if (c == '\t')
        out += "\\t";
    else if (c >= 0x80)
        out += "\\u{" + hexadecimal(c, 4) + "}";
    else
        out += "\\x" + hexadecimal(c, 2);
}

void appendEscaped(std::string& out, char32_t c) {
    if (c == '"' || c == '\\') out += '\\';
    if (c == '\n')
        out += "\\n";
    else if (c == '\r')
        out += "\\r";
    else if (c == '\t')
        out += "\\t";
    else if (isControl(c))
        out += "\\u" + hexadecimal(c, 4);
    else
        platform::appendCharacter(out, c);
}

void csvField(std::string& line, std::string_view value) {
    if (!value.empty() && value.find_first_of(",\"\r\n") == value.npos) {
        line.append(value);
        return;
    }
    line.push_back('"');
    for (const char c : value) line.append(c == '"' ? 2 : 1, c);
    line.push_back('"');
}

// With its line ends and tabs, and the null bytes between paths, which a terminal passes over.
std::string shownOnTerminal(std::string_view text) {
    constexpr std::string_view kept("\t\n\0", 3);
    std::string out;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(kept), text.size());
        std::string_view part = text.substr(0, end);
        if (text.substr(end).starts_with('\n') && part.ends_with('\r')) part.remove_suffix(1);
        appendShown(out, part);
        out += text.substr(end, 1);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return out;
}

}  // namespace

void appendShown(std::string& out, std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        // Nearly all text is printable ASCII: a tenth of the time of a search for a common word.
        const std::size_t begin = at;
        while (at < text.size() && text[at] >= ' ' && text[at] < '\x7f') ++at;
        out.append(text, begin, at - begin);
        if (at < text.size()) appendCharacterShown(out, platform::nextCharacter(text, at));
    }
}

std::string shown(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    appendShown(out, text);
    return out;
}

std::string shownNote(std::string_view note) {
    std::string out;
    for (std::size_t at = 0; at <= note.size();) {
        const std::size_t end = std::min(note.find('\n', at), note.size());
        std::string_view line = note.substr(at, end - at);
        if (end < note.size() && line.ends_with('\r')) line.remove_suffix(1);
        out += shown(line);
        if (end < note.size()) out += '\n';
        at = end + 1;
    }
    return out;
}

JsonLine& JsonLine::text(std::string_view name, std::string_view value) {
    key(name);
    quoted(value);
    return *this;
}

JsonLine& JsonLine::textOrNull(std::string_view name, const std::optional<std::string>& value) {
    if (value) return text(name, *value);
    key(name);
    m_line += "null";
    return *this;
}

JsonLine& JsonLine::number(std::string_view name, std::int64_t value) {
    key(name);
    m_line += std::to_string(value);
    return *this;
}

JsonLine& JsonLine::numberOrNull(std::string_view name, std::optional<std::int64_t> value) {
    if (value) return number(name, *value);
    key(name);
    m_line += "null";
    return *this;
}

JsonLine& JsonLine::real(std::string_view name, double value) {
    key(name);
    m_line += std::isfinite(value) ? core::pointedDecimalText(value) : "null";
    return *this;
}

JsonLine& JsonLine::boolean(std::string_view name, bool value) {
    key(name);
    m_line += value ? "true" : "false";
    return *this;
}

JsonLine& JsonLine::texts(std::string_view name, std::span<const std::string> values) {
    key(name);
    char before = '[';
    for (const std::string& value : values) {
        m_line += std::exchange(before, ',');
        quoted(value);
    }
    m_line += values.empty() ? "[]" : "]";
    return *this;
}

JsonLine& JsonLine::objects(std::string_view name, std::span<const std::string> lines) {
    key(name);
    char before = '[';
    for (const std::string& line : lines) {
        m_line += std::exchange(before, ',');
        m_line.append(line, 0, line.find('\n'));
    }
    m_line += lines.empty() ? "[]" : "]";
    return *this;
}

std::string JsonLine::take() {
    m_line += "}\n";
    std::string line = std::move(m_line);
    m_line.assign(1, '{');
    return line;
}

void JsonLine::key(std::string_view name) {
    if (m_line.size() > 1) m_line.push_back(',');
    quoted(name);
    m_line.push_back(':');
}

void JsonLine::quoted(std::string_view value) {
    std::string mended;
    if (!QUtf8StringView(value.data(), static_cast<qsizetype>(value.size())).isValidUtf8())
        value = mended = platform::qtext(value).toStdString();
    m_line.push_back('"');
    for (std::size_t at = 0; at < value.size();) appendEscaped(m_line, platform::nextCharacter(value, at));
    m_line.push_back('"');
}

void addRow(JsonLine& line, const core::CatalogRow& row, const platform::Drives& drives) {
    line.number("numero", row.numero).text("ruta", row.ruta).text("carpeta", row.carpeta);
    line.textOrNull("archivo", row.archivo).text("nivel", row.nivel).real("fecha", row.fecha);
    line.numberOrNull("largo", row.largo).text("tipo", row.tipo).text("disco", row.disco);
    line.textOrNull("comentario", row.comentario).textOrNull("path", nativePath(row, drives));
    line.textOrNull("modified", core::isoDateTime(row.fecha));
}

std::string jsonRow(const core::CatalogRow& row, const platform::Drives& drives) {
    JsonLine line;
    addRow(line, row, drives);
    return line.take();
}

std::optional<std::string> nativePath(const core::CatalogRow& row, const platform::Drives& drives) {
    const std::string path = core::drivePathOf(row);
    if (core::withApostrophes(path) != path) {
        for (const core::Candidate& candidate : core::openingTries) {
            const std::string folder = core::spelled(row.ruta, candidate.path);
            const auto native = drives.toNativePath(
                row.archivo ? core::joinPath(folder, core::spelled(*row.archivo, candidate.name)) : folder);
            if (native && (platform::FileExists(*native) || platform::FolderExists(*native))) return native;
        }
        if (const auto mixed = core::asOnDisk(drives, path)) return drives.toNativePath(*mixed);
    }
    return drives.toNativePath(path);
}

std::string csvHeader() {
    return "numero,ruta,carpeta,archivo,nivel,fecha,largo,tipo,disco,comentario\r\n";
}

std::string csvRow(const core::CatalogRow& row) {
    std::string line = std::to_string(row.numero);
    const auto field = [&line](std::string_view value) { csvField(line += ',', value); };
    const auto absent = [&line] { line.push_back(','); };

    field(row.ruta);
    field(row.carpeta);
    row.archivo ? field(*row.archivo) : absent();
    field(row.nivel);
    field(core::pointedDecimalText(row.fecha));
    row.largo ? field(std::to_string(*row.largo)) : absent();
    field(row.tipo);
    field(row.disco);
    row.comentario ? field(*row.comentario) : absent();
    return line + "\r\n";
}

void print(std::string_view text) {
    static const bool onTerminal = isatty(STDOUT_FILENO);
    std::string harmless;
    if (onTerminal) {
        hideProgress();  // rows and the line of progress must not share a screen
        text = harmless = shownOnTerminal(text);
    }
    std::fwrite(text.data(), 1, text.size(), stdout);
}

bool finishOutput() {
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

}  // namespace cli
