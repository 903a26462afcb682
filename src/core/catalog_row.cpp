#include "core/catalog_row.h"

namespace core {
namespace {

std::optional<std::string> textOrNothing(const engine::Value& value) {
    if (value.isNull()) return std::nullopt;
    return std::string(value.text());
}

}  // namespace

CatalogRow readRow(const engine::Recordset& rows) {
    CatalogRow row;
    row.numero = rows.Field("numero").integer();
    row.ruta = rows.Field("ruta").text();
    row.carpeta = rows.Field("carpeta").text();
    row.archivo = textOrNothing(rows.Field("archivo"));
    row.nivel = rows.Field("nivel").text();
    row.fecha = rows.Field("fecha").number();
    if (const engine::Value largo = rows.Field("largo"); !largo.isNull()) row.largo = largo.integer();
    row.tipo = rows.Field("tipo").text();
    row.disco = rows.Field("disco").text();
    row.comentario = textOrNothing(rows.Field("comentario"));
    return row;
}

}  // namespace core
