#include "browse/listing_statements.h"

#include <array>

namespace browse {
namespace {

template <class... Parts>
std::string joined(Parts&&... parts) {
    std::string text;
    (text.append(parts), ...);
    return text;
}

std::string decimal(int number) {
    return std::to_string(number);
}

// How the texts of one level differ from their neighbours'.
struct Spacing {
    std::string_view folderWhere = "where ";
    std::string_view fileWhere = "where ";
    std::string_view beforeCarpeta = "') and carpeta =('";  // clicked folders only
    std::string_view beforeOrder = "') order by carpeta ";  // clicked folders only
};

constexpr std::array<Spacing, 12> makeSpacings() {
    std::array<Spacing, 12> levels{};
    levels[3].fileWhere = levels[4].fileWhere = levels[5].fileWhere = "where  ";
    levels[4].folderWhere = levels[5].folderWhere = "where  ";
    levels[6].beforeCarpeta = levels[10].beforeCarpeta = levels[11].beforeCarpeta = "')and carpeta =('";
    levels[6].beforeOrder = "')  order by carpeta ";
    levels[10].beforeOrder = levels[11].beforeOrder = "')order by carpeta ";
    return levels;
}
constexpr std::array<Spacing, 12> spacings = makeSpacings();

std::string chained(std::span<const std::string> chain, std::string_view node) {
    std::string path;
    for (const std::string& folder : chain) path.append(folder).append("\\");
    return path.append(node);
}

// The folder statement of levels 3 to 11, the same for clicked and raised folders.
std::string deepFolders(int level, std::string_view disco, std::string_view path) {
    return joined("select * from datos ", spacings[level].folderWhere, "disco like('", disco,
                  "')  and ruta like ('*", path, "*')  and tipo <>('archivo') and nivel =('", decimal(level),
                  "')   order by carpeta ");
}

// The file statement of levels 3 to 11 up to the level's number.
std::string deepFiles(int level, std::string_view disco, std::string_view path) {
    return joined("select * from datos ", spacings[level].fileWhere, "disco like('", disco,
                  "')  and ruta like ('*", path, "') and tipo =('archivo') and nivel =('", decimal(level));
}

}  // namespace

ListingStatements unitListing(std::string_view disco, bool collapsed) {
    return {joined("select * from datos where disco=('", disco, "') and tipo <>('",
                   collapsed ? "Archivo" : "archivo", "') and nivel =('1')  order by carpeta "),
            joined("select * from datos where disco =('", disco,
                   "')  and tipo =('archivo') and nivel =('1') order by carpeta ")};
}

ListingStatements clickedFolderListing(int level, std::string_view disco, std::span<const std::string> chain,
                                       std::string_view node) {
    if (level == 2)
        return {joined("select * from datos where disco =('", disco, "')  and ruta like('*\\", node,
                       "*') and tipo <>('archivo') and nivel =('2') order by carpeta "),
                joined("select * from datos where disco like('", disco, "')  and ruta like('*\\", node,
                       "*')  and tipo =('archivo') and nivel =('2')and carpeta =('", node,
                       "') order by carpeta ")};
    const std::string path = chained(chain, node);
    return {deepFolders(level, disco, path),
            joined(deepFiles(level, disco, path), spacings[level].beforeCarpeta, node,
                   spacings[level].beforeOrder)};
}

ListingStatements raisedFolderListing(int level, std::string_view disco, std::span<const std::string> chain,
                                      std::string_view node) {
    if (level == 2)
        return {joined("select * from datos where disco like('", disco, "')  and ruta like('*\\", node,
                       "*') and tipo <>('archivo') and nivel =('2')  order by carpeta "),
                joined("select * from datos where disco like('", disco, "')  and ruta like('*\\", node,
                       "*')  and tipo =('archivo') and nivel =('2') order by carpeta ")};
    const std::string path = chained(chain, node);
    return {deepFolders(level, disco, path), joined(deepFiles(level, disco, path), "')  order by carpeta ")};
}

ListingStatements steppedFolderListing(int level, std::string_view disco, std::string_view ruta) {
    const std::string number = decimal(level);
    if (level == 2)
        return {joined("select * from datos where disco like('", disco, "') and ruta like('*", ruta,
                       "*') and tipo <>('archivo') and nivel =('2')  order by carpeta "),
                joined("select * from datos where disco like('", disco, "') and ruta like('*", ruta,
                       "*')  and tipo =('archivo') and nivel =('2') order by carpeta ")};
    return {joined("select * from datos where disco like('", disco, "') and ruta like ('*", ruta,
                   "*')  and tipo <>('archivo') and nivel =('", number, "')   order by carpeta "),
            joined("select * from datos where disco like('", disco, "') and ruta like ('*", ruta,
                   "') and tipo =('archivo') and nivel =('", number, "')  order by carpeta ")};
}

ListingStatements steppedResultListing(int level, std::string_view disco, std::string_view ruta,
                                       std::string_view name) {
    ListingStatements listing = steppedFolderListing(level, disco, ruta);
    // From level 4 on, any folder of that name and depth in the unit supplies files.
    if (level >= 4)
        listing.files =
            joined("select * from datos where disco like('", disco, "') and ruta like ('*\\", name,
                   "') and tipo =('archivo') and nivel =('", decimal(level), "')  order by carpeta ");
    return listing;
}

std::string steppedFolderLookup(std::string_view name, std::string_view disco, std::string_view ruta) {
    return joined("select * from datos where carpeta =('", name, "') and disco =('", disco,
                  "') and ruta like('*", ruta, "') and tipo <>('archivo') order by carpeta ");
}

std::string steppedResultLookup(std::string_view name, std::string_view disco, std::string_view ruta) {
    return joined("select * from datos where carpeta like('", name, "') and disco like('", disco,
                  "') and ruta like('", ruta, "') and tipo <>('archivo') order by carpeta ");
}

}  // namespace browse
