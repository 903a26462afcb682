#include "engine/rows/direct_rows.h"

namespace engine {

DirectRows::DirectRows(OwnedScan scan)
    : Impl(scan.connection),
      m_scan(std::move(scan)),
      m_places(m_scan.query->statement().fields),
      m_version(m_scan.census->version()) {}

Result<std::unique_ptr<Recordset::Impl>> DirectRows::open(OwnedScan scan) {
    std::unique_ptr<DirectRows> opened(new DirectRows(std::move(scan)));
    auto rows = scanRows(opened->m_scan.scan());
    if (!rows) return std::unexpected(rows.error());
    opened->m_rows = std::move(*rows);
    opened->step();
    if (opened->failure) return std::unexpected(*opened->failure);
    return opened;
}

void DirectRows::step() {
    const auto stepped = m_rows.step();
    if (stepped == Prepared::Step::Row) {
        ++m_found;
        return;
    }
    m_atEnd = true;
    if (stepped == Prepared::Step::Failed) failure = connection->lastError();
    m_rows.release();  // and with it the lock on the file
    noteCount();
}

// What was found need not be counted again.
void DirectRows::noteCount() const {
    const Statement& statement = m_scan.query->statement();
    if (failure || !triesPattern(statement) || !statement.groupBy.empty()) return;
    m_scan.census->noteCount(*statement.where, m_scan.query->literals(), m_found, m_version);
}

bool DirectRows::atEnd() {
    return m_rest ? m_rest->atEnd() : m_atEnd;
}

void DirectRows::moveNext() {
    if (m_rest) return m_rest->moveNext();
    step();
}

Value DirectRows::field(Column column) {
    if (m_rest) return m_rest->field(column);
    const int place = m_places[column];
    if (place < 0 || m_rows.isNull(place + 1)) return {};
    if (info(column).type == Type::Text) return Value(m_rows.text(place + 1));
    return {{}, m_rows.number(place + 1)};
}

long long DirectRows::count() {
    if (m_count) return *m_count;
    if (m_atEnd) {
        m_count = m_found;
    } else if (triesPattern(m_scan.query->statement())) {
        m_count = countPatternRows();
    } else {
        const auto counted = countRows(m_scan.scan());
        if (!counted) failure = counted.error();
        m_count = counted.value_or(0);
    }
    return *m_count;
}

// The rest is fetched, so that no pattern is tried twice on a row.
long long DirectRows::countPatternRows() {
    CollectedRows rest;
    const auto& fields = m_scan.query->statement().fields;
    while (!m_atEnd) {
        rest.add(m_rows, fields, {});
        step();
    }
    m_rest = std::make_unique<StoredRows>(connection, std::make_shared<RowSet>(std::move(rest), fields));
    return m_found;
}

}  // namespace engine
