#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace engine {

// What a catalogue file is: an SQLite database with these marks and exactly one table.
inline constexpr int applicationId = 0x5A52514C;  // "ZRQL"
inline constexpr int formatVersion = 1;
inline constexpr std::string_view tableName = "datos";

enum class Column { numero, ruta, carpeta, archivo, nivel, fecha, largo, tipo, disco, comentario };

enum class Type { Text, Integer, Real };

struct ColumnInfo {
    std::string_view name;
    Type type;
};

// In the order of the table, which is the order of `Column`.
inline constexpr std::array<ColumnInfo, 10> columns{{
    {"numero", Type::Integer},
    {"ruta", Type::Text},
    {"carpeta", Type::Text},
    {"archivo", Type::Text},
    {"nivel", Type::Text},
    {"fecha", Type::Real},
    {"largo", Type::Integer},
    {"tipo", Type::Text},
    {"disco", Type::Text},
    {"comentario", Type::Text},
}};

[[nodiscard]] constexpr const ColumnInfo& info(Column column) {
    return columns[static_cast<std::size_t>(column)];
}

[[nodiscard]] std::string columnNames();  // all of them, with commas between

// Case does not count in names.
[[nodiscard]] std::optional<Column> columnNamed(std::string_view name);

// In bytes. No name, path or note comes near it, nor a row or a statement that holds one.
inline constexpr int longestValue = 16 << 20;

// A pass over all rows is the dearest thing that is done to a file, and large pages make it cheaper.
inline constexpr int pageSize = 8192;

// Units and their levels are asked for all the time and the three counts of the status line come from this
// index alone; nothing else earned one.
inline constexpr const char* createTable =
    "create table datos (numero integer, ruta text, carpeta text, archivo text, nivel text, fecha real, "
    "largo integer, tipo text, disco text, comentario text)";
inline constexpr const char* createIndex =
    "create index if not exists datos_unidad on datos (disco, nivel, tipo)";
inline constexpr const char* dropIndex = "drop index datos_unidad";

}  // namespace engine
