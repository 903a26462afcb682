#include "engine/unit_copy.h"

#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

#include "engine/file/connection.h"
#include "engine/file/interrupted_change.h"
#include "engine/file/page_copy.h"
#include "engine/file/replacement.h"
#include "engine/format.h"
#include "engine/guarded.h"
#include "engine/maintenance.h"
#include "engine/rows/unit_list.h"

namespace engine {

namespace {

constexpr std::size_t rowsBetweenLooks = 4096;  // some 20 ms
constexpr int triesUnlocking = 3;

std::string columnNames() {
    std::string names;
    for (const ColumnInfo& column : columns) names.append(names.empty() ? "" : ", ").append(column.name);
    return names;
}

class UnitCopy {
  public:
    UnitCopy(Connection& from, Connection& to, std::string_view disco, const std::function<bool()>& goOn)
        : m_from(from), m_to(to), m_disco(disco), m_goOn(goOn) {}

    // False when it was stopped. A catalogue that changes meanwhile is read anew; one that other programs
    // write to all the time is kept locked at last.
    [[nodiscard]] Result<bool> run() {
        for (int left = triesUnlocking;; --left) {
            const auto end = copyOnce(left > 0);
            if (!end) return std::unexpected(end.error());
            if (*end != End::Changed) return *end == End::Complete;
        }
    }

  private:
    enum class End { Complete, Stopped, Changed };

    Result<End> copyOnce(bool unlocking) {
        if (auto begun = m_to.run("begin; delete from datos"); !begun) return std::unexpected(begun.error());
        const auto end = copyRows(unlocking);
        const bool isWhole = end && *end == End::Complete;
        if (auto left = m_from.run("rollback"); !left && end) return std::unexpected(left.error());
        auto closed = m_to.run(isWhole ? "commit" : "rollback");
        if (!closed) return std::unexpected(closed.error());
        return end;
    }

    Result<End> copyRows(bool unlocking) {
        if (auto begun = lockSource(); !begun) return std::unexpected(begun.error());
        const unsigned version = fileVersion(m_from.handle());
        const auto rowids = rowidsOfUnit();
        if (!rowids) return std::unexpected(rowids.error());
        auto row = m_from.prepare("select " + columnNames() + " from datos where rowid = ?");
        if (!row) return std::unexpected(row.error());
        auto insert =
            m_to.prepare("insert into datos (" + columnNames() + ") values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
        if (!insert) return std::unexpected(insert.error());
        for (std::size_t i = 0; i < rowids->size(); ++i) {
            if (auto copied = copyRow(*row, (*rowids)[i], *insert); !copied)
                return std::unexpected(copied.error());
            if (!unlocking || (i + 1) % rowsBetweenLooks != 0) continue;
            row->reset();
            // What runs meanwhile may want to write to the catalogue.
            if (auto left = m_from.run("rollback"); !left) return std::unexpected(left.error());
            const bool goesOn = m_goOn();
            if (auto begun = lockSource(); !begun) return std::unexpected(begun.error());
            if (!goesOn) return End::Stopped;
            if (fileVersion(m_from.handle()) != version) return End::Changed;
        }
        return End::Complete;
    }

    Result<> lockSource() { return m_from.run("begin; select 1 from datos limit 1"); }

    // All spellings of the unit's name, found through the index; and the rows in the table's own order, which
    // decides where nothing else does.
    Result<std::vector<std::int64_t>> rowidsOfUnit() {
        auto found = m_from.prepare("select rowid from datos where disco in (select disco from (" +
                                    std::string(UnitList::sql) + ") where disco = ? collate engine_folded)");
        if (!found) return std::unexpected(found.error());
        found->bind(0, m_disco);
        std::vector<std::int64_t> rowids;
        auto step = found->step();
        for (; step == Prepared::Step::Row; step = found->step()) rowids.push_back(found->integer(0));
        if (step == Prepared::Step::Failed) return std::unexpected(m_from.lastError());
        std::ranges::sort(rowids);
        return rowids;
    }

    Result<> copyRow(Prepared& row, std::int64_t rowid, Prepared& insert) {
        row.reset();
        row.bind(0, rowid);
        if (const auto step = row.step(); step != Prepared::Step::Row) {
            if (step == Prepared::Step::Failed) return std::unexpected(m_from.lastError());
            return std::unexpected(
                Error{error::corrupt, "The catalogue's index leads to a row that is not there"});
        }
        insert.reset();
        for (int column = 0; column < static_cast<int>(columns.size()); ++column)
            insert.bindColumn(column, row, column);
        if (insert.step() == Prepared::Step::Failed) return std::unexpected(m_to.lastError());
        return {};
    }

    Connection& m_from;
    Connection& m_to;
    std::string_view m_disco;
    const std::function<bool()>& m_goOn;
};

// An empty catalogue in the place of whatever has that name, but for what nobody may replace.
Result<std::shared_ptr<Connection>> emptied(const std::string& source, const std::string& scratch) {
    if (const auto allowed = platform::checkReplaceable(source, scratch); !allowed)
        return std::unexpected(errorOf(allowed.error()));
    ::unlink(scratch.c_str());
    forgetInterruptedChange(scratch);
    if (auto created = CreateDatabase(scratch); !created) return std::unexpected(created.error());
    return Connection::open(scratch, Use::Scratch);
}

}  // namespace

Result<std::optional<Database>> CopyUnit(const std::string& source, const std::string& scratch,
                                         std::string_view disco, const std::function<bool()>& goOn) {
    return guarded([&]() -> Result<std::optional<Database>> {
        auto from = Connection::open(source, Use::ReadOnly);
        if (!from) return std::unexpected(from.error());
        auto to = emptied(source, scratch);
        if (!to) return std::unexpected(to.error());
        const auto copied = UnitCopy(**from, **to, disco, goOn).run();
        if (!copied) {
            ::unlink(scratch.c_str());
            return std::unexpected(copied.error());
        }
        if (!*copied) return std::nullopt;
        return Database(std::move(*to));
    });
}

}  // namespace engine
