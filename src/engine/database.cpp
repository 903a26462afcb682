#include "engine/database.h"

#include "engine/dialect/query.h"
#include "engine/guarded.h"
#include "engine/recordset_impl.h"
#include "engine/rows/change.h"
#include "engine/rows/one_pass.h"
#include "engine/rows/path_lookup.h"

namespace engine {

struct Database::Impl {
    std::shared_ptr<Connection> connection;
    std::shared_ptr<UnitList> units;
    StatementReader reader;
    PathLookup paths;
    std::shared_ptr<KnownNames> names;
    Changes changes;

    explicit Impl(std::shared_ptr<Connection> opened)
        : connection(std::move(opened)),
          units(std::make_shared<UnitList>(*connection)),
          changes(*connection, *units) {}
};

Database::Database(std::shared_ptr<Connection> opened) : m_impl(std::make_unique<Impl>(std::move(opened))) {}
Database::Database(Database&&) noexcept = default;
Database& Database::operator=(Database&& other) noexcept {
    if (this != &other) {
        Close();
        m_impl = std::move(other.m_impl);
    }
    return *this;
}
Database::~Database() {
    Close();
}

Result<Database> OpenDatabase(const std::string& nativePath, Use use) {
    return guarded([&]() -> Result<Database> { return Database(TRY(Connection::open(nativePath, use))); });
}

Result<> Database::checkOpen() const {
    if (isOpen()) return {};
    return std::unexpected(Error{error::general, "The database is closed"});
}

Result<std::shared_ptr<const Statement>> Database::read(std::string_view sql) {
    TRY(checkOpen());
    return m_impl->reader.read(sql);
}

Result<long long> Database::Execute(std::string_view sql) {
    return guarded([&]() -> Result<long long> {
        TRY(followReplacement());
        const auto statement = TRY(read(sql));
        if (statement->kind == Statement::Select)
            return std::unexpected(Error{error::general, "A select cannot be executed"});
        return m_impl->changes.run(statement, m_impl->reader.literals());
    });
}

Result<std::unique_ptr<Recordset::Impl>> Database::opened(std::string_view select) {
    const auto statement = TRY(read(select));
    if (statement->kind != Statement::Select) return std::unexpected(syntaxError(select));
    Select asked(m_impl->connection, m_impl->units, Query(statement, m_impl->reader.literals()),
                 m_impl->names);
    auto known = TRY(m_impl->paths.rows(asked));
    auto opened = std::make_unique<Recordset::Impl>(std::move(asked), std::move(known));
    TRY(opened->begin());
    return opened;
}

Result<Recordset> Database::OpenRecordset(std::string_view sql) {
    return guarded([&]() -> Result<Recordset> { return Recordset(TRY(opened(sql))); });
}

Result<std::vector<Result<Recordset>>> Database::OpenRecordsets(std::span<const std::string_view> selects) {
    return guarded([&]() -> Result<std::vector<Result<Recordset>>> {
        std::vector<Recordset::Impl*> unread;
        std::vector<const Select*> left;
        std::vector<Result<Recordset>> recordsets;
        for (const std::string_view sql : selects) {
            auto rows = opened(sql);
            if (!rows) {
                recordsets.emplace_back(std::unexpected(rows.error()));
                continue;
            }
            if (!(*rows)->rows) {
                unread.push_back(rows->get());
                left.push_back(&(*rows)->select);
            }
            recordsets.emplace_back(std::move(*rows));
        }
        if (left.size() < 2) return recordsets;
        // After a failure each of them reads for itself, and tells.
        if (auto rows = rowsTogether(*m_impl->connection, left))
            for (std::size_t i = 0; i < unread.size(); ++i) unread[i]->rows = std::move((*rows)[i]);
        return recordsets;
    });
}

Result<std::vector<long long>> Database::RecordCounts(std::span<const std::string_view> selects) {
    return guarded([&]() -> Result<std::vector<long long>> {
        TRY(checkOpen());
        std::vector<Query> queries;
        for (const std::string_view sql : selects) {
            const auto statement = TRY(read(sql));
            if (statement->kind != Statement::Select || !statement->groupBy.empty())
                return std::unexpected(syntaxError(sql));
            queries.emplace_back(statement, m_impl->reader.literals());
        }
        return countTogether(*m_impl->connection, *m_impl->units, queries);
    });
}

// What was written is in the old file; what is still to be written belongs to the new one.
Result<> Database::followReplacement() {
    TRY(checkOpen());
    const Connection& connection = *m_impl->connection;
    if (connection.isInTransaction() || !connection.isReplaced()) return {};
    if (connection.hasWritten())
        return std::unexpected(
            Error{error::replaced, connection.path() + ": it is gone, or another program has replaced it"});
    m_impl = TRY(OpenDatabase(connection.path(), connection.use())).m_impl;
    return {};
}

Result<> Database::BeginTrans() {
    return guarded([&]() -> Result<> {
        TRY(followReplacement());
        return m_impl->connection->begin();
    });
}

Result<> Database::CommitTrans() {
    return guarded([&]() -> Result<> {
        TRY(checkOpen());
        return m_impl->connection->commit();
    });
}

void Database::Rollback() {
    if (!isOpen()) return;
    m_impl->connection->noteWrite();
    m_impl->connection->rollBack();
}

void Database::KeepChangesInMemory() {
    if (isOpen()) (void)m_impl->connection->run("pragma cache_spill = off");
}

void Database::SearchWith(SearchMemory& memory) {
    if (!isOpen()) return;
    m_impl->names = memory.m_names;
    m_impl->names->beginSearch();
}

bool Database::FillMemory() {
    constexpr long long rowsInAShare = 20'000;
    try {
        return isOpen() && m_impl->names && m_impl->names->readOn(*m_impl->connection, rowsInAShare);
    } catch (const std::bad_alloc&) {  // no part of it may pass for the whole
        m_impl->names->drop();
        return false;
    }
}

Result<long long> Database::Version() {
    return guarded([&]() -> Result<long long> {
        TRY(checkOpen());
        return m_impl->connection->version();
    });
}

void Database::Close() {
    if (isOpen()) m_impl->connection->close();
}

bool Database::isOpen() const {
    return m_impl && m_impl->connection->isOpen();
}

SearchMemory::SearchMemory() : m_names(std::make_shared<KnownNames>()) {}
SearchMemory::~SearchMemory() = default;
void SearchMemory::clear() {
    m_names->drop();
}

Transaction::Transaction(Database& database) : m_database(database) {}

Transaction::~Transaction() {
    if (m_open) m_database.Rollback();
}

Result<> Transaction::begin() {
    auto begun = m_database.BeginTrans();
    m_open = begun.has_value();
    return begun;
}

Result<> Transaction::commit() {
    auto committed = m_database.CommitTrans();
    if (committed) m_open = false;
    return committed;
}

}  // namespace engine
