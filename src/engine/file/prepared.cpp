#include "engine/file/prepared.h"

#include <sqlite3.h>

#include <algorithm>

#include "engine/file/sql_functions.h"
#include "engine/file/sqlite_error.h"

namespace engine {

Prepared& Prepared::operator=(Prepared&& other) noexcept {
    if (this != &other) {
        release();
        m_entry = std::exchange(other.m_entry, nullptr);
    }
    return *this;
}

void Prepared::release() {
    if (!m_entry) return;
    reset();
    m_entry->lent = false;
    m_entry = nullptr;
}

void Prepared::reset() {
    if (get()) sqlite3_reset(get());
}

void Prepared::bind(std::span<const BoundValue> values, Texts texts) {
    for (std::size_t i = 0; i < values.size(); ++i) bind(static_cast<int>(i), values[i], texts);
}

void Prepared::bind(int parameter, const BoundValue& value, Texts texts) {
    if (!get()) return;
    if (const int code = bound(parameter, value, texts); code != SQLITE_OK) m_entry->unbound = code;
}

int Prepared::bound(int parameter, const BoundValue& value, Texts texts) {
    const int number = parameter + 1;
    if (const auto* text = std::get_if<std::string_view>(&value)) {
        const char* data = text->data() ? text->data() : "";
        return sqlite3_bind_text64(get(), number, data, text->size(),
                                   texts == Texts::Lent ? SQLITE_STATIC : SQLITE_TRANSIENT, SQLITE_UTF8);
    }
    if (const auto* integer = std::get_if<std::int64_t>(&value))
        return sqlite3_bind_int64(get(), number, *integer);
    if (const auto* real = std::get_if<double>(&value)) return sqlite3_bind_double(get(), number, *real);
    if (const auto* pattern = std::get_if<PatternText>(&value)) return boundPattern(parameter, *pattern);
    return sqlite3_bind_null(get(), number);
}

int Prepared::boundPattern(int parameter, const PatternText& pattern) {
    auto& patterns = m_entry->patterns;
    if (patterns.size() <= static_cast<std::size_t>(parameter)) patterns.resize(parameter + 1);
    CompiledPattern& kept = patterns[parameter];
    if (!kept.pattern || kept.source != pattern.text || kept.signs != pattern.signs) {
        kept.pattern.reset();
        kept.source = pattern.text;
        kept.signs = pattern.signs;
        kept.pattern = std::make_unique<LikePattern>(pattern.text, pattern.signs);
    }
    return sqlite3_bind_pointer(get(), parameter + 1, kept.pattern.get(), patternPointerType, nullptr);
}

Result<bool> Prepared::next() {
    if (!get()) return false;
    if (m_entry->unbound != SQLITE_OK) return std::unexpected(errorOfCode(m_entry->unbound));
    const int code = sqlite3_step(get());
    if (code == SQLITE_ROW || code == SQLITE_DONE) return code == SQLITE_ROW;
    return std::unexpected(lastError(sqlite3_db_handle(get())));
}

Result<> Prepared::answer() {
    if (TRY(next())) return {};
    return std::unexpected(Error{error::general, "A question was not answered"});
}

Result<> Prepared::run() {
    while (TRY(next())) {
    }
    return {};
}

std::string_view Prepared::text(int column) const {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(get(), column));
    return bytes ? std::string_view(bytes, sqlite3_column_bytes(get(), column)) : std::string_view();
}

std::int64_t Prepared::integer(int column) const {
    return sqlite3_column_int64(get(), column);
}
double Prepared::number(int column) const {
    return sqlite3_column_double(get(), column);
}
bool Prepared::isNull(int column) const {
    return sqlite3_column_type(get(), column) == SQLITE_NULL;
}

Result<Prepared> StatementPool::lend(const std::string& sql) {
    if (!m_database) return std::unexpected(Error{error::general, "The database is closed"});
    auto found = m_entries.find(sql);
    if (found == m_entries.end()) {
        if (m_entries.size() >= mostKept) dropIdle();
        found = m_entries.emplace(sql, std::vector<std::unique_ptr<Prepared::Entry>>()).first;
    }
    auto& entries = found->second;
    const auto idle =
        std::find_if(entries.begin(), entries.end(), [](const auto& entry) { return !entry->lent; });
    if (idle != entries.end()) {
        (*idle)->lent = true;
        (*idle)->unbound = SQLITE_OK;
        return Prepared(idle->get());
    }
    auto& entry = entries.emplace_back(std::make_unique<Prepared::Entry>());
    if (sqlite3_prepare_v3(m_database, sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT,
                           &entry->statement, nullptr) != SQLITE_OK) {
        entries.pop_back();
        return std::unexpected(lastError(m_database));
    }
    entry->lent = true;
    return Prepared(entry.get());
}

Result<std::int64_t> StatementPool::number(const std::string& sql) {
    auto asked = TRY(lend(sql));
    TRY(asked.answer());
    return asked.integer(0);
}

void StatementPool::dropIdle() {
    for (auto group = m_entries.begin(); group != m_entries.end();) {
        std::erase_if(group->second, [](const auto& entry) {
            if (!entry->lent) sqlite3_finalize(entry->statement);
            return !entry->lent;
        });
        group = group->second.empty() ? m_entries.erase(group) : std::next(group);
    }
}

void StatementPool::close() {
    for (auto& [sql, entries] : m_entries) {
        for (auto& entry : entries) sqlite3_finalize(std::exchange(entry->statement, nullptr));
    }
    m_database = nullptr;
}

}  // namespace engine
