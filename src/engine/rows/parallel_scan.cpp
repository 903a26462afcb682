#include "engine/rows/parallel_scan.h"

#include <sqlite3.h>

#include <algorithm>
#include <atomic>
#include <thread>

#include "engine/file/read_transaction.h"

namespace engine {

namespace {

constexpr std::int64_t fewestRows = 100'000;
constexpr std::int64_t rowsPerPart = 50'000;
constexpr unsigned mostThreads = 4;

// The parts of the range, handed out to whoever is free.
class Parts {
  public:
    Parts(std::int64_t firstRow, std::int64_t lastRow) : m_next(firstRow), m_last(lastRow) {}

    struct Part {
        std::int64_t first;
        std::int64_t last;
    };
    std::optional<Part> take() {
        const std::int64_t first = m_next.fetch_add(rowsPerPart);
        if (first > m_last) return std::nullopt;
        return Part{first, std::min(first + rowsPerPart - 1, m_last)};
    }

  private:
    std::atomic<std::int64_t> m_next;
    std::int64_t m_last;
};

// One thread's share. A part that could not be read is left over for the connection that holds the file.
struct Share {
    CollectedRows rows;
    std::vector<Parts::Part> leftOver;
};

bool collectPart(const Scan& scan, const RangeStatement& statement, Prepared& prepared, Parts::Part part,
                 CollectedRows& rows) {
    prepared.reset();
    prepared.bind(statement.values);
    prepared.bind(0, part.first);
    prepared.bind(1, part.last);
    const std::size_t before = rows.rows().size();
    if (collectFrom(scan.statement, prepared, rows)) return true;
    rows.dropBehind(before);
    return false;
}

void workAlone(const Scan& scan, const RangeStatement& statement, const std::string& path, Parts& parts,
               Share& share) {
    auto database = openSqlite(path, SQLITE_OPEN_READONLY);
    if (!database) return;
    sqlite3_busy_timeout(database->get(), 0);
    StatementPool pool(database->get());
    auto prepared = pool.lend(statement.sql);
    if (!prepared) return;
    while (const auto part = parts.take()) {
        if (collectPart(scan, statement, *prepared, *part, share.rows)) continue;
        share.leftOver.push_back(*part);
        break;
    }
    share.rows.sort();
}

Result<CollectedRows> workTogether(const Scan& scan, const RangeStatement& statement, Parts& parts,
                                   unsigned helpers) {
    const std::string path = sqlite3_db_filename(scan.connection.handle(), "main");
    auto prepared = scan.connection.prepare(statement.sql);
    if (!prepared) return std::unexpected(prepared.error());
    std::vector<Share> shares(helpers);
    Share own;
    bool failed = false;
    {
        std::vector<std::jthread> threads;
        for (Share& share : shares) {
            threads.emplace_back([&] { workAlone(scan, statement, path, parts, share); });
        }
        while (const auto part = parts.take()) {
            failed = failed || !collectPart(scan, statement, *prepared, *part, own.rows);
        }
    }
    for (Share& share : shares) {
        for (const Parts::Part part : share.leftOver) {
            failed = failed || !collectPart(scan, statement, *prepared, part, own.rows);
        }
    }
    if (failed) return std::unexpected(scan.connection.lastError());
    own.rows.sort();
    for (Share& share : shares) own.rows.merge(std::move(share.rows));
    return std::move(own.rows);
}

}  // namespace

std::optional<Result<CollectedRows>> collectInParallel(const Scan& scan, const RangeStatement& statement,
                                                       std::int64_t firstRow, std::int64_t lastRow) {
    const unsigned threads = std::min(std::thread::hardware_concurrency(), mostThreads);
    sqlite3* database = scan.connection.handle();
    if (threads < 2 || lastRow - firstRow < fewestRows || scan.connection.use() == Use::Scratch ||
        sqlite3_get_autocommit(database) == 0) {
        return std::nullopt;
    }
    const ReadTransaction held(scan.connection);  // as it is, while others read it too
    if (!held.begun()) return std::nullopt;
    Parts parts(firstRow, lastRow);
    return workTogether(scan, statement, parts, threads - 1);
}

}  // namespace engine
