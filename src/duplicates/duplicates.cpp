#include "duplicates/duplicates.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "core/inserts.h"
#include "core/text.h"
#include "core/unit_kinds.h"

namespace duplicates {
namespace {

constexpr double secondsInDay = 86'400;
constexpr double greatestSerial = 1e9;  // beyond it a number is no date

std::string selectFiles(const Request& request) {
    std::string sql = "select archivo, largo, fecha, disco, ruta from datos where tipo=(" +
                      core::textLiteral(core::fileTipo) + ")";
    std::string before = " and disco in (";
    for (const std::string& disco : request.discos) {
        sql += before + core::textLiteral(disco);
        before = ",";
    }
    if (!request.discos.empty()) sql += ')';
    return sql;
}

class Files {
  public:
    explicit Files(const Request& request) : m_request(request) {}

    engine::Result<> read(engine::Database& database);
    void group(const std::function<void(const Group&)>& take);

  private:
    struct File {
        std::size_t name = 0;          // offset into the text
        std::uint32_t nameLength = 0;  // behind it the name in lower case, where that differs
        std::uint32_t lowerLength = 0;
        std::uint32_t place = 0;
        std::int64_t largo = 0;
        std::int64_t second = 0;
    };
    struct Place {
        std::string disco, ruta;
    };
    struct Run {
        std::size_t begin = 0, end = 0;
        std::int64_t largo = 0, waste = 0;
    };

    void add(const engine::Recordset& rows);
    [[nodiscard]] std::uint32_t placeOf(std::string_view disco, std::string_view ruta);
    [[nodiscard]] bool isAskedFor(std::string_view disco) const {
        return m_request.discos.empty() ||
               std::ranges::find(m_request.discos, disco) != m_request.discos.end();
    }
    [[nodiscard]] std::string_view name(const File& file) const {
        return std::string_view(m_text).substr(file.name, file.nameLength);
    }
    [[nodiscard]] std::string_view lower(const File& file) const {
        if (file.lowerLength == 0) return name(file);
        return std::string_view(m_text).substr(file.name + file.nameLength, file.lowerLength);
    }
    // What files are told apart by; what does not count is the same for all.
    [[nodiscard]] auto key(const File& file) const {
        return std::tuple(m_request.bySize ? file.largo : 0, m_request.byDate ? file.second : 0,
                          m_request.byName ? lower(file) : std::string_view());
    }
    [[nodiscard]] std::vector<Run> runs() const;

    const Request& m_request;
    std::vector<File> m_files;
    std::vector<Place> m_places;
    std::string m_text;
};

engine::Result<> Files::read(engine::Database& database) {
    auto rows = database.OpenRecordset(selectFiles(m_request));
    if (!rows) return std::unexpected(rows.error());
    for (; !rows->Eof(); rows->MoveNext()) add(*rows);
    if (rows->error()) return std::unexpected(*rows->error());
    return {};
}

void Files::add(const engine::Recordset& rows) {
    const std::int64_t largo = rows.Field("largo").integer();
    const std::string_view disco = rows.Field("disco").text();
    if (largo < m_request.leastKilobytes || !isAskedFor(disco)) return;

    const std::string_view archivo = rows.Field("archivo").text();
    const double fecha = rows.Field("fecha").number();
    File& file = m_files.emplace_back();
    file.place = placeOf(disco, rows.Field("ruta").text());
    file.largo = largo;
    if (std::abs(fecha) < greatestSerial) file.second = std::llround(fecha * secondsInDay);
    file.name = m_text.size();
    file.nameLength = static_cast<std::uint32_t>(archivo.size());
    m_text += archivo;
    if (const std::string lower = core::lowerCase(archivo); lower != archivo) {
        file.lowerLength = static_cast<std::uint32_t>(lower.size());
        m_text += lower;
    }
}

// Files of one folder follow each other.
std::uint32_t Files::placeOf(std::string_view disco, std::string_view ruta) {
    if (m_places.empty() || m_places.back().ruta != ruta || m_places.back().disco != disco)
        m_places.push_back({std::string(disco), std::string(ruta)});
    return static_cast<std::uint32_t>(m_places.size() - 1);
}

std::vector<Files::Run> Files::runs() const {
    std::vector<Run> found;
    for (std::size_t begin = 0, end = 0; begin < m_files.size(); begin = end) {
        Run run{begin, begin};
        std::int64_t sum = 0;
        for (; end < m_files.size() && key(m_files[end]) == key(m_files[begin]); ++end) {
            sum += m_files[end].largo;
            run.largo = std::max(run.largo, m_files[end].largo);
        }
        run.end = end;
        run.waste = sum - run.largo;
        if (end - begin > 1) found.push_back(run);
    }
    return found;
}

void Files::group(const std::function<void(const Group&)>& take) {
    std::ranges::stable_sort(m_files, [this](const File& a, const File& b) { return key(a) < key(b); });
    std::vector<Run> found = runs();
    std::ranges::stable_sort(found, std::greater(), &Run::waste);
    std::vector<Copy> copies;
    for (const Run& run : found) {
        copies.clear();
        for (std::size_t i = run.begin; i < run.end; ++i) {
            const File& file = m_files[i];
            const Place& place = m_places[file.place];
            copies.push_back({place.disco, place.ruta, name(file), file.largo});
        }
        take({run.largo, run.waste, copies});
    }
}

}  // namespace

engine::Result<> find(engine::Database& database, const Request& request,
                      const std::function<void(const Group&)>& take) {
    Files files(request);
    if (auto read = files.read(database); !read) return read;
    files.group(take);
    return {};
}

}  // namespace duplicates
