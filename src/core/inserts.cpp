#include "core/inserts.h"

#include <initializer_list>

#include "core/literals.h"
#include "core/serial_date.h"
#include "core/unit_name.h"

namespace core {
namespace {

// "PREFIX numero,'a','b')": the number stands bare, everything behind it in quotes.
std::string statement(std::string_view prefix, std::int64_t numero,
                      std::initializer_list<std::string_view> quoted) {
    std::size_t length = prefix.size() + 32;
    for (std::string_view value : quoted) length += value.size() + 3;
    std::string sql;
    sql.reserve(length);
    sql += prefix;
    sql += std::to_string(numero);
    std::string_view before = ",'";
    for (std::string_view value : quoted) {
        sql += before;
        sql += value;
        before = "','";
    }
    return sql += "')";
}

}  // namespace

std::string insertFolder(const CatalogRow& row) {
    return statement("insert into datos (numero,ruta,carpeta,nivel,fecha,tipo,disco) values (", row.numero,
                     {row.ruta, row.carpeta, row.nivel, decimalText(row.fecha), row.tipo, row.disco});
}

std::string insertFile(const CatalogRow& row) {
    return statement("insert into datos (numero,ruta,carpeta,archivo,nivel,fecha,largo,tipo,disco) values (",
                     row.numero,
                     {row.ruta, row.carpeta, row.archivo ? std::string_view(*row.archivo) : "", row.nivel,
                      decimalText(row.fecha), std::to_string(row.largo.value_or(0)), row.tipo, row.disco});
}

std::string insertWhole(const CatalogRow& row) {
    const auto orNull = [](const std::optional<std::string>& text) { return text ? literal(*text) : "null"; };
    std::string sql =
        "insert into datos (numero,ruta,carpeta,archivo,nivel,fecha,largo,tipo,disco,comentario) values (";
    sql += std::to_string(row.numero) + ',' + literal(row.ruta) + ',' + literal(row.carpeta) + ',';
    sql += orNull(row.archivo) + ',' + literal(row.nivel) + ',' + literal(decimalText(row.fecha)) + ',';
    sql += row.largo ? std::to_string(*row.largo) : "null";
    return sql += ',' + literal(row.tipo) + ',' + literal(row.disco) + ',' + orNull(row.comentario) + ')';
}

std::string selectUnitNamed(std::string_view name) {
    std::string sql = "select * from datos where disco =('";
    sql += discoOf(name);
    return sql += "') ";
}

}  // namespace core
