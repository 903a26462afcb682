#include "engine/recordset.h"

#include "engine/rows/direct_rows.h"
#include "engine/rows/recordset_impl.h"
#include "engine/rows/sorted_rows.h"

namespace engine {

Recordset::Recordset(std::unique_ptr<Impl> impl) : m_impl(std::move(impl)) {}
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

bool Recordset::Eof() const {
    return !m_impl->connection->isOpen() || m_impl->atEnd();
}

void Recordset::MoveNext() {
    if (!Eof()) m_impl->moveNext();
}

long long Recordset::RecordCount() {
    return m_impl->connection->isOpen() ? m_impl->count() : 0;
}

Value Recordset::Field(std::string_view column) const {
    const auto known = columnNamed(column);
    if (!known || Eof()) return {};
    return m_impl->field(*known);
}

const Error* Recordset::error() const {
    return m_impl->failure ? &*m_impl->failure : nullptr;
}

namespace {

// An order by unit says nothing when all rows are of one.
bool isOrderNeeded(const Scan& scan) {
    if (scan.statement.orderBy.empty() || !scan.statement.groupBy.empty()) return false;
    for (const Ordering& ordering : scan.statement.orderBy) {
        if (ordering.column != Column::disco) return true;
    }
    const auto& where = scan.statement.where;
    int units = 0;
    for (const Census::Unit& unit : scan.census.units()) {
        KnownTexts known;
        known.set(Column::disco, unit.name);
        if (!where || mayHold(*where, known, scan.literals)) ++units;
    }
    return units > 1;
}

}  // namespace

Result<std::unique_ptr<Recordset::Impl>> openRows(OwnedScan scan) {
    return isOrderNeeded(scan.scan()) ? SortedRows::open(std::move(scan)) : DirectRows::open(std::move(scan));
}

}  // namespace engine
