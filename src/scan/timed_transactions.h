#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

#include "engine/database.h"
#include "scan/row_sink.h"

namespace scan {

// Hands insert statements to a catalogue within transactions that last a quarter of a second at most. A row
// that the engine refuses is lost in silence and counted; while no transaction can be had (a full disk, or
// another program that has been writing for longer than `tries` seconds), rows are lost without asking the
// engine for each, so that a scan never hangs.
//
// A new unit must have its name for itself: when another program has taken it by the time of the first row,
// no row is written.
class TimedTransactions {
  public:
    using Clock = std::chrono::steady_clock;

    TimedTransactions(engine::Database& database, std::string newUnit,
                      std::function<Clock::time_point()> now = Clock::now, int tries = 10);
    ~TimedTransactions() { commit(); }
    TimedTransactions(const TimedTransactions&) = delete;
    TimedTransactions& operator=(const TimedTransactions&) = delete;

    void insert(std::string_view statement);
    void commit();       // makes every row so far durable and visible
    void commitIfDue();  // to be called wherever time passes without rows

    [[nodiscard]] const WriteSummary& summary() const { return m_summary; }

  private:
    [[nodiscard]] bool begin(Clock::time_point now);
    [[nodiscard]] engine::Result<> begun();
    [[nodiscard]] engine::Result<> nameClaimed();
    void lose(long long rows, const engine::Error& error);

    engine::Database& m_database;
    std::string m_newUnit;  // empty once rows of it are in the catalogue
    std::function<Clock::time_point()> m_now;
    int m_tries;
    WriteSummary m_summary;
    bool m_open = false;
    long long m_pending = 0;       // rows of the open transaction
    Clock::time_point m_due{};     // when it must be committed
    Clock::time_point m_retry{};   // no new transaction before this
    Clock::duration m_patience{};  // grows with each transaction that could not be had
};

}  // namespace scan
