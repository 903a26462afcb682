#include "scan/walker.h"

#include <algorithm>
#include <utility>

#include "core/kilobytes.h"
#include "core/serial_date.h"
#include "core/text.h"
#include "core/unit_kinds.h"
#include "platform/names.h"

namespace scan {
namespace {

constexpr int topLevel = 1;
constexpr int deepestYield = 10;  // below it nothing yields and nothing can be stopped

bool standsAsItIs(std::string_view name) {
    return std::ranges::none_of(
        name, [](char c) { return static_cast<unsigned char>(c) >= 0x80 || c == '\'' || c == '\\'; });
}

// Extends a path by a component for as long as it lives.
class PathStep {
  public:
    PathStep(std::string& path, std::string_view name) : m_path(path), m_length(path.size()) {
        if (!path.ends_with('\\')) path.push_back('\\');
        path.append(name);
    }
    ~PathStep() { m_path.resize(m_length); }
    PathStep(const PathStep&) = delete;
    PathStep& operator=(const PathStep&) = delete;

  private:
    std::string& m_path;
    std::size_t m_length;
};

}  // namespace

std::string_view carpetaOf(std::string_view ruta) {
    const bool isDriveRoot = ruta.size() == 3 && ruta.substr(1) == ":\\";
    return isDriveRoot ? ruta.substr(0, 2) : core::lastComponent(ruta);
}

Walker::Walker(RowSink& rows, WalkObserver& observer, WalkStart start)
    : m_rows(rows),
      m_observer(observer),
      m_start(std::move(start)),
      m_numero(m_start.lastNumero),
      m_path(core::withoutApostrophes(m_start.drivePath)) {
    m_folderRow.tipo = core::folderTipo;
    m_fileRow.tipo = core::fileTipo;
    m_folderRow.disco = m_fileRow.disco = m_start.disco;
}

WalkResult Walker::run() {
    Folder folder = Folder::at(m_start.nativePath);
    const Flow flow = walk(folder, topLevel);
    m_rows.commit();
    return {m_counts, flow == Flow::Stops, folder.isOpen(), m_rows.summary()};
}

Walker::Flow Walker::walk(Folder& folder, int level) {
    const Listing& names = list(folder, level);
    if (level == topLevel) m_observer.started(std::ssize(names.folders()));

    for (const Listing::Entry& entry : names.folders()) {
        if (!folderRow(folder, names, entry, level)) continue;
        if (level == topLevel) m_observer.topLevelDone();
        if (level <= deepestYield) {
            if (m_observer.yield(m_rows) || !m_rows.takesMore()) return Flow::Stops;
            if (!entry.isLink && descend(folder, entry, level) == Flow::Stops) return Flow::Stops;
        } else if (!entry.isLink) {
            lastLevel(folder, entry);
        }
    }
    fileRows(folder, names, level);
    return Flow::Goes;
}

Walker::Flow Walker::descend(const Folder& parent, const Listing::Entry& entry, int level) {
    const std::string_view name = m_listings[level].name(entry);
    Folder folder = parent.subfolder(name.data());
    const PathStep step(m_path, rowName(name));
    if (isLookedInto(folder, parent)) return walk(folder, level + 1);
    return Flow::Goes;
}

// What the kernel shows as files is no file of a disc, has lengths beyond any disc and no end.
bool Walker::isLookedInto(const Folder& folder, const Folder& parent) {
    if (!folder.isOpen()) {
        m_observer.gap(Gap::Content, m_path);
        return false;
    }
    if (!folder.isOfKernel() || parent.isOfKernel()) return true;
    m_observer.gap(Gap::Kernel, m_path);
    return false;
}

void Walker::lastLevel(const Folder& parent, const Listing::Entry& entry) {
    const std::string_view name = m_listings[deepestLevel - 1].name(entry);
    Folder folder = parent.subfolder(name.data());
    const PathStep step(m_path, rowName(name));
    if (!isLookedInto(folder, parent)) return;
    const Listing& names = list(folder, deepestLevel);
    fileRows(folder, names, deepestLevel);
    for (const Listing::Entry& below : names.folders()) {
        if (!folderRow(folder, names, below, deepestLevel) || below.isLink) continue;
        const PathStep deepest(m_path, rowName(names.name(below)));
        m_observer.gap(Gap::Depth, m_path);
    }
}

const Listing& Walker::list(Folder& folder, int level) {
    Listing& names = m_listings[level];
    names.clear();
    if (!folder.readAll(names, m_start.exclusion)) m_observer.gap(Gap::Content, m_path);
    names.sort();
    return names;
}

bool Walker::folderRow(const Folder& parent, const Listing& names, const Listing::Entry& entry, int level) {
    const std::string_view diskName = names.name(entry);
    const auto facts = parent.facts(diskName.data(), entry.isLink);
    if (!facts) return false;

    ++m_counts.folders;
    if (level > topLevel) m_observer.status(m_counts);

    const std::string_view name = rowName(diskName);
    const PathStep step(m_path, name);
    m_folderRow.numero = ++m_numero;
    m_folderRow.ruta = m_path;
    m_folderRow.carpeta = name;
    m_folderRow.nivel = std::to_string(level);
    m_folderRow.fecha = core::serialOfTime(facts->modified);
    m_rows.add(m_folderRow);
    if (!facts->known) m_observer.gap(Gap::Facts, m_path);
    return true;
}

void Walker::fileRows(const Folder& folder, const Listing& names, int level) {
    m_fileRow.ruta = m_path;
    m_fileRow.carpeta = carpetaOf(m_path);
    m_fileRow.nivel = std::to_string(level);

    for (const Listing::Entry& entry : names.files()) {
        const std::string_view diskName = names.name(entry);
        const auto facts = folder.facts(diskName.data(), entry.isLink);
        if (!facts) continue;

        ++m_counts.files;
        m_observer.status(m_counts);
        m_fileRow.numero = ++m_numero;
        m_fileRow.archivo = rowName(diskName);
        m_fileRow.fecha = core::serialOfTime(facts->modified);
        m_fileRow.largo = core::kilobytesOf(facts->bytes);
        m_rows.add(m_fileRow);
        if (!facts->known) m_observer.gap(Gap::Facts, m_path);
    }
}

// The name as rows spell it; the view holds until the next call.
std::string_view Walker::rowName(std::string_view diskName) {
    if (standsAsItIs(diskName)) return diskName;
    m_convertedName = core::withoutApostrophes(platform::toStoredName(diskName));
    return m_convertedName;
}

}  // namespace scan
