#include "core/lookup.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <utility>

#include "core/literals.h"
#include "core/path_readings.h"
#include "core/text.h"
#include "core/unit_kinds.h"
#include "core/unit_name.h"
#include "core/units.h"
#include "engine/text/folding.h"

namespace core {
namespace {

// How well a stored text fits a typed one; the first is the best.
enum class Fit { Exact, WithoutApostrophes, Folded, FoldedWithoutApostrophes, None };

Fit fitOf(std::string_view typed, std::string_view stored) {
    if (typed == stored) return Fit::Exact;
    const std::string plain = withoutApostrophes(typed);
    if (plain == stored) return Fit::WithoutApostrophes;
    if (engine::equalFolded(typed, stored)) return Fit::Folded;
    return engine::equalFolded(plain, stored) ? Fit::FoldedWithoutApostrophes : Fit::None;
}

bool isExact(Fit fit) {
    return fit == Fit::Exact || fit == Fit::WithoutApostrophes;
}

std::unexpected<LookupFailure> unreadable(const engine::Error& error) {
    return std::unexpected(LookupFailure{.kind = LookupFailure::Unreadable, .error = error});
}

std::string_view withoutDrive(std::string_view path) {
    return path.substr(std::min(path.find('\\'), path.size()));
}

FoundRow::Kind kindOf(const CatalogRow& row) {
    if (row.archivo) return FoundRow::File;
    return row.tipo == folderTipo ? FoundRow::Folder : FoundRow::Entry;
}

std::string joinedNames(const std::vector<std::string>& names) {
    std::string path;
    for (const std::string& name : names) path.append(path.empty() ? "" : "\\").append(name);
    return path;
}

// "C:Casablanca", as rows of hand-made units have it.
bool namesEntry(const PathReading& reading) {
    return !reading.relative && reading.path.size() > 2 && !reading.path.contains('\\');
}

// A row beside the reading that it fits.
struct MatchedRow {
    FoundRow found;
    std::string path;
    bool otherDrive = false;
    Fit fit = Fit::None;
    std::size_t reading = 0;

    [[nodiscard]] std::pair<bool, Fit> rank() const { return {otherDrive, fit}; }
};

class RowSearch {
  public:
    RowSearch(std::string_view path, const platform::Drives& drives, FoundRow::Kind preferred)
        : m_readings(readingsOf(path, drives)), m_native(path.starts_with('/')), m_preferred(preferred) {}

    Lookup<FoundRow> in(engine::Database& database, const std::string& disco);

  private:
    enum class As { Itself, RootOfUnit };

    [[nodiscard]] std::string condition() const;
    engine::Result<> consider(engine::Database& database, const std::string& disco,
                              const std::string& condition, As as);
    void consider(const CatalogRow& row);
    void considerRoot(const CatalogRow& row);
    void compare(MatchedRow candidate, const std::string& relativePath);
    void offer(const MatchedRow& candidate);
    [[nodiscard]] Lookup<FoundRow> best();

