#include "mount/tree.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "core/text.h"
#include "core/units.h"

namespace mount {
namespace {

constexpr int lockedTries = 10;  // the engine waits a second at each
constexpr int changedTries = 3;  // a catalogue that is being filled changes all the time
constexpr std::size_t mostOpened = 64;
constexpr std::size_t mostEntries = 500'000;  // of all opened folders, 20 bytes each

}  // namespace

engine::Result<> Tree::refresh() {
    struct stat found {};
    if (::stat(m_path.c_str(), &found) != 0) {
        m_failure = {engine::error::fileNotFound, m_path + ": " + std::strerror(errno)};
        m_database.reset();
        forgetRows();
        return std::unexpected(m_failure);
    }
    const FileState file{found.st_dev, found.st_ino, found.st_mtime};
    if (!m_database || !file.isSameFile(m_file)) return open(file);
    m_file = file;
    const auto version = m_database->Version();
    if (!version && version.error().number != engine::error::locked) return open(file);
    if (version && *version != m_version) {
        forgetRows();
        m_version = *version;
    }
    return {};
}

engine::Result<> Tree::open(const FileState& file) {
    forgetRows();
    m_database.reset();
    auto database = engine::OpenDatabase(m_path, engine::Use::ReadOnly);
    const auto version = database ? database->Version() : std::unexpected(database.error());
    if (!version) {
        m_failure = version.error();
        return std::unexpected(m_failure);
    }
    m_database = std::move(*database);
    m_version = *version;
    m_file = file;
    return {};
}

void Tree::forgetRows() {
    m_opened.clear();
    m_rows.reset();
    m_totals.reset();
}

engine::Result<LevelRows*> Tree::rows() {
    if (!m_database) return std::unexpected(m_failure);
    if (!m_rows) {
        auto spool = TRY(RowSpool::create());
        m_rows = std::make_unique<LevelRows>(*m_database, std::move(spool));
    }
    return m_rows.get();
}

template <class Ask>
auto Tree::steadily(Ask ask) -> decltype(ask()) {
    int locked = 0, changed = 0;
    while (true) {
        const std::size_t before = m_rows ? m_rows->statements() : 0;
        auto answer = ask();
        if (!answer && answer.error().number == engine::error::locked && ++locked < lockedTries) continue;
        const bool wasRead = m_rows && m_rows->statements() != before;
        if (!wasRead || ++changed == changedTries || !changedMeanwhile()) return answer;
    }
}

bool Tree::changedMeanwhile() {
    const auto version = m_database->Version();
    if (!version || *version == m_version) return false;
    forgetRows();
    m_version = *version;
    return true;
}

engine::Result<Tree::Opened*> Tree::opened(NodeId folder) {
    const auto known = std::ranges::find(m_opened, folder, &Opened::id);
    if (known != m_opened.end()) {
        m_opened.splice(m_opened.begin(), m_opened, known);
        return &m_opened.front();
    }
    auto opening = TRY(open(folder));
    if (!opening) return nullptr;
    m_opened.push_front(std::move(*opening));
    closeSome();
    return &m_opened.front();
}

engine::Result<std::optional<Tree::Opened>> Tree::open(NodeId folder) {
    const auto place = TRY(placeOf(folder));
    if (!place) return std::nullopt;
    const auto levels = TRY(rows());
    const auto runs = TRY(folder == rootId ? levels->units() : levels->rowsIn(*place, Rows::Folders));
    auto folders = TRY(Directory::of(folder, levels->spool(), runs));
    return Opened{folder, *place, folders, folder == rootId ? folders : nullptr};
}

engine::Result<std::optional<Place>> Tree::placeOf(NodeId folder) {
    if (folder == rootId) return Place{};
    const auto parent = m_known.folderOf(folder);
    if (!parent) return std::nullopt;
    const auto in = TRY(opened(*parent));
    if (!in) return std::nullopt;
    const auto child = TRY(in->folders->find(folder));
    if (!child) return std::nullopt;
    const Row& row = child->row;
    if (row.kind == Kind::Unit) return Place{row.name, {}, 1};
    if (row.kind != Kind::Folder) return std::nullopt;
    const auto ruta = TRY(in->folders->rutaOf(*child));
    return Place{in->place.disco, core::joinPath(ruta, row.name), in->place.nivel + 1};
}

engine::Result<std::shared_ptr<const Directory>> Tree::all(Opened& folder) {
    if (folder.all) return folder.all;
    const auto levels = TRY(rows());
    const auto folders = TRY(levels->rowsIn(folder.place, Rows::Folders));
    const auto files = TRY(levels->rowsIn(folder.place, Rows::Files));
    folder.all = TRY(Directory::of(folder.id, levels->spool(), folders, files));
    return folder.all;
}

void Tree::closeSome() {
    std::size_t entries = 0, kept = 0;
    for (auto at = m_opened.begin(); at != m_opened.end();) {
        entries += at->folders->size() + (at->all ? at->all->size() : 0);
        const bool tooMuch = kept > 0 && (kept >= mostOpened || entries > mostEntries);
        at = tooMuch ? m_opened.erase(at) : std::next(at);
        ++kept;
    }
}

template <class Key>
engine::Result<std::optional<Child>> Tree::childIn(NodeId folder, Key key) {
    const auto in = TRY(opened(folder));
    if (!in) return std::nullopt;
    if (!in->all) {
        auto found = in->folders->find(key);
        if (!found || *found) return found;
    }
    const auto directory = TRY(all(*in));
    return directory->find(key);
}

engine::Result<std::shared_ptr<const Directory>> Tree::directory(NodeId folder) {
    return steadily([&]() -> engine::Result<std::shared_ptr<const Directory>> {
        const auto in = TRY(opened(folder));
        if (!in) return nullptr;
        return all(*in);
    });
}

engine::Result<std::optional<Child>> Tree::find(NodeId folder, std::string_view name) {
    return steadily([&] {
        auto found = childIn(folder, name);
        if (!found || *found || name.find('\'') == name.npos) return found;
        return childIn(folder, std::string_view(core::withoutApostrophes(name)));
    });
}

engine::Result<std::optional<Child>> Tree::node(NodeId id) {
    const auto folder = m_known.folderOf(id);
    if (!folder) return std::nullopt;
    return steadily([&] { return childIn(*folder, id); });
}

engine::Result<std::optional<core::CataloguedFile>> Tree::fileOf(NodeId id) {
    const auto folder = m_known.folderOf(id);
    if (!folder) return std::nullopt;
    return steadily([&] { return fileIn(*folder, id); });
}

engine::Result<std::optional<core::CataloguedFile>> Tree::fileIn(NodeId folder, NodeId id) {
    auto child = TRY(childIn(folder, id));
    if (!child || child->row.kind != Kind::File) return std::nullopt;
    const auto in = TRY(opened(folder));
    auto ruta = TRY(in->all->rutaOf(*child));
    return core::CataloguedFile{std::move(ruta), std::move(child->row.name)};
}

engine::Result<Tree::Totals> Tree::totals() {
    if (m_totals) return *m_totals;
    (void)TRY(rows());
    const auto units = TRY(core::units(*m_database));
    Totals totals;
    for (const core::Unit& unit : units) {
        totals.items += unit.folders + unit.files;
        totals.kilobytes += unit.kilobytes;
    }
    m_totals = totals;
    return totals;
}

}  // namespace mount
