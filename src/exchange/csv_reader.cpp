#include "exchange/source.h"

namespace exchange {
namespace {

constexpr core::Bilingual wrongHeader{"la primera línea no es la que escribe export",
                                      "the first line is not the one that export writes"};
constexpr core::Bilingual wrongFields{"la fila no tiene diez campos", "the row has not ten fields"};
constexpr core::Bilingual wrongQuote{"una comilla fuera de lugar", "a quotation mark out of place"};
constexpr core::Bilingual wrongLineEnd{"un retorno de carro fuera de lugar",
                                       "a carriage return out of place"};

bool endsField(int byte) {
    return byte == ',' || byte == '\r' || byte == '\n' || byte < 0;
}

}  // namespace

std::expected<std::optional<core::CatalogRow>, Damage> CsvReader::next() {
    Fields fields;
    if (!m_headerRead) {
        TRY(header());
        m_headerRead = true;
    }
    const auto found = TRY(record(fields));
    if (!found) return std::nullopt;
    return TRY(rowOf(fields, m_source));
}

std::expected<bool, Damage> CsvReader::header() {
    Fields names;
    const auto found = record(names);
    if (!found) return found;
    for (std::size_t i = 0; i < names.size(); ++i) {
        std::string_view name = names[i] ? std::string_view(*names[i]) : std::string_view();
        constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";  // of spreadsheets
        if (i == 0 && name.starts_with(byteOrderMark)) name.remove_prefix(byteOrderMark.size());
        if (!*found || name != engine::columns[i].name) return m_source.damage(wrongHeader);
    }
    return true;
}

std::expected<bool, Damage> CsvReader::record(Fields& fields) {
    m_source.beginRow();
    int byte = m_source.take();
    if (byte == Source::end && !m_source.failed()) return false;
    for (std::size_t i = 0;; ++i) {
        if (i == fields.size()) return m_source.damage(wrongFields);
        const bool isQuoted = byte == '"';
        std::string field;
        byte = isQuoted ? quotedField(field) : plainField(byte, field);
        if (byte < 0) return m_source.damageAt(byte);
        if (!endsField(byte)) return m_source.damage(wrongQuote);
        if (isQuoted || !field.empty()) fields[i] = std::move(field);
        if (byte == ',') {
            byte = m_source.take();
            continue;
        }
        if (byte == '\r' && m_source.take() != '\n') return m_source.damage(wrongLineEnd);
        if (i + 1 < fields.size()) return m_source.damage(wrongFields);
        return true;
    }
}

int CsvReader::plainField(int byte, std::string& field) {
    while (!endsField(byte) && byte != '"') {
        field += static_cast<char>(byte);
        byte = m_source.take();
    }
    return byte;
}

int CsvReader::quotedField(std::string& field) {
    for (;;) {
        int byte = m_source.take();
        if (byte == '"') {
            byte = m_source.take();
            if (byte != '"') return byte;
        } else if (byte < 0) {
            return byte;
        }
        field += static_cast<char>(byte);
    }
}

}  // namespace exchange
