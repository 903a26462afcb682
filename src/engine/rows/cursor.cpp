#include "engine/rows/cursor.h"

namespace engine {

Result<std::unique_ptr<Rows>> Cursor::open(std::shared_ptr<Connection> connection, Prepared rows,
                                           const std::vector<Column>& fields) {
    std::unique_ptr<Cursor> opened(new Cursor(std::move(connection), std::move(rows), fields));
    TRY(opened->moveNext());
    return opened;
}

Result<> Cursor::moveNext() {
    const auto there = m_rows.next();
    if (there && *there) {
        ++m_found;
        return {};
    }
    m_atEnd = true;
    m_rows.release();  // and with it the lock on the file
    if (!there) return std::unexpected(there.error());
    return {};
}

Value Cursor::field(Column column) {
    const int place = m_places[column];
    if (place < 0 || m_rows.isNull(place)) return {};
    if (info(column).type == Type::Text) return Value(m_rows.text(place));
    return {{}, m_rows.number(place)};
}

std::optional<long long> Cursor::count() const {
    return m_atEnd ? std::optional(m_found) : std::nullopt;
}

}  // namespace engine
