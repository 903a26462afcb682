#include "platform/jet/recordset.h"

#include "platform/jet/folding.h"
#include "platform/jet/recordset_impl.h"
#include "platform/jet/sql_writer.h"

namespace jet {

Recordset::Recordset(std::unique_ptr<Impl> impl) : m_impl(std::move(impl)) {}
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

Result<> Recordset::Impl::open() {
    SqlWriter writer(query->lifted.literals, *units);
    writer.write("select ");
    writer.writeFields(query->statement->fields);
    writer.write(" from datos");
    writer.writeWhere(*query->statement);
    writer.writeOrder(*query->statement);
    auto prepared = connection->prepare(writer.sql());
    if (!prepared) return std::unexpected(prepared.error());
    rows = std::move(*prepared);
    rows.bind(writer.values());
    step();
    if (failure) return std::unexpected(*failure);
    return {};
}

void Recordset::Impl::step() {
    const auto stepped = rows.step();
    if (stepped == Prepared::Step::Row) return;
    atEnd = true;
    if (stepped == Prepared::Step::Failed) failure = connection->lastError();
    rows.release();
}

void Recordset::Impl::countRows() {
    SqlWriter writer(query->lifted.literals, *units);
    const bool grouped = !query->statement->groupBy.empty();
    writer.write(grouped ? "select count(*) from (select 1 from datos" : "select count(*) from datos");
    writer.writeWhere(*query->statement);
    if (grouped) {
        writer.write(" group by ");
        writer.writeFields(query->statement->groupBy);
        writer.write(")");
    }
    count = 0;
    auto prepared = connection->prepare(writer.sql());
    if (!prepared) {
        failure = prepared.error();
        return;
    }
    prepared->bind(writer.values());
    if (prepared->step() == Prepared::Step::Row) {
        count = prepared->integer(0);
    } else {
        failure = connection->lastError();
    }
}

bool Recordset::Eof() const { return m_impl->atEnd || !m_impl->connection->isOpen(); }

void Recordset::MoveNext() {
    if (!Eof()) m_impl->step();
}

long long Recordset::RecordCount() {
    if (!m_impl->count && m_impl->connection->isOpen()) m_impl->countRows();
    return m_impl->count.value_or(0);
}

Value Recordset::Field(std::string_view column) const {
    if (Eof()) return {};
    const auto wanted = columnNamed(column);
    const auto& fields = m_impl->query->statement->fields;
    for (std::size_t i = 0; wanted && i < fields.size(); ++i) {
        if (fields[i] != *wanted) continue;
        const int index = static_cast<int>(i);
        if (m_impl->rows.isNull(index)) return {};
        if (info(*wanted).type == Type::Text) return Value(m_impl->rows.text(index));
        return {{}, m_impl->rows.number(index)};
    }
    return {};
}

const Error* Recordset::error() const { return m_impl->failure ? &*m_impl->failure : nullptr; }

}  // namespace jet
