#include "engine/rows/sorted_rows.h"

namespace engine {

Result<std::unique_ptr<Recordset::Impl>> SortedRows::open(OwnedScan scan) {
    std::unique_ptr<SortedRows> opened(new SortedRows(std::move(scan)));
    // A pattern is tried once on every row, now, for the count and the rows together; the count may be known
    // from a pattern tried before.
    const Scan scanned = opened->m_scan.scan();
    if (triesPattern(scanned.statement)) {
        opened->m_count = scanned.census.notedCount(*scanned.statement.where, scanned.literals);
        if (!opened->m_count) opened->collect();
    }
    if (opened->failure) return std::unexpected(*opened->failure);
    return opened;
}

void SortedRows::collect() {
    auto collected = collectRows(m_scan.scan());
    if (!collected) failure = collected.error();
    auto rows = std::make_shared<RowSet>(collected ? std::move(*collected) : CollectedRows(),
                                         m_scan.query->statement().fields);
    m_rows = std::make_unique<StoredRows>(connection, std::move(rows));
}

bool SortedRows::atEnd() {
    if (m_rows) return m_rows->atEnd();
    if (m_count) return *m_count == 0;
    if (!m_empty) {
        const auto found = hasRows(m_scan.scan());
        if (!found) failure = found.error();
        m_empty = !found.value_or(false);
    }
    return *m_empty;
}

void SortedRows::moveNext() {
    if (!m_rows) collect();
    if (!m_rows->atEnd()) m_rows->moveNext();
}

Value SortedRows::field(Column column) {
    if (!m_rows) collect();
    return m_rows->atEnd() ? Value() : m_rows->field(column);
}

long long SortedRows::count() {
    if (m_rows) return m_rows->count();
    if (!m_count) {
        const auto counted = countRows(m_scan.scan());
        if (!counted) failure = counted.error();
        m_count = counted.value_or(0);
    }
    return *m_count;
}

}  // namespace engine
