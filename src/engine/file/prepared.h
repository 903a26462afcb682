#pragma once

#include <memory>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "engine/dialect/bound_value.h"
#include "engine/error.h"
#include "engine/text/like_pattern.h"

struct sqlite3;
struct sqlite3_stmt;

namespace engine {

class StatementPool;

// A prepared statement on loan from the pool; it goes back, reset, at the end of its life. After the pool was
// closed it gives no more rows.
class Prepared {
  public:
    Prepared() = default;
    Prepared(Prepared&& other) noexcept : m_entry(std::exchange(other.m_entry, nullptr)) {}
    Prepared& operator=(Prepared&& other) noexcept;
    ~Prepared() { release(); }

    // Values are bound to parameters counted from 0. Texts are copied, unless they are lent: then they must
    // outlive the next step. A value that could not be bound (no memory, too long) lets every step fail.
    enum class Texts { Copied, Lent };
    void bind(std::span<const BoundValue> values, Texts texts = Texts::Copied);
    void bind(int parameter, const BoundValue& value, Texts texts = Texts::Copied);

    // Steps to the next row. False behind the last one, and for a statement that gives none and is done.
    [[nodiscard]] Result<bool> next();
    [[nodiscard]] Result<> answer();  // to the one row of a statement that always gives one
    [[nodiscard]] Result<> run();     // all of a statement whose rows nobody looks at
    void reset();
    void release();

    [[nodiscard]] sqlite3_stmt* get() const { return m_entry ? m_entry->statement : nullptr; }
    [[nodiscard]] std::string_view text(int column) const;  // until the next step; no data for a null
    [[nodiscard]] std::int64_t integer(int column) const;
    [[nodiscard]] double number(int column) const;
    [[nodiscard]] bool isNull(int column) const;

  private:
    friend class StatementPool;
    struct CompiledPattern {
        std::string source;
        LikePattern::Signs signs{};
        std::unique_ptr<LikePattern> pattern;
    };
    struct Entry {
        sqlite3_stmt* statement = nullptr;
        bool lent = false;
        int unbound = 0;  // why a value could not be bound since it was lent, as SQLite's code
        std::vector<CompiledPattern> patterns;  // by parameter
    };
    explicit Prepared(Entry* entry) : m_entry(entry) {}

    [[nodiscard]] int bound(int parameter, const BoundValue& value, Texts texts);
    [[nodiscard]] int boundPattern(int parameter, const PatternText& pattern);

    Entry* m_entry = nullptr;
};

// Prepared statements by their text. A statement in use is never lent twice: asking again prepares another
// one.
class StatementPool {
  public:
    explicit StatementPool(sqlite3* database) : m_database(database) {}
    StatementPool(const StatementPool&) = delete;
    StatementPool& operator=(const StatementPool&) = delete;
    ~StatementPool() { close(); }

    [[nodiscard]] Result<Prepared> lend(const std::string& sql);
    [[nodiscard]] Result<std::int64_t> number(const std::string& sql);  // the one that a question gives
    void close();  // finalizes every statement, lent ones too

  private:
    void dropIdle();

    static constexpr std::size_t mostKept = 200;
    sqlite3* m_database;
    std::unordered_map<std::string, std::vector<std::unique_ptr<Prepared::Entry>>> m_entries;
};

}  // namespace engine
