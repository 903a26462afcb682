#include "scan/unit_changes.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

#include "core/inserts.h"
#include "core/literals.h"
#include "engine/text/folding.h"

namespace scan {
namespace {

constexpr double twoSeconds = 2.0 / 86'400 + 1e-9;

bool sameFacts(const UnitRows::Row& one, const UnitRows::Row& other) {
    return one.largo == other.largo && std::abs(one.fecha - other.fecha) <= twoSeconds;
}

// The rows of one path and kind stand in a chain; two rows share them only when the disk's names differ in
// nothing but an apostrophe and an acute accent.
class Chains {
  public:
    static constexpr std::uint32_t end = 0xFFFF'FFFF;

    explicit Chains(const UnitRows& rows) : m_rows(rows), m_next(rows.rows().size(), end) {
        for (auto& heads : m_heads) heads.reserve(rows.rows().size());
        for (std::size_t i = rows.rows().size(); i-- > 0;) {
            const UnitRows::Row& row = rows.rows()[i];
            const auto [head, isNew] =
                m_heads[row.isFile].try_emplace(rows.path(row), static_cast<std::uint32_t>(i));
            if (isNew) continue;
            m_next[i] = head->second;
            head->second = static_cast<std::uint32_t>(i);
        }
    }

    // Takes the row that answers to `wanted` best out of its chain: of several the one with its facts.
    std::uint32_t take(std::string_view path, const UnitRows::Row& wanted) {
        const auto head = m_heads[wanted.isFile].find(path);
        if (head == m_heads[wanted.isFile].end()) return end;
        std::uint32_t* best = &head->second;
        std::uint32_t* link = best;
        for (int looked = 0; *link != end && looked < mostLooked; ++looked, link = &m_next[*link]) {
            if (!sameFacts(m_rows.rows()[*link], wanted)) continue;
            best = link;
            break;
        }
        const std::uint32_t taken = *best;
        if (taken != end) *best = m_next[taken];
        return taken;
    }

