#include "browse/tree_loader.h"

#include <vector>

namespace browse {
namespace {

constexpr int deepestNivel = 11;

struct Walk {
    engine::Database& database;
    std::string_view disco;
    FirstLevel first;
    FolderSink& sink;
    std::vector<std::string> folders;  // the current folder of each enclosing level

    engine::Result<LoadEnd> level(int nivel) {
        auto rows = database.OpenRecordset(foldersOfLevel(disco, nivel, folders, first));
        if (!rows && rows.error().number == engine::error::syntaxInExpression) return LoadEnd::Complete;
        if (!rows) return std::unexpected(rows.error());
        for (; !rows->Eof(); rows->MoveNext()) {
            std::string carpeta(rows->Field("carpeta").text());
            if (sink.yieldAndTestStop()) return LoadEnd::Stopped;
            sink.addFolder(nivel, carpeta);
            if (nivel == deepestNivel) continue;
            folders.push_back(std::move(carpeta));
            const auto end = level(nivel + 1);
            folders.pop_back();
            if (!end || *end == LoadEnd::Stopped) return end;
        }
        if (rows->error()) return std::unexpected(*rows->error());
        return LoadEnd::Complete;
    }
};

}  // namespace

std::string foldersOfLevel(std::string_view disco, int nivel, std::span<const std::string> folders,
                           FirstLevel first) {
    const std::string unit(disco);
    if (nivel == 1 && first == FirstLevel::FoldersOnly)
        return "select * from datos where disco=('" + unit +
               "') and nivel=('1') and  tipo =('carpeta de archivos')  order by carpeta ";
    if (nivel == 1)
        return "select carpeta from datos where disco=('" + unit +
               "') and nivel=('1') and  tipo <>('archivo')  order by carpeta ";

    const bool shallow = nivel == 2;
    std::string sql;
    sql.reserve(512);  // asked once a folder: most fit
    sql.append("select carpeta from datos where  disco=('").append(disco);
    sql.append(shallow ? "') and ruta like ('*\\" : "') and  ruta like ('*\\");
    for (const std::string& folder : folders) sql.append(folder).append("\\");
    sql.append(shallow ? "*') and  nivel=('" : "*')  and  nivel=('").append(std::to_string(nivel));
    sql.append("') and tipo <>('archivo') order by carpeta ");
    return sql;
}

std::string allFoldersOf(std::string_view disco) {
    return "select * from datos where disco=('" + std::string(disco) +
           "') and  tipo =('Carpeta de archivos')  order by carpeta ";
}

engine::Result<LoadEnd> loadFolders(engine::Database& database, std::string_view disco, FirstLevel first,
                                    FolderSink& sink) {
    return Walk{database, disco, first, sink, {}}.level(1);
}

}  // namespace browse
