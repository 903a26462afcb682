#include "mount/directory.h"

#include <algorithm>
#include <functional>
#include <numeric>

#include "mount/shown_name.h"

namespace mount {
namespace {

ShownName shownNameOf(const Row& row) {
    return row.kind == Kind::Unit ? shownUnitName(row.name) : shownName(row.name);
}

NodeId idOf(NodeId folder, std::string_view shown) {
    std::string path(reinterpret_cast<const char*>(&folder), sizeof folder);
    const NodeId id = std::hash<std::string_view>{}(path.append(shown));
    return id > rootId ? id : id + rootId + 1;
}

}  // namespace

engine::Result<std::shared_ptr<const Directory>> Directory::of(NodeId folder,
                                                               std::shared_ptr<const RowSpool> spool,
                                                               std::span<const RowSpool::Run> folders,
                                                               std::span<const RowSpool::Run> files) {
    std::shared_ptr<Directory> directory(new Directory(folder, std::move(spool)));
    TRY(directory->add(folders, Folder, AlteredFolder));
    TRY(directory->add(files, File, AlteredFile));
    TRY(directory->settle(Meeting::Mark));
    return directory;
}

engine::Result<> Directory::add(std::span<const RowSpool::Run> runs, Rank rank, Rank altered) {
    for (const RowSpool::Run& run : runs) {
        auto at = TRY(m_spool->firstRow(run));
        for (std::uint32_t i = 0; i < run.rows; ++i) {
            const auto stored = TRY(m_spool->row(at));
            const ShownName name = shownNameOf(stored.row);
            m_entries.push_back({idOf(m_folder, name.bytes), at, name.altered ? altered : rank, false});
            at = stored.next;
        }
    }
    return {};
}

engine::Result<> Directory::settle(Meeting meeting) {
    sortById();
    std::vector<bool> dropped(m_entries.size());
    bool marked = false;
    const Entry* owner = nullptr;
    NodeId owned = 0;
    for (const std::uint32_t index : m_byId) {
        Entry& entry = m_entries[index];
        if (!owner || entry.id != owned) {
            owner = &entry;
            owned = entry.id;
            continue;
        }
        const auto twin = TRY(isTwin(*owner, entry));
        if (twin || meeting == Meeting::Drop) {
            dropped[index] = true;
            continue;
        }
        entry.marked = marked = true;
        const auto child = TRY(childOf(entry));
        entry.id = idOf(m_folder, child.shown);
    }
    std::size_t index = 0;
    if (std::erase_if(m_entries, [&](const Entry&) { return dropped[index++]; }) > 0) sortById();
    return marked ? settle(Meeting::Drop) : engine::Result<>();
}

engine::Result<bool> Directory::isTwin(const Entry& a, const Entry& b) const {
    const auto first = TRY(m_spool->row(a.at)), second = TRY(m_spool->row(b.at));
    return first.row.name == second.row.name;
}

void Directory::sortById() {
    m_byId.resize(m_entries.size());
    std::iota(m_byId.begin(), m_byId.end(), 0U);
    std::ranges::sort(m_byId, [this](std::uint32_t a, std::uint32_t b) {
        const Entry &first = m_entries[a], &second = m_entries[b];
        if (first.id != second.id) return first.id < second.id;
        return first.rank != second.rank ? first.rank < second.rank : a < b;
    });
}

engine::Result<Child> Directory::childOf(const Entry& entry) const {
    auto stored = TRY(m_spool->row(entry.at));
    std::string shown = shownNameOf(stored.row).bytes;
    if (entry.marked) shown = markedName(shown, stored.row.name);
    return Child{entry.id, std::move(shown), std::move(stored.row), entry.at};
}

engine::Result<Child> Directory::child(std::size_t index) const {
    return childOf(m_entries[index]);
}

engine::Result<std::optional<Child>> Directory::find(NodeId id) const {
    const auto idAt = [this](std::uint32_t index) { return m_entries[index].id; };
    const auto found = std::ranges::lower_bound(m_byId, id, {}, idAt);
    if (found == m_byId.end() || idAt(*found) != id) return std::nullopt;
    auto child = TRY(childOf(m_entries[*found]));
    return child;
}

engine::Result<std::optional<Child>> Directory::find(std::string_view shown) const {
    auto found = find(idOf(m_folder, shown));
    if (found && *found && (*found)->shown != shown) return std::nullopt;
    return found;
}

engine::Result<std::string> Directory::rutaOf(const Child& child) const {
    return m_spool->rutaOfRow(child.at);
}

}  // namespace mount
