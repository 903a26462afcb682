#include "exchange/row_reader.h"

#include <QUtf8StringView>
#include <algorithm>
#include <charconv>
#include <cmath>

#include "core/literals.h"
#include "core/text.h"
#include "core/unit_kinds.h"
#include "core/unit_name.h"
#include "exchange/source.h"

namespace exchange {
namespace {

using engine::Column;

constexpr core::Bilingual cutShort{"la fila no acaba: el archivo está cortado",
                                   "the row does not end: the file is cut short"};
constexpr core::Bilingual unreadable{"el archivo no se puede leer", "the file cannot be read"};
constexpr core::Bilingual rowTooLong{"una fila de más de 16 MB", "a row of more than 16 MB"};
constexpr core::Bilingual missing{"falta", "is missing"};
constexpr core::Bilingual notText{"no es UTF-8, o tiene un carácter nulo", "is not UTF-8, or holds a null"};
constexpr core::Bilingual notNumber{"no es un número válido", "is no valid number"};
constexpr core::Bilingual notLevel{"no es un nivel de 1 a 12", "is no level from 1 to 12"};
constexpr core::Bilingual unknownTipo{"no es un tipo de fila", "is no kind of row"};
constexpr core::Bilingual wrongForTipo{"no concuerda con el tipo de la fila",
                                       "does not go with the kind of the row"};
constexpr core::Bilingual noUnitName{"no es el nombre de una unidad seguido de \" :\"",
                                     "is no unit's name followed by \" :\""};

constexpr std::int64_t greatestWhole = std::int64_t{1} << 53;  // that every reader of JSON keeps
constexpr int deepestLevel = 12;

std::optional<std::string>& at(Fields& fields, Column column) {
    return fields[static_cast<std::size_t>(column)];
}

template <class Number>
bool readNumber(const std::string& text, Number& number) {
    const char* end = text.data() + text.size();
    const auto [stopped, failure] = std::from_chars(text.data(), end, number);
    return failure == std::errc() && stopped == end;
}

bool isWhole(const std::string& text, std::int64_t least, std::int64_t& number) {
    return readNumber(text, number) && number >= least && number <= greatestWhole;
}

bool isText(const std::string& text) {
    return text.find('\0') == text.npos &&
           QUtf8StringView(text.data(), static_cast<qsizetype>(text.size())).isValidUtf8();
}

bool isUnitKind(const std::string& tipo) {
    return std::ranges::find(core::unitKinds, tipo, &core::UnitKind::tipo) != core::unitKinds.end();
}

bool isUnitName(std::string_view disco) {
    return core::isDisco(disco) && !core::unitName(disco).empty() && core::refuseApostrophe(disco);
}

bool mayBeAbsent(Column column) {
    return column == Column::archivo || column == Column::largo || column == Column::comentario;
}

// A mistake in one column.
struct Mistake {
    Column column;
    core::Bilingual reason;
};

std::optional<Mistake> mistakeInValues(const Fields& fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto column = static_cast<Column>(i);
        if (!fields[i] && !mayBeAbsent(column)) return Mistake{column, missing};
        if (fields[i] && !isText(*fields[i])) return Mistake{column, notText};
    }
    return std::nullopt;
}

std::optional<Mistake> mistakeInRow(const core::CatalogRow& row) {
    int level = 0;
    if (!readNumber(row.nivel, level) || level < 1 || level > deepestLevel || row.nivel[0] == '0')
        return Mistake{Column::nivel, notLevel};
    const bool isFile = row.tipo == core::fileTipo;
    if (!isFile && row.tipo != core::folderTipo && !isUnitKind(row.tipo))
        return Mistake{Column::tipo, unknownTipo};
    if (row.archivo.has_value() != isFile) return Mistake{Column::archivo, wrongForTipo};
    if (row.largo.has_value() != isFile) return Mistake{Column::largo, wrongForTipo};
    if (!isUnitName(row.disco)) return Mistake{Column::disco, noUnitName};
    return std::nullopt;
}

std::string taken(std::optional<std::string>& field) {
    return std::move(*field);
}

// Names lose their apostrophes on the way into a catalogue, however they come.
std::string takenName(std::optional<std::string>& field) {
    return core::withoutApostrophes(*field);
}

}  // namespace

std::unexpected<Damage> Source::damageAt(int noByte) const {
    if (noByte == tooLong) return damage(rowTooLong);
    return damage(failed() ? unreadable : cutShort);
}

std::expected<core::CatalogRow, Damage> rowOf(Fields& fields, const Source& source) {
    const auto refused = [&](const Mistake& mistake) {
        return source.damage(mistake.reason, std::string(engine::info(mistake.column).name));
    };
    if (const auto mistake = mistakeInValues(fields)) return refused(*mistake);

    core::CatalogRow row;
    if (!isWhole(*at(fields, Column::numero), -greatestWhole, row.numero))
        return refused({Column::numero, notNumber});
    if (!readNumber(*at(fields, Column::fecha), row.fecha) || !std::isfinite(row.fecha))
        return refused({Column::fecha, notNumber});
    if (const auto& largo = at(fields, Column::largo)) {
        if (!isWhole(*largo, 0, row.largo.emplace())) return refused({Column::largo, notNumber});
    }
    row.ruta = takenName(at(fields, Column::ruta));
    row.carpeta = takenName(at(fields, Column::carpeta));
    if (auto& archivo = at(fields, Column::archivo)) row.archivo = takenName(archivo);
    row.nivel = taken(at(fields, Column::nivel));
    row.tipo = taken(at(fields, Column::tipo));
    row.disco = taken(at(fields, Column::disco));
    row.comentario = std::move(at(fields, Column::comentario));
    if (const auto mistake = mistakeInRow(row)) return refused(*mistake);
    return row;
}

std::unique_ptr<RowReader> makeReader(std::FILE* file, Format format) {
    if (format == Format::Json) return std::make_unique<JsonReader>(file);
    return std::make_unique<CsvReader>(file);
}

Format formatOf(std::FILE* file) {
    const int first = std::getc(file);
    if (first != EOF) std::ungetc(first, file);
    return first == '{' ? Format::Json : Format::Csv;
}

}  // namespace exchange
