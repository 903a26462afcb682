#include "duplicates/duplicates.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <utility>

#include "core/literals.h"
#include "core/text.h"
#include "core/unit_kinds.h"
#include "core/units.h"
#include "lists/text_arena.h"

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

template <class Use>
engine::Result<> forEach(engine::Recordset& rows, Use use) {
    for (; !rows.Eof(); rows.MoveNext()) use();
    if (rows.error()) return std::unexpected(*rows.error());
    return {};
}

// Which rows may be of files that have a twin: those that share 32 bits of a hash. Eight bytes a row; to mark
// them in a table by their hash took as much, and waiting for the memory at each row was a quarter of the
// time.
class Twins {
  public:
    explicit Twins(long long rows) { m_met.reserve(static_cast<std::size_t>(rows)); }

    void meet(std::uint32_t hash, std::size_t row) {
        m_met.push_back(std::uint64_t{hash} << 32 | shortOf(row));
    }
    // When all have been met.
    void settle(std::size_t rows) {
        m_isTwin.resize(std::min(rows, std::size_t{1} << 32));
        std::ranges::sort(m_met);
        for (std::size_t at = 1; at < m_met.size(); ++at)
            if (m_met[at - 1] >> 32 == m_met[at] >> 32)
                m_isTwin[shortOf(m_met[at - 1])] = m_isTwin[shortOf(m_met[at])] = true;
        m_met = {};
    }
    [[nodiscard]] bool maybeTwin(std::size_t row) const { return m_isTwin[shortOf(row)]; }
    [[nodiscard]] std::size_t count() const {
        return static_cast<std::size_t>(std::ranges::count(m_isTwin, true));
    }

  private:
    // Rows that share it with a twin count as one too.
    static std::uint32_t shortOf(std::uint64_t row) { return static_cast<std::uint32_t>(row); }

    std::vector<std::uint64_t> m_met;  // hash and row
    std::vector<bool> m_isTwin;
};

// A catalogue's files that may have a twin.
class Files {
  public:
    explicit Files(const Request& request) : m_request(request) {}

    engine::Result<> read(engine::Database& database);
    void group(const std::function<void(const Group&)>& take);

  private:
    struct File {
        const char* name = nullptr;
        std::int64_t largo = 0;
        std::int64_t second = 0;
        std::uint32_t nameLength = 0;
        std::uint32_t hash = 0;
        std::uint32_t number = 0;  // in the catalogue's order
        std::uint32_t place = 0;
    };
    struct Place {
        std::string_view disco, ruta;
    };
    struct Run {
        std::size_t begin = 0, end = 0;
        std::int64_t waste = 0;
    };

    void add(const Facts& facts, std::string_view ruta);
    [[nodiscard]] std::uint32_t placeOf(std::string_view disco, std::string_view ruta);
    [[nodiscard]] bool isAskedFor(const Facts& facts) const {
        const auto& discos = m_request.discos;
        return facts.largo >= m_request.leastKilobytes &&
               (discos.empty() || std::ranges::find(discos, facts.disco) != discos.end());
    }
    [[nodiscard]] static std::string_view name(const File& file) { return {file.name, file.nameLength}; }
    [[nodiscard]] std::uint32_t hash(const Facts& facts) const;
    [[nodiscard]] std::weak_ordering compare(const File& a, const File& b) const;
    [[nodiscard]] std::vector<Run> runs() const;

    const Request& m_request;
    std::vector<File> m_files;
    std::vector<Place> m_places;
    lists::TextArena m_texts;
};

// Two passes, since most files have no twin and need not be kept: of 10,000,000 files 86 MB instead of
// 1.2 GB.
engine::Result<> Files::read(engine::Database& database) {
    const auto total = TRY(core::totalRows(database));
    auto first = TRY(database.OpenRecordset(selectFiles(m_request)));
    auto second = TRY(database.OpenRecordset(selectFiles(m_request)));
    (void)second.Field("archivo");  // from its first row on it holds the state that the first pass reads

    Twins twins(total);
    std::size_t row = 0;
    TRY(forEach(first, [&] {
        const Facts facts = factsOf(first);
        if (isAskedFor(facts)) twins.meet(hash(facts), row);
        ++row;
    }));
    twins.settle(row);
    m_files.reserve(twins.count());
    row = 0;
    return forEach(second, [&] {
        if (twins.maybeTwin(row++)) add(factsOf(second), second.Field("ruta").text());
    });
}

