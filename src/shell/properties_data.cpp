#include "shell/properties_data.h"

#include "browse/totals.h"
#include "core/kilobytes.h"

namespace shell {

namespace {

constexpr core::Bilingual filesAnd = {" archivos y ", " files and "};
constexpr core::Bilingual folders = {" carpetas.", " folders."};

long long countOf(engine::Database& database, const std::string& sql) {
    auto rows = database.OpenRecordset(sql);
    return rows ? rows->RecordCount() : 0;
}

// Unlike the browse list's summary of a unit, only real folders count here, not the row of a hand-made unit.
browse::Totals unitTotals(engine::Database& database, const std::string& disco) {
    browse::Totals totals;
    const std::string sizes = "select largo from datos where largo > (1) and disco=('" + disco + "')";
    if (auto rows = database.OpenRecordset(sizes)) {
        for (; !rows->Eof(); rows->MoveNext()) totals.kilobytes += rows->Field("largo").integer();
    }
    totals.folders = countOf(database, "select * from datos where disco =('" + disco +
                                           "') and  tipo =('Carpeta de archivos')  order by carpeta ");
    totals.files = countOf(database, "select * from datos where disco =('" + disco +
                                         "') and  tipo =('archivo')  order by archivo ");
    return totals;
}

// A unit's type is only known when the list shows it; a folder is a folder.
std::string typeOf(const PropertiesRequest& request, core::Language idioma) {
    if (!request.isUnit) return core::rotulos(idioma).rotulocarpeta;
    const bool namesUnit = request.firstListType.find("unit") != std::string::npos ||
                           request.firstListType.find("Unidad") != std::string::npos;
    return namesUnit ? request.firstListType : std::string();
}

}  // namespace

Properties propertiesOf(const PropertiesRequest& request, engine::Database& database, core::Language idioma) {
    const browse::Totals totals = request.isUnit
                                      ? unitTotals(database, request.node)
                                      : browse::cantidadytamaños(database, request.discoactual,
                                                                 request.rutaactual, request.nivelactual);
    Properties properties;
    properties.type = typeOf(request, idioma);
    properties.name = request.node;
    properties.size = core::sizeText(totals.kilobytes);
    properties.contents = std::to_string(totals.files) + std::string(filesAnd.in(idioma)) +
                          std::to_string(totals.folders) + std::string(folders.in(idioma));
    properties.picture = request.picture;
    return properties;
}

}  // namespace shell
