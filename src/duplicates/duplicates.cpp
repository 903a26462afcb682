#include "duplicates/duplicates.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <tuple>
#include <utility>

#include "core/literals.h"
#include "core/text.h"
#include "core/unit_kinds.h"
#include "core/units.h"

namespace duplicates {
namespace {

constexpr double secondsInDay = 86'400;
constexpr double greatestSerial = 1e9;  // beyond it a number is no date

std::string selectFiles(const Request& request) {
    std::string sql = "select archivo, largo, fecha, disco, ruta from datos where tipo=(" +
                      core::literal(core::fileTipo) + ")";
    std::string before = " and disco in (";
    for (const std::string& disco : request.discos) {
        sql += before + core::literal(disco);
        before = ",";
    }
    if (!request.discos.empty()) sql += ')';
    return sql;
}

// What of a row decides which files agree. The views hold until the row is left.
struct Facts {
    std::string_view disco, archivo;
    std::string lower;
    std::int64_t largo = 0;
    std::int64_t second = 0;
};

Facts factsOf(const engine::Recordset& row) {
    Facts facts;
    facts.disco = row.Field("disco").text();
    facts.archivo = row.Field("archivo").text();
    facts.lower = core::lowerCase(facts.archivo);
    facts.largo = row.Field("largo").integer();
    const double fecha = row.Field("fecha").number();
    if (std::abs(fecha) < greatestSerial) facts.second = std::llround(fecha * secondsInDay);
    return facts;
}

// Which keys were met more than once, with two bits for each of many places. It takes one of sixteen single
// keys for a twin, but no twin for a single one.
class Twins {
  public:
    explicit Twins(long long keys)
        : m_met(std::bit_ceil(16 * static_cast<std::size_t>(keys) + 1)), m_metAgain(m_met.size()) {}

    void meet(std::size_t key) {
        const std::size_t place = key % m_met.size();
        if (m_met[place]) m_metAgain[place] = true;
        m_met[place] = true;
    }
    [[nodiscard]] bool maybeTwin(std::size_t key) const { return m_metAgain[key % m_met.size()]; }

  private:
    std::vector<bool> m_met, m_metAgain;
};

// A catalogue's files that may have a twin.
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

    template <class Use>
    [[nodiscard]] engine::Result<> forEach(engine::Recordset& rows, Use use) const;
    void add(const Facts& facts, std::string_view ruta);
    [[nodiscard]] std::uint32_t placeOf(std::string_view disco, std::string_view ruta);
    [[nodiscard]] bool isAskedFor(const Facts& facts) const {
        const auto& discos = m_request.discos;
        return facts.largo >= m_request.leastKilobytes &&
               (discos.empty() || std::ranges::find(discos, facts.disco) != discos.end());
    }
    [[nodiscard]] std::string_view name(const File& file) const {
        return std::string_view(m_text).substr(file.name, file.nameLength);
    }
    [[nodiscard]] std::string_view lower(const File& file) const {
        if (file.lowerLength == 0) return name(file);
        return std::string_view(m_text).substr(file.name + file.nameLength, file.lowerLength);
    }
    // What files are told apart by; what does not count is the same for all.
    [[nodiscard]] auto key(std::int64_t largo, std::int64_t second, std::string_view lower) const {
        return std::tuple(m_request.bySize ? largo : 0, m_request.byDate ? second : 0,
                          m_request.byName ? lower : std::string_view());
    }
    [[nodiscard]] auto key(const File& file) const { return key(file.largo, file.second, lower(file)); }
    [[nodiscard]] std::size_t hash(const Facts& facts) const;
    [[nodiscard]] std::vector<Run> runs() const;

    const Request& m_request;
    std::vector<File> m_files;
    std::vector<Place> m_places;
    std::string m_text;
};

// Two passes, since most files have no twin and need not be kept: of 10,000,000 files 100 MB instead of
// 1.2 GB.
engine::Result<> Files::read(engine::Database& database) {
    const auto total = core::totalRows(database);
    if (!total) return std::unexpected(total.error());
    auto first = database.OpenRecordset(selectFiles(m_request));
    if (!first) return std::unexpected(first.error());
    auto second = database.OpenRecordset(selectFiles(m_request));
    if (!second) return std::unexpected(second.error());
    (void)second->Field("archivo");  // from its first row on it holds the state that the first pass reads

    Twins twins(*total);
    if (auto read = forEach(*first, [&](const Facts& facts) { twins.meet(hash(facts)); }); !read) return read;
    return forEach(*second, [&](const Facts& facts) {
        if (twins.maybeTwin(hash(facts))) add(facts, second->Field("ruta").text());
    });
}

template <class Use>
engine::Result<> Files::forEach(engine::Recordset& rows, Use use) const {
    for (; !rows.Eof(); rows.MoveNext()) {
        const Facts facts = factsOf(rows);
        if (isAskedFor(facts)) use(facts);
    }
    if (rows.error()) return std::unexpected(*rows.error());
    return {};
}

std::size_t Files::hash(const Facts& facts) const {
    const auto [largo, second, lower] = key(facts.largo, facts.second, facts.lower);
    constexpr std::size_t odd = 0x9E37'79B9'7F4A'7C15;  // spreads numbers that lie close together
    return ((std::hash<std::string_view>()(lower) ^ static_cast<std::size_t>(largo)) * odd ^
            static_cast<std::size_t>(second)) *
               odd >>
           20;
}

void Files::add(const Facts& facts, std::string_view ruta) {
    File& file = m_files.emplace_back();
    file.place = placeOf(facts.disco, ruta);
    file.largo = facts.largo;
    file.second = facts.second;
    file.name = m_text.size();
    file.nameLength = static_cast<std::uint32_t>(facts.archivo.size());
    m_text += facts.archivo;
    if (facts.lower == facts.archivo) return;
    file.lowerLength = static_cast<std::uint32_t>(facts.lower.size());
    m_text += facts.lower;
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
    // Names lie in the catalogue's order, so that a stable sort with its buffer is not needed.
    std::ranges::sort(m_files, [this](const File& a, const File& b) {
        return std::pair(key(a), a.name) < std::pair(key(b), b.name);
    });
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
