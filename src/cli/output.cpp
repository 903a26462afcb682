#include "cli/output.h"

#include <QString>
#include <cmath>
#include <cstdio>

#include "core/serial_date.h"

namespace cli {
namespace {

std::string validUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toStdString();
}

void appendEscaped(std::string& line, char c) {
    static constexpr char digits[] = "0123456789abcdef";
    switch (c) {
        case '"':
            line += "\\\"";
            return;
        case '\\':
            line += "\\\\";
            return;
        case '\n':
            line += "\\n";
            return;
        case '\r':
            line += "\\r";
            return;
        case '\t':
            line += "\\t";
            return;
        default:
            break;
    }
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20)
        line.append("\\u00").append(1, digits[byte >> 4]).append(1, digits[byte & 15]);
    else
        line.push_back(c);
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

}  // namespace

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
        value = mended = validUtf8(value);
    m_line.push_back('"');
    for (const char c : value) appendEscaped(m_line, c);
    m_line.push_back('"');
}

std::string jsonRow(const core::CatalogRow& row) {
    JsonLine line;
    line.number("numero", row.numero).text("ruta", row.ruta).text("carpeta", row.carpeta);
    line.textOrNull("archivo", row.archivo).text("nivel", row.nivel).real("fecha", row.fecha);
    line.numberOrNull("largo", row.largo).text("tipo", row.tipo).text("disco", row.disco);
    return line.textOrNull("comentario", row.comentario).take();
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
    std::fwrite(text.data(), 1, text.size(), stdout);
}

bool finishOutput() {
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

}  // namespace cli