  private:
    static constexpr int mostLooked = 16;  // a damaged catalogue may hold one path a million times
    const UnitRows& m_rows;
    std::unordered_map<std::string_view, std::uint32_t> m_heads[2];
    std::vector<std::uint32_t> m_next;
};

}  // namespace

UnitChanges::UnitChanges(UnitRows stored, FoundUnit found, std::int64_t otherRows)
    : m_stored(std::move(stored)),
      m_found(std::move(found)),
      m_otherRows(otherRows),
      m_taken(m_stored.rows().size()) {
    match();
    order();
    passNotesOn();
}

void UnitChanges::match() {
    Chains chains(m_stored);
    m_matches.reserve(m_found.rows.rows().size());
    for (const UnitRows::Row& row : m_found.rows.rows()) {
        m_matches.push_back(chains.take(m_found.rows.path(row), row));
        if (m_matches.back() != none) m_taken[m_matches.back()] = true;
    }
}

// What is kept of a folder follows the folder's own row.
void UnitChanges::order() {
    struct Kept {
        std::size_t behind;
        std::uint32_t stored;
    };
    std::vector<Kept> kept;
    std::vector<Change> removed;
    for (std::uint32_t i = 0; i < m_stored.rows().size(); ++i) {
        if (m_taken[i]) continue;
        if (const auto behind = keeper(m_stored.rows()[i]))
            kept.push_back({*behind, i});
        else
            removed.push_back({Kind::Removed, i});
    }
    std::ranges::stable_sort(kept, {}, &Kept::behind);

    const std::size_t all = m_found.rows.rows().size();
    m_order.reserve(all + kept.size());
    auto next = kept.begin();
    for (std::size_t i = 0; i <= all; ++i) {
        for (; next != kept.end() && next->behind == i; ++next) m_order.push_back({none, next->stored});
        if (i == all) break;
        const Place place{static_cast<std::uint32_t>(i), m_matches[i]};
        if (place.stored == none || isChanged(place))
            m_changes.push_back({place.stored == none ? Kind::Added : Kind::Changed,
                                 static_cast<std::uint32_t>(m_order.size())});
        m_order.push_back(place);
    }
    m_changes.insert(m_changes.end(), removed.begin(), removed.end());
}

// Where a path in one spelling went and one in another came; of several nobody can tell which it is.
void UnitChanges::passNotesOn() {
    struct Note {
        Change removed;
        std::uint32_t heir = none;
        bool isClear = true;
    };
    std::unordered_map<std::string, Note> notes[2];
    for (const Change& change : m_changes) {
        if (change.kind != Kind::Removed) continue;
        const UnitRows::Row& row = m_stored.rows()[change.at];
        if (!row.hasNote) continue;
        const auto [note, isNew] =
            notes[row.isFile].try_emplace(engine::folded(m_stored.path(row)), Note{change});
        if (isNew) continue;
        note->second.isClear = false;
        m_lostNotes.push_back(change);
    }
    if (notes[0].empty() && notes[1].empty()) return;
    for (const Change& change : m_changes) {
        if (change.kind != Kind::Added) continue;
        const UnitRows::Row& row = m_found.rows.rows()[m_order[change.at].found];
        const auto note = notes[row.isFile].find(engine::folded(m_found.rows.path(row)));
        if (note == notes[row.isFile].end()) continue;
        if (std::exchange(note->second.heir, change.at) != none) note->second.isClear = false;
    }
    for (const auto& ofKind : notes)
        for (const auto& [path, note] : ofKind)
            if (note.isClear && note.heir != none)
                m_heirs.emplace(note.heir, note.removed.at);
            else
                m_lostNotes.push_back(note.removed);
    std::ranges::sort(m_lostNotes, {}, &Change::at);
}

// Of the folders that could not be read, the innermost that holds the row.
std::optional<std::size_t> UnitChanges::keeper(const UnitRows::Row& row) const {
    if (m_found.unread.empty()) return std::nullopt;
    for (std::string folder(m_stored.folder(row));;) {
        const auto found = m_found.unread.find(folder);
        if (found != m_found.unread.end()) return found->second;
        if (folder.empty()) return std::nullopt;
        const std::size_t backslash = folder.rfind('\\');
        folder.resize(backslash == std::string::npos ? 0 : backslash);
    }
}

bool UnitChanges::isChanged(const Place& place) const {
    const UnitRows::Row& found = m_found.rows.rows()[place.found];
    return found.factsKnown && !sameFacts(m_stored.rows()[place.stored], found);
}

bool UnitChanges::areNone() const {
    return m_changes.empty() && m_stored.base() == m_found.rows.base();
}

std::string UnitChanges::path(const Change& change) const {
    if (change.kind == Kind::Removed) return std::string(m_stored.path(m_stored.rows()[change.at]));
    return std::string(m_found.rows.path(m_found.rows.rows()[m_order[change.at].found]));
}

core::CatalogRow UnitChanges::row(const Change& change) const {
    if (change.kind == Kind::Removed) return m_stored.catalogRow(m_stored.rows()[change.at], m_stored.base());
    return newRow(change.at);
}

core::CatalogRow UnitChanges::newRow(std::size_t at) const {
    const Place& place = m_order[at];
    const bool isKept = place.found == none;
    const UnitRows::Row& source = isKept ? m_stored.rows()[place.stored] : m_found.rows.rows()[place.found];
    core::CatalogRow row = (isKept ? m_stored : m_found.rows).catalogRow(source, m_found.rows.base());
    row.numero = m_otherRows + static_cast<std::int64_t>(at) + 1;
    if (const auto heir = m_heirs.find(static_cast<std::uint32_t>(at)); heir != m_heirs.end())
        row.comentario = m_stored.note(m_stored.rows()[heir->second]);
    if (isKept || place.stored == none) return row;

    const UnitRows::Row& before = m_stored.rows()[place.stored];
    if (before.hasNote) row.comentario = m_stored.note(before);
    if (!source.factsKnown) {
        row.fecha = before.fecha;
        if (before.isFile) row.largo = before.largo;
    }
    return row;
}

engine::Result<bool> UnitChanges::write(engine::Database& database,
                                        const std::function<bool()>& stopped) const {
    constexpr std::size_t askEvery = 256;
    (void)TRY(database.Execute("delete * from datos where disco=(" + core::literal(m_stored.disco()) + ")"));
    for (std::size_t at = 0; at < m_order.size(); ++at) {
        if (at % askEvery == 0 && stopped()) return false;
        (void)TRY(database.Execute(core::insertWhole(newRow(at))));
    }
    return true;
}

}  // namespace scan
