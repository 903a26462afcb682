#include "engine/rows/stored_rows.h"

namespace engine {

namespace {

// How far a row's memory is asked for before its turn, and how much of it.
constexpr std::size_t rowsAhead = 8;
constexpr std::size_t lineSize = 64;
constexpr std::size_t linesOfRow = 3;

std::string namesOf(const std::vector<Column>& fields) {
    std::string names;
    for (const Column field : fields) {
        if (!names.empty()) names += ", ";
        names += info(field).name;
    }
    return names;
}

}  // namespace

void StoredRows::moveNext() {
    ++m_at;
    m_loaded = false;
    // In their order, rows lie all over the store.
    if (m_at + rowsAhead < size()) {
        const char* packed = rowAt(m_at + rowsAhead).packed;
        for (std::size_t line = 0; line < linesOfRow; ++line) __builtin_prefetch(packed + line * lineSize);
    }
}

Value StoredRows::field(Column column) {
    const int place = m_rows->places[column];
    if (place < 0) return {};
    if (!m_loaded) load();
    return m_values[place];
}

void StoredRows::load() {
    m_loaded = true;
    if (rowAt(m_at).packed) {
        RowStore::unpack(rowAt(m_at).packed, std::span(m_values).first(m_rows->fields.size()));
    } else {
        readAgain();
    }
}

// A row that is gone by now reads as nulls.
void StoredRows::readAgain() {
    m_values.fill({});
    auto found = connection->prepare("select " + namesOf(m_rows->fields) + " from datos where rowid = ?");
    if (!found) return;
    found->bind(0, rowAt(m_at).rowid);
    const auto step = found->step();
    if (step == Prepared::Step::Failed) failure = connection->lastError();
    if (step != Prepared::Step::Row) return;
    m_again = RowStore();
    RowStore::unpack(m_again.add(*found, m_rows->fields, 0),
                     std::span(m_values).first(m_rows->fields.size()));
}

}  // namespace engine