    std::vector<PathReading> m_readings;
    bool m_native;
    FoundRow::Kind m_preferred;
    std::vector<MatchedRow> m_best;  // all of one rank
};

// Rows are asked for by their own names, in every spelling that can be meant; the rest of the path is
// compared here.
std::string RowSearch::condition() const {
    std::string names;
    std::ptrdiff_t depth = 0;  // below zero when the readings differ in it
    for (const PathReading& reading : m_readings) {
        const std::string name(lastComponent(reading.path));
        for (const std::string& spelling : {name, withoutApostrophes(name)})
            names.append(names.empty() ? "" : ",").append(literal(spelling));
        if (namesEntry(reading))
            names.append(",").append(literal(withoutApostrophes(reading.path.substr(2))));
        const auto levels = std::ranges::count(reading.path, '\\') + 1;
        depth = reading.relative && (depth == 0 || depth == levels) ? levels : -1;
    }
    const std::string level = depth > 0 ? " and nivel=('" + std::to_string(depth) + "')" : "";
    return level + " and (carpeta in (" + names + ") and tipo <>('archivo') or archivo in (" + names + "))";
}

engine::Result<> RowSearch::consider(engine::Database& database, const std::string& disco,
                                     const std::string& condition, As as) {
    auto rows =
        TRY(database.OpenRecordset("select * from datos where disco=(" + literal(disco) + ")" + condition));
    for (; !rows.Eof(); rows.MoveNext()) {
        if (rows.Field("disco").text() != disco) continue;  // a unit that differs in case
        const CatalogRow row = readRow(rows);
        if (as == As::Itself)
            consider(row);
        else
            considerRoot(row);
        if (as == As::RootOfUnit && !m_best.empty()) break;
    }
    if (rows.error()) return std::unexpected(*rows.error());
    return {};
}

void RowSearch::consider(const CatalogRow& row) {
    // One after the other: g++ 12 destroys what nested braces have made twice when one of them throws.
    MatchedRow candidate;
    candidate.found.kind = kindOf(row);
    candidate.found.row = row;
    candidate.found.folders = namesBelowUnit(row);
    candidate.path = drivePathOf(row);
    const std::string relativePath = joinedNames(candidate.found.folders);
    if (candidate.found.kind == FoundRow::File) candidate.found.folders.pop_back();
    compare(std::move(candidate), relativePath);
}

// The folder that a row of the first level lies in is the one that was catalogued.
void RowSearch::considerRoot(const CatalogRow& row) {
    MatchedRow candidate{.found = {},
                         .path = row.archivo ? row.ruta : row.ruta.substr(0, row.ruta.rfind('\\'))};
    if (candidate.path.ends_with('\\')) candidate.path.pop_back();
    candidate.found.row.disco = row.disco;
    compare(std::move(candidate), {});
}

void RowSearch::compare(MatchedRow candidate, const std::string& relativePath) {
    for (std::size_t i = 0; i < m_readings.size(); ++i) {
        const PathReading& reading = m_readings[i];
        const bool isFile = candidate.found.kind == FoundRow::File;
        if (reading.path.empty() || (reading.folderOnly && isFile)) continue;
        candidate.reading = i;
        const auto compareWith = [&](std::string_view typed, std::string_view stored, bool otherDrive) {
            const Fit fit = candidate.fit = fitOf(typed, stored);
            if (fit == Fit::None) return;
            candidate.otherDrive = otherDrive;
            candidate.found.withApostrophes =
                fit == Fit::WithoutApostrophes || fit == Fit::FoldedWithoutApostrophes;
            offer(candidate);
        };
        compareWith(reading.path, reading.relative ? relativePath : candidate.path, false);
        if (m_native && !reading.relative && reading.path.contains('\\'))
            compareWith(withoutDrive(reading.path), withoutDrive(candidate.path), true);
    }
}

void RowSearch::offer(const MatchedRow& candidate) {
    if (!m_best.empty() && candidate.rank() > m_best.front().rank()) return;
    if (!m_best.empty() && candidate.rank() < m_best.front().rank()) m_best.clear();
    m_best.push_back(candidate);
}

Lookup<FoundRow> RowSearch::best() {
    if (m_best.empty()) return std::unexpected(LookupFailure{});
    const auto isPreferred = [this](const MatchedRow& candidate) {
        return candidate.found.kind == m_preferred;
    };
    if (std::ranges::any_of(m_best, isPreferred))
        std::erase_if(m_best, [&](const MatchedRow& candidate) { return !isPreferred(candidate); });
    if (!isExact(m_best.front().fit)) {
        std::vector<std::string> paths;
        paths.reserve(m_best.size());
        for (const MatchedRow& candidate : m_best) paths.push_back(candidate.path);
        std::ranges::sort(paths);
        paths.erase(std::unique(paths.begin(), paths.end()), paths.end());
        if (paths.size() > 1) return std::unexpected(LookupFailure{LookupFailure::Several, std::move(paths)});
    }
    return std::move(std::ranges::min_element(m_best, {}, &MatchedRow::reading)->found);
}

Lookup<FoundRow> RowSearch::in(engine::Database& database, const std::string& disco) {
    const auto namesUnit = [](const PathReading& reading) {
        return reading.relative && reading.path.empty();
    };
    if (std::ranges::any_of(m_readings, namesUnit)) {
        FoundRow unit;
        unit.row.disco = disco;
        return unit;
    }
    if (const auto read = consider(database, disco, condition(), As::Itself); !read)
        return unreadable(read.error());
    const bool mayNameRoot = std::ranges::any_of(m_readings, std::logical_not(), &PathReading::relative);
    if (m_best.empty() && mayNameRoot)
        if (const auto read = consider(database, disco, " and nivel=('1')", As::RootOfUnit); !read)
            return unreadable(read.error());
    return best();
}

}  // namespace

Lookup<std::string> findUnit(engine::Database& database, std::string_view name) {
    const auto discos = unitNames(database);
    if (!discos) return unreadable(discos.error());
    Fit bestFit = Fit::None;
    std::vector<std::string> found;
    for (const std::string& disco : *discos) {
        const Fit fit = fitOf(name, unitName(disco));
        if (fit > bestFit || fit == Fit::None) continue;
        if (fit < bestFit) found.clear();
        bestFit = fit;
        found.push_back(disco);
    }
    if (found.empty()) return std::unexpected(LookupFailure{});
    if (found.size() == 1 || isExact(bestFit)) return std::move(found.front());
    for (std::string& disco : found) disco = unitName(disco);
    return std::unexpected(LookupFailure{LookupFailure::Several, std::move(found)});
}

Lookup<FoundRow> findRow(engine::Database& database, const std::string& disco, std::string_view path,
                         const platform::Drives& drives, FoundRow::Kind preferred) {
    return RowSearch(path, drives, preferred).in(database, disco);
}

std::string drivePathOf(const CatalogRow& row) {
    return row.archivo ? joinPath(row.ruta, *row.archivo) : row.ruta;
}

std::vector<std::string> namesBelowUnit(const CatalogRow& row) {
    const std::string path = drivePathOf(row);
    std::vector<std::string> names;
    for (std::size_t at = path.find('\\'); at < path.size();) {
        const std::size_t end = std::min(path.find('\\', at + 1), path.size());
        names.push_back(path.substr(at + 1, end - at - 1));
        at = end;
    }
    if (names.empty()) return {row.carpeta};
    std::size_t level = 0;
    std::from_chars(row.nivel.data(), row.nivel.data() + row.nivel.size(), level);
    if (level > 0 && level < names.size()) names.erase(names.begin(), names.end() - std::ptrdiff_t(level));
    return names;
}

}  // namespace core
