#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "scan/row_sink.h"
#include "scan/timed_transactions.h"

namespace scan {

// Takes the insert statements of a scan and hands them to the catalogue on a thread of its own, in the order
// in which they came, so that the disk that is read and the one that is written need not wait for each other.
// Rows reach the file within half a second, also while the walk hangs on a slow disc.
//
// `newUnit` is the name of the unit that the rows are to make; TimedTransactions tells what it is for. Where
// rows must wait because another program changes the catalogue for long, `whileWaiting` is called 20 times a
// second; it may call commit(), but adds no rows.
//
// Between a call of insert() and the next commit() the thread alone may use `database`.
class RowWriter : public RowSink {
  public:
    RowWriter(engine::Database& database, const std::string& newUnit,
              std::function<void()> whileWaiting = {});
    ~RowWriter() override;
    RowWriter(const RowWriter&) = delete;
    RowWriter& operator=(const RowWriter&) = delete;

    void insert(std::string_view statement);

    void add(const core::CatalogRow& row) override;
    void commit() override;
    [[nodiscard]] bool takesMore() const override { return !m_refuses; }
    [[nodiscard]] WriteSummary summary() const override { return m_summary; }  // as of the last commit

  private:
    // Statements, one behind the other in one text.
    struct Batch {
        std::string text;
        std::vector<std::size_t> ends;

        void add(std::string_view statement);
        void writeTo(TimedTransactions& transactions) const;
        void clear();
    };
    enum class Wish { None, Commit, End };

    template <class HasCome>
    void waitFor(std::condition_variable& event, std::unique_lock<std::mutex>& lock, HasCome hasCome);
    void work(engine::Database& database, const std::string& newUnit);
    [[nodiscard]] Wish takeBatch(Batch& batch);

    std::function<void()> m_whileWaiting;
    std::atomic<bool> m_refuses = false;
    std::mutex m_mutex;  // guards all that follows, but for the thread itself
    std::condition_variable m_wake;
    std::condition_variable m_taken;
    std::condition_variable m_committed;
    Batch m_waiting;
    Wish m_wish = Wish::None;
    WriteSummary m_summary;
    std::thread m_thread;
    std::optional<TimedTransactions> m_alone;  // what writes where there is no thread
};

}  // namespace scan
