#include "scan/timed_transactions.h"

#include <algorithm>
#include <new>
#include <thread>
#include <utility>

#include "scan/scan_request.h"

namespace scan {
namespace {

using namespace std::chrono_literals;
constexpr auto longestTransaction = 250ms;
constexpr auto longestPatience = 60s;
// Between two transactions: whoever waits to write looks every millisecond. A hundredth of the time.
constexpr auto forOthers = 3ms;

// Without memory a row is lost like any other that is refused; the thread that writes must not end.
engine::Result<long long> executed(engine::Database& database, std::string_view statement) {
    try {
        return database.Execute(statement);
    } catch (const std::bad_alloc&) {
        return std::unexpected(engine::Error{engine::error::general, "out of memory"});
    }
}

}  // namespace

TimedTransactions::TimedTransactions(engine::Database& database, std::string newUnit,
                                     std::function<Clock::time_point()> now, int tries)
    : m_database(database), m_newUnit(std::move(newUnit)), m_now(std::move(now)), m_tries(tries) {}

// Another program's import or update takes seconds, and is no reason to lose rows. Each try waits for one;
// after a failure there is only one try, so that a program that hangs does not slow down the walk for ever.
engine::Result<> TimedTransactions::begun() {
    auto begun = m_database.BeginTrans();
    for (int left = m_patience == Clock::duration() ? m_tries - 1 : 0;
         left > 0 && !begun && begun.error().number == engine::error::locked; --left)
        begun = m_database.BeginTrans();
    TRY(begun);
    auto claimed = nameClaimed();
    if (!claimed) m_database.Rollback();
    return claimed;
}

// It was free when the user asked for it; from the first row on, others see that it is not.
engine::Result<> TimedTransactions::nameClaimed() {
    if (m_newUnit.empty()) return {};
    m_summary.nameTaken = TRY(unitExists(m_database, m_newUnit));
    if (!m_summary.nameTaken) return {};
    return std::unexpected(engine::Error{engine::error::fileExists, m_newUnit + ": the name is taken"});
}

bool TimedTransactions::begin(Clock::time_point now) {
    if (m_summary.nameTaken || now < m_retry) return false;
    if (const auto transaction = begun(); !transaction) {
        if (!m_summary.firstError) m_summary.firstError = transaction.error();
        m_patience = std::clamp<Clock::duration>(m_patience * 2, longestTransaction, longestPatience);
        m_retry = m_now() + m_patience;
        return false;
    }
    m_open = true;
    m_due = now + longestTransaction;
    return true;
}

void TimedTransactions::insert(std::string_view statement) {
    const auto now = m_now();
    if (m_open && now >= m_due) {
        commit();
        std::this_thread::sleep_for(forOthers);
    }
    if (!m_open && !begin(now)) {
        ++m_summary.lost;
        return;
    }
    if (const auto inserted = executed(m_database, statement); inserted) {
        ++m_pending;
    } else {
        lose(1, inserted.error());
        commit();  // an engine that had to give up the whole transaction says so here
    }
}

void TimedTransactions::commit() {
    if (!m_open) return;
    m_open = false;
    if (const auto committed = m_database.CommitTrans(); committed) {
        m_summary.written += m_pending;
        if (m_pending > 0) m_newUnit.clear();
        m_patience = {};
    } else {
        m_database.Rollback();
        lose(m_pending, committed.error());
        m_retry = m_now() + longestTransaction;
    }
    m_pending = 0;
}

void TimedTransactions::commitIfDue() {
    if (m_open && m_now() >= m_due) commit();
}

void TimedTransactions::lose(long long rows, const engine::Error& error) {
    m_summary.lost += rows;
    if (!m_summary.firstError) m_summary.firstError = error;
}

}  // namespace scan
