#include "browse/properties.h"

#include "browse/totals.h"
#include "core/kilobytes.h"

namespace browse {

namespace {

constexpr core::Bilingual filesAnd = {" archivos y ", " files and "};
constexpr core::Bilingual folders = {" carpetas.", " folders."};

// A unit's kind is only known when the list shows it; what was scanned holds folders and files. A folder is
// a folder.
std::string typeOf(const PropertiesRequest& request, core::Language idioma) {
    if (!request.isUnit) return core::rotulos(idioma).rotulocarpeta;
    const bool namesUnit = request.firstListType.find("unit") != std::string::npos ||
                           request.firstListType.find("Unidad") != std::string::npos;
    return namesUnit ? request.firstListType : core::rotulos(idioma).rotulounidadcarpetas;
}

}  // namespace

engine::Result<Properties> propertiesOf(const PropertiesRequest& request, engine::Database& database,
                                        core::Language idioma) {
    const auto totals = TRY(request.isUnit ? propertiesTotals(database, request.node)
                                           : folderTotals(database, request.discoactual, request.rutaactual,
                                                          request.nivelactual));
    Properties properties;
    properties.type = typeOf(request, idioma);
    properties.name = request.node;
    properties.size = core::sizeText(totals.kilobytes);
    properties.contents = std::to_string(totals.files) + std::string(filesAnd.in(idioma)) +
                          std::to_string(totals.folders) + std::string(folders.in(idioma));
    properties.picture = request.picture;
    return properties;
}

}  // namespace browse
