#include "scan/row_writer.h"

#include <system_error>
#include <utility>

#include "core/inserts.h"

namespace scan {
namespace {

using namespace std::chrono_literals;
constexpr std::size_t worthWakingUp = 500;               // statements
constexpr std::size_t mostWaiting = 20 * worthWakingUp;  // so many come in while a disk takes a transaction
constexpr auto longestRest = 100ms;
constexpr auto betweenSigns = 50ms;

}  // namespace

void RowWriter::Batch::add(std::string_view statement) {
    text += statement;
    ends.push_back(text.size());
}

void RowWriter::Batch::writeTo(TimedTransactions& transactions) const {
    const std::string_view all = text;
    std::size_t begin = 0;
    for (const std::size_t end : ends) {
        transactions.insert(all.substr(begin, end - begin));
        begin = end;
    }
}

void RowWriter::Batch::clear() {
    text.clear();
    ends.clear();
}

RowWriter::RowWriter(engine::Database& database, const std::string& newUnit,
                     std::function<void()> whileWaiting)
    : m_whileWaiting(std::move(whileWaiting)) {
    try {
        m_thread = std::thread([this, &database, newUnit] { work(database, newUnit); });
    } catch (const std::system_error&) {  // no thread is to be had
        m_alone.emplace(database, newUnit);
    }
}

RowWriter::~RowWriter() {
    if (m_alone) return;
    {
        const std::scoped_lock lock(m_mutex);
        m_wish = Wish::End;
    }
    m_wake.notify_one();
    m_thread.join();
}

template <class HasCome>
void RowWriter::waitFor(std::condition_variable& event, std::unique_lock<std::mutex>& lock, HasCome hasCome) {
    while (!event.wait_for(lock, betweenSigns, hasCome)) {
        if (!m_whileWaiting) continue;
        lock.unlock();
        m_whileWaiting();
        lock.lock();
    }
}

void RowWriter::insert(std::string_view statement) {
    if (m_alone) return m_alone->insert(statement);
    std::unique_lock lock(m_mutex);
    waitFor(m_taken, lock, [this] { return m_waiting.ends.size() < mostWaiting; });
    m_waiting.add(statement);
    if (m_waiting.ends.size() == worthWakingUp) m_wake.notify_one();
}

void RowWriter::add(const core::CatalogRow& row) {
    insert(row.archivo ? core::insertFile(row) : core::insertFolder(row));
}

void RowWriter::commit() {
    if (m_alone) {
        m_alone->commit();
        m_summary = m_alone->summary();
        return;
    }
    std::unique_lock lock(m_mutex);
    m_wish = Wish::Commit;
    m_wake.notify_one();
    waitFor(m_committed, lock, [this] { return m_wish == Wish::None; });
}

void RowWriter::work(engine::Database& database, const std::string& newUnit) {
    TimedTransactions transactions(database, newUnit);
    Batch batch;
    for (;;) {
        const Wish wish = takeBatch(batch);
        batch.writeTo(transactions);
        m_refuses = transactions.summary().nameTaken;
        if (wish == Wish::End) return;  // and the last transaction is committed on the way out
        if (wish == Wish::None) {
            transactions.commitIfDue();
            continue;
        }
        transactions.commit();
        const std::scoped_lock lock(m_mutex);
        m_summary = transactions.summary();
        m_wish = Wish::None;
        m_committed.notify_one();
    }
}

RowWriter::Wish RowWriter::takeBatch(Batch& batch) {
    batch.clear();
    std::unique_lock lock(m_mutex);
    m_wake.wait_for(lock, longestRest,
                    [this] { return m_wish != Wish::None || m_waiting.ends.size() >= worthWakingUp; });
    std::swap(batch, m_waiting);
    m_taken.notify_one();
    return m_wish;
}

}  // namespace scan
