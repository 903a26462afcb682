#include "mount/level_rows.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "core/text.h"
#include "core/unit_kinds.h"
#include "core/units.h"

namespace mount {
namespace {

constexpr int deepestLevel = 12;
constexpr std::size_t longestRun = 64 * 1024;

std::string selectOf(const std::string& disco, int nivel, Rows rows) {
    const bool files = rows == Rows::Files;
    std::string select = "select ruta, carpeta, archivo, fecha, largo, tipo, disco, comentario from datos";
    select.append(" where disco =('").append(core::replaceAll(disco, "'", "''"));
    select.append("') and nivel =('").append(std::to_string(nivel)).append("') and tipo ");
    return select.append(files ? "=" : "<>").append("('archivo')");
}

std::int64_t wholeKilobytes(double largo) {
    constexpr double most = 9e15;  // whose bytes a file's length can still tell
    return largo >= 1 ? std::llround(std::min(largo, most)) : 0;
}

bool isFolder(std::string_view tipo) {
    return tipo == core::folderTipo || core::lowerCase(tipo) == core::lowerCase(core::folderTipo);
}

Row rowOf(const engine::Recordset& rows, Rows which) {
    Row row;
    if (which == Rows::Files) {
        row.name = rows.Field("archivo").text();
        row.kilobytes = wholeKilobytes(rows.Field("largo").number());
    } else if (isFolder(rows.Field("tipo").text())) {
        row.kind = Kind::Folder;
        row.name = core::lastComponent(rows.Field("ruta").text());
    } else {
        row.kind = Kind::Content;
        row.name = rows.Field("carpeta").text();
    }
    row.fecha = rows.Field("fecha").number();
    row.note = rows.Field("comentario").text();
    return row;
}

// The path of the folder that a row lies in.
std::string_view folderOf(std::string_view ruta, Rows which) {
    if (which == Rows::Files) return ruta;
    const std::size_t backslash = ruta.rfind('\\');
    return ruta.substr(0, backslash == ruta.npos ? 0 : backslash);
}

// Everything on the first level lies in the unit, whatever was scanned into it.
std::uint64_t keyOf(std::string_view ruta, int nivel) {
    return nivel == 1 ? 0 : std::hash<std::string_view>{}(ruta);
}

}  // namespace

engine::Result<LevelRows::Runs> LevelRows::units() {
    ++m_statements;
    auto rows = TRY(m_database.OpenRecordset("select disco from datos group by disco order by disco"));
    RowSpool::Run run = m_spool->beginRun({});
    for (; !rows.Eof(); rows.MoveNext()) {
        const engine::Value disco = rows.Field("disco");
        if (!disco.isNull())
            m_spool->append(run, {.kind = Kind::Unit, .name = std::string(disco.text()), .note = {}});
    }
    if (rows.error()) return std::unexpected(*rows.error());
    TRY(m_spool->flush());
    return Runs{run};
}

engine::Result<LevelRows::Runs> LevelRows::rowsIn(const Place& place, Rows rows) {
    Runs runs;
    if (place.nivel > deepestLevel) return runs;
    const auto found = TRY(level(place.disco, place.nivel, rows));
    const std::uint64_t key = keyOf(place.ruta, place.nivel);
    for (const auto& [folder, run] : std::ranges::equal_range(*found, key, {}, &FolderRun::folder)) {
        const std::string ruta = TRY(m_spool->ruta(run.at));
        if (place.nivel == 1 || ruta == place.ruta) runs.push_back(run);
    }
    return runs;
}

engine::Result<const LevelRows::Level*> LevelRows::level(const std::string& disco, int nivel, Rows rows) {
    const std::tuple key{disco, nivel, rows};
    if (const auto known = m_levels.find(key); known != m_levels.end()) return &known->second;
    auto level = TRY(read(disco, nivel, rows));
    return &m_levels.emplace(key, std::move(level)).first->second;
}

engine::Result<LevelRows::Level> LevelRows::read(const std::string& disco, int nivel, Rows which) {
    ++m_statements;
    auto rows = TRY(m_database.OpenRecordset(selectOf(disco, nivel, which)));
    Level level;
    std::string folder;
    for (; !rows.Eof(); rows.MoveNext()) {
        if (rows.Field("disco").text() != disco) continue;  // a unit that differs in case
        const std::string_view lies = folderOf(rows.Field("ruta").text(), which);
        if (level.empty() || lies != folder || m_spool->runSize() > longestRun) {
            folder = lies;
            level.push_back({keyOf(folder, nivel), m_spool->beginRun(folder)});
        }
        m_spool->append(level.back().run, rowOf(rows, which));
    }
    if (rows.error()) return std::unexpected(*rows.error());
    TRY(m_spool->flush());
    std::ranges::sort(level);
    level.shrink_to_fit();
    return level;
}

}  // namespace mount
