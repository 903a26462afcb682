#include "core/catalog_row.h"

namespace core {
namespace {

void assign(std::optional<std::string>& text, const engine::Value& value) {
    if (value.isNull())
        text.reset();
    else if (text)
        *text = value.text();
    else
        text.emplace(value.text());
}

}  // namespace

void readRow(const engine::Recordset& rows, CatalogRow& row) {
    using enum engine::Column;
    row.numero = rows.Field(numero).integer();
    row.ruta = rows.Field(ruta).text();
    row.carpeta = rows.Field(carpeta).text();
    assign(row.archivo, rows.Field(archivo));
    row.nivel = rows.Field(nivel).text();
    row.fecha = rows.Field(fecha).number();
    const engine::Value kilobytes = rows.Field(largo);
    row.largo = kilobytes.isNull() ? std::nullopt : std::optional(kilobytes.integer());
    row.tipo = rows.Field(tipo).text();
    row.disco = rows.Field(disco).text();
    assign(row.comentario, rows.Field(comentario));
}

CatalogRow readRow(const engine::Recordset& rows) {
    CatalogRow row;
    readRow(rows, row);
    return row;
}

}  // namespace core
