#include "stats/statements.h"

#include <string_view>

#include "core/literals.h"
#include "core/text.h"
#include "stats/categories.h"

namespace stats {
namespace {

constexpr std::string_view start = "select * from datos where ";
constexpr std::size_t audioIndex = 0;
constexpr std::string_view gif = "*.gif";

bool isFolder(const Scope& scope) {
    return scope.path || scope.ruta;
}

// "disco = ('S')and ruta like ('*P*')": the condition of a folder.
std::string folderCondition(const Scope& scope) {
    if (scope.ruta)
        return "disco = ('" + scope.unit + "') and (ruta =(" + core::literal(*scope.ruta) +
               ") or ruta like (" + core::literal(core::asPattern(*scope.ruta) + "\\*") + "))";
    return "disco = ('" + scope.unit + "')and ruta like ('*" + *scope.path + "*')";
}

std::string selectUnitCategory(const Scope& scope, std::size_t category) {
    std::string sql{start};
    bool first = true;
    for (std::string_view pattern : categories[category].unitPatterns) {
        // Audio writes its first condition the way the others write their further ones.
        if (first)
            sql += category == audioIndex ? "disco =('" : "disco = ('";
        else
            sql += " or disco =('";
        sql += scope.unit;
        sql += pattern == gif ? "') and archivo like ('" : "') and archivo  like ('";
        sql += pattern;
        sql += "')";
        first = false;
    }
    return sql + " order by numero";
}

std::string selectFolderCategory(const Scope& scope, std::size_t category) {
    std::string sql{start};
    bool first = true;
    for (std::string_view pattern : categories[category].folderPatterns) {
        if (!first) sql += " or ";
        sql += folderCondition(scope) + " and archivo  like ('";
        sql += pattern;
        sql += "')";
        first = false;
    }
    return sql + " order by numero";
}

}  // namespace

std::string selectCategory(const Scope& scope, std::size_t category) {
    return isFolder(scope) ? selectFolderCategory(scope, category) : selectUnitCategory(scope, category);
}

std::string selectTotal(const Scope& scope) {
    const std::string condition = isFolder(scope) ? folderCondition(scope) : "disco = ('" + scope.unit + "')";
    return std::string{start} + condition + "  and tipo =('archivo')order by numero";
}

}  // namespace stats
