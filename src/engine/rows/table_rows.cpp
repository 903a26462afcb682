#include "engine/rows/table_rows.h"

namespace engine {

Result<> TableRows::moveNext() {
    constexpr std::size_t rowsAhead = 8;
    ++m_at;
    m_isRead = false;
    if (m_at + rowsAhead < size()) m_table->fetchAhead(rowAt(m_at + rowsAhead));
    return {};
}

Value TableRows::field(Column column) {
    const int place = m_places[column];
    if (place < 0) return {};
    if (!m_isRead) m_table->read(rowAt(m_at), std::span(m_values).first(m_shown));
    m_isRead = true;
    return m_values[place];
}

}  // namespace engine
