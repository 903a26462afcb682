#include "browse/totals.h"

namespace browse {
namespace {

long long countOf(engine::Database& database, const std::string& sql) {
    auto rows = database.OpenRecordset(sql);
    return rows ? rows->RecordCount() : 0;
}

std::int64_t sumOfLargo(engine::Database& database, const std::string& sql) {
    std::int64_t sum = 0;
    if (auto rows = database.OpenRecordset(sql))
        for (; !rows->Eof(); rows->MoveNext()) sum += rows->Field("largo").integer();
    return sum;
}

Totals unitCounts(engine::Database& database, const std::string& disco) {
    Totals totals;
    totals.folders = countOf(database, "select * from datos where disco=('" + disco +
                                           "') and tipo <>('archivo')  order by carpeta ");
    totals.files = countOf(database, "select * from datos where disco=('" + disco +
                                         "') and  tipo =('archivo')  order by archivo ");
    return totals;
}

}  // namespace

Totals clickedUnitTotals(engine::Database& database, std::string_view disco) {
    const std::string unit(disco);
    Totals totals = unitCounts(database, unit);
    totals.kilobytes =
        sumOfLargo(database, "select largo from datos where largo > (1) and disco=('" + unit + "')");
    return totals;
}

Totals raisedUnitTotals(engine::Database& database, std::string_view disco) {
    const std::string unit(disco);
    Totals totals = unitCounts(database, unit);
    totals.kilobytes = sumOfLargo(
        database, "select * from datos where  disco=('" + unit + "')and tipo =('archivo') order by numero ");
    return totals;
}

Totals propertiesTotals(engine::Database& database, const std::string& disco) {
    Totals totals = clickedUnitTotals(database, disco);
    totals.folders = countOf(database, "select * from datos where disco =('" + disco +
                                           "') and  tipo =('Carpeta de archivos')  order by carpeta ");
    return totals;
}

Totals folderTotals(engine::Database& database, std::string_view discoactual, std::string_view rutaactual,
                    int nivelactual) {
    const std::string below = "select * from datos where disco=('" + std::string(discoactual) +
                              "')and ruta like('*" + std::string(rutaactual) + "*') and ";
    const std::string sized = "select * from datos where  disco=('" + std::string(discoactual) +
                              "')and ruta like('*" + std::string(rutaactual) + "*') and ";
    const std::string nivel = std::to_string(nivelactual);
    Totals totals;
    totals.kilobytes = sumOfLargo(database, sized + "tipo =('archivo') and nivel >('" + nivel + "')");
    totals.folders = countOf(
        database, below + " tipo =('Carpeta de archivos')and nivel >('" + nivel + "')  order by carpeta ");
    totals.files =
        countOf(database, below + " tipo =('archivo')and nivel >('" + nivel + "')order by archivo ");
    return totals;
}

std::string unitStatus(std::string_view disco, const Totals& totals, const core::Rotulos& rotulos) {
    return rotulos.rotuloprefijounidad + std::string(disco) + folderStatus(totals, rotulos);
}

std::string folderStatus(const Totals& totals, const core::Rotulos& rotulos) {
    return rotulos.rotuloprefijocarpetas + std::to_string(totals.folders) + rotulos.rotuloprefijoarchivos +
           std::to_string(totals.files);
}

}  // namespace browse
