#include "browse/totals.h"

#include <optional>

#include "core/kilobytes.h"

namespace browse {
namespace {

// Counts and sums until a statement fails; then nothing is taken for the whole.
class Sums {
  public:
    explicit Sums(engine::Database& database) : m_database(database) {}

    long long count(const std::string& sql) {
        auto rows = open(sql);
        const long long counted = rows ? rows->RecordCount() : 0;
        if (rows) note(*rows);
        return counted;
    }

    struct Files {
        long long count = 0;
        std::int64_t kilobytes = 0;
    };
    Files files(const std::string& sql) {
        auto rows = open(sql);
        Files all;
        for (; rows && !rows->Eof(); rows->MoveNext(), ++all.count)
            all.kilobytes = core::addKilobytes(all.kilobytes, rows->Field("largo").integer());
        if (rows) note(*rows);
        return all;
    }

    [[nodiscard]] engine::Result<Totals> whole(const Totals& totals) const {
        if (m_failure) return std::unexpected(*m_failure);
        return totals;
    }

  private:
    std::optional<engine::Recordset> open(const std::string& sql) {
        auto rows = m_database.OpenRecordset(sql);
        if (rows) return std::move(*rows);
        m_failure = rows.error();
        return std::nullopt;
    }
    void note(const engine::Recordset& rows) {
        if (rows.error()) m_failure = *rows.error();
    }

    engine::Database& m_database;
    std::optional<engine::Error> m_failure;
};

std::string foldersOf(const std::string& disco) {
    return "select * from datos where disco=('" + disco + "') and tipo <>('archivo')  order by carpeta ";
}

std::string filesOf(const std::string& disco) {
    return "select * from datos where disco=('" + disco + "') and  tipo =('archivo')  order by archivo ";
}

std::string sizesOf(const std::string& disco) {
    return "select largo from datos where largo > (1) and disco=('" + disco + "')";
}

}  // namespace

engine::Result<Totals> clickedUnitTotals(engine::Database& database, std::string_view disco) {
    const std::string unit(disco);
    Sums sums(database);
    const long long folders = sums.count(foldersOf(unit));
    const long long files = sums.count(filesOf(unit));
    return sums.whole({folders, files, sums.files(sizesOf(unit)).kilobytes});
}

engine::Result<Totals> raisedUnitTotals(engine::Database& database, std::string_view disco) {
    const std::string unit(disco);
    Sums sums(database);
    const long long folders = sums.count(foldersOf(unit));
    const auto files =
        sums.files("select * from datos where  disco=('" + unit + "')and tipo =('archivo') order by numero ");
    return sums.whole({folders, files.count, files.kilobytes});
}

engine::Result<Totals> propertiesTotals(engine::Database& database, const std::string& disco) {
    Sums sums(database);
    const long long files = sums.count(filesOf(disco));
    const std::int64_t kilobytes = sums.files(sizesOf(disco)).kilobytes;
    const long long folders = sums.count("select * from datos where disco =('" + disco +
                                         "') and  tipo =('Carpeta de archivos')  order by carpeta ");
    return sums.whole({folders, files, kilobytes});
}

engine::Result<Totals> folderTotals(engine::Database& database, std::string_view discoactual,
                                    std::string_view rutaactual, int nivelactual) {
    const std::string below = "ruta like('*" + std::string(rutaactual) + "*') and ";
    const std::string deeper = "nivel >('" + std::to_string(nivelactual) + "')";
    const std::string disco(discoactual);
    Sums sums(database);
    // Their count has the sizes' condition: the rows are gone through once for both.
    const auto files = sums.files("select * from datos where  disco=('" + disco + "')and " + below +
                                  "tipo =('archivo') and " + deeper);
    const long long folders =
        sums.count("select * from datos where disco=('" + disco + "')and " + below +
                   " tipo =('Carpeta de archivos')and " + deeper + "  order by carpeta ");
    return sums.whole({folders, files.count, files.kilobytes});
}

std::string unitStatus(std::string_view disco, const Totals& totals, const core::Rotulos& rotulos) {
    return rotulos.rotuloprefijounidad + std::string(disco) + folderStatus(totals, rotulos);
}

std::string folderStatus(const Totals& totals, const core::Rotulos& rotulos) {
    return rotulos.rotuloprefijocarpetas + std::to_string(totals.folders) + rotulos.rotuloprefijoarchivos +
           std::to_string(totals.files);
}

}  // namespace browse