// Of what files are told apart by.
std::uint32_t Files::hash(const Facts& facts) const {
    constexpr std::uint64_t odd = 0x9E37'79B9'7F4A'7C15;  // spreads numbers that lie close together
    std::uint64_t hash = m_request.byName ? std::hash<std::string_view>()(facts.lower) : 0;
    if (m_request.bySize) hash = (hash ^ static_cast<std::uint64_t>(facts.largo)) * odd;
    if (m_request.byDate) hash = (hash ^ static_cast<std::uint64_t>(facts.second)) * odd;
    return static_cast<std::uint32_t>(hash >> 32);
}

void Files::add(const Facts& facts, std::string_view ruta) {
    File& file = m_files.emplace_back();
    const std::string_view name = m_texts.add(facts.archivo);
    file.name = name.data();
    file.nameLength = static_cast<std::uint32_t>(name.size());
    file.largo = facts.largo;
    file.second = facts.second;
    file.hash = hash(facts);
    file.number = static_cast<std::uint32_t>(m_files.size());
    file.place = placeOf(facts.disco, ruta);
}

// Files of one folder follow each other.
std::uint32_t Files::placeOf(std::string_view disco, std::string_view ruta) {
    const Place last = m_places.empty() ? Place() : m_places.back();
    if (m_places.empty() || last.ruta != ruta || last.disco != disco)
        m_places.push_back({last.disco == disco ? last.disco : m_texts.add(disco), m_texts.add(ruta)});
    return static_cast<std::uint32_t>(m_places.size() - 1);
}

// Files that agree are equivalent. The names of most are the same to the letter.
std::weak_ordering Files::compare(const File& a, const File& b) const {
    if (a.hash != b.hash) return a.hash <=> b.hash;
    if (m_request.bySize && a.largo != b.largo) return a.largo <=> b.largo;
    if (m_request.byDate && a.second != b.second) return a.second <=> b.second;
    if (!m_request.byName || name(a) == name(b)) return std::weak_ordering::equivalent;
    return core::lowerCase(name(a)) <=> core::lowerCase(name(b));
}

std::vector<Files::Run> Files::runs() const {
    std::vector<Run> found;
    for (std::size_t begin = 0, end = 0; begin < m_files.size(); begin = end) {
        std::int64_t sum = 0, largest = 0;
        for (; end < m_files.size() && std::is_eq(compare(m_files[begin], m_files[end])); ++end) {
            sum += m_files[end].largo;
            largest = std::max(largest, m_files[end].largo);
        }
        if (end - begin > 1) found.push_back({begin, end, sum - largest});
    }
    return found;
}

void Files::group(const std::function<void(const Group&)>& take) {
    std::ranges::sort(m_files, [this](const File& a, const File& b) {
        const auto order = compare(a, b);
        return order == 0 ? a.number < b.number : order < 0;
    });
    std::vector<Run> found = runs();
    std::ranges::sort(found, [this](const Run& a, const Run& b) {
        return a.waste != b.waste ? a.waste > b.waste : m_files[a.begin].number < m_files[b.begin].number;
    });
    std::vector<Copy> copies;
    for (const Run& run : found) {
        copies.clear();
        std::int64_t largest = 0;
        for (std::size_t i = run.begin; i < run.end; ++i) {
            const File& file = m_files[i];
            const Place& place = m_places[file.place];
            copies.push_back({place.disco, place.ruta, name(file), file.largo});
            largest = std::max(largest, file.largo);
        }
        take({largest, run.waste, copies});
    }
}

}  // namespace

engine::Result<> find(engine::Database& database, const Request& request,
                      const std::function<void(const Group&)>& take) {
    Files files(request);
    TRY(files.read(database));
    files.group(take);
    return {};
}

}  // namespace duplicates
