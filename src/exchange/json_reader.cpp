#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>

#include "core/serial_date.h"
#include "core/text.h"
#include "exchange/source.h"

namespace exchange {
namespace {

constexpr core::Bilingual noObject{"no es un objeto JSON en una línea", "is no JSON object on one line"};
constexpr core::Bilingual wrongKind{"no es un valor de la clase debida", "is no value of the right kind"};
constexpr core::Bilingual noSuchColumn{"no es una columna", "is no column"};

// What `export` tells besides, and every row has anew.
bool isDerived(const QString& key) {
    return key == QLatin1String("path") || key == QLatin1String("modified");
}

// A byte order mark at the beginning of a text, which the toolkit's reader takes away, as an escape that it
// keeps.
std::string withKeptMarks(const std::string& line) {
    return core::replaceAll(line, "\"\xEF\xBB\xBF", R"("\ufeff)");
}

// Nothing when the value does not suit the column.
std::optional<std::string> textOf(const QJsonValue& value, engine::Type type) {
    if (type == engine::Type::Text) {
        const QString text = value.toString();
        if (!value.isString() || !text.isValidUtf16()) return std::nullopt;
        return text.toStdString();
    }
    if (!value.isDouble()) return std::nullopt;
    if (type == engine::Type::Real) return core::pointedDecimalText(value.toDouble());
    constexpr double limit = 0x1p53;  // beyond it a number of JSON may be another
    const double number = value.toDouble();
    if (number != std::trunc(number) || std::abs(number) > limit) return std::nullopt;
    return std::to_string(value.toInteger());
}

}  // namespace

std::expected<std::optional<core::CatalogRow>, Damage> JsonReader::next() {
    m_source.beginRow();
    std::string line;
    int byte = m_source.take();
    if (byte == Source::end && !m_source.failed()) return std::nullopt;
    for (; byte != '\n'; byte = m_source.take()) {
        if (byte < 0) return m_source.damageAt(byte);
        line += static_cast<char>(byte);
    }
    auto fields = TRY(fieldsOf(line));
    return TRY(rowOf(fields, m_source));
}

std::expected<Fields, Damage> JsonReader::fieldsOf(const std::string& line) const {
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(withKeptMarks(line)));
    if (!document.isObject()) return m_source.damage(noObject);
    const QJsonObject object = document.object();
    Fields fields;
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const std::string key = entry.key().toStdString();
        const auto column = engine::columnNamed(key);
        if (!column || engine::info(*column).name != key) {
            if (!isDerived(entry.key())) return m_source.damage(noSuchColumn, key);
            continue;
        }
        if (entry->isNull()) continue;
        auto& field = fields[static_cast<std::size_t>(*column)];
        field = textOf(*entry, engine::info(*column).type);
        if (!field) return m_source.damage(wrongKind, key);
    }
    return fields;
}

}  // namespace exchange
