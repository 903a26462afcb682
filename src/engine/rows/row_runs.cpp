#include "engine/rows/row_runs.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <string>
#include <utility>

#include "platform/temporary_file.h"

namespace engine {

namespace {

constexpr std::size_t writtenAtOnce = std::size_t{1} << 20;
constexpr std::size_t readAtOnce = std::size_t{256} << 10;

// Before the rest of a row's key and the packed row.
struct Header {
    std::uint64_t keyStart;
    std::int64_t rowid;
    std::uint32_t keySize;
    std::uint32_t packedSize;
};

}  // namespace

bool RowRuns::begin() {
    const auto file = platform::namelessFile();
    if (!file) return false;
    m_file.reset(::fdopen(*file, "w"));
    if (!m_file) ::close(*file);
    // The library makes a buffer of a size that it chooses, of a page.
    m_buffer = std::make_unique<char[]>(writtenAtOnce);
    return m_file && std::setvbuf(m_file.get(), m_buffer.get(), _IOFBF, writtenAtOnce) == 0;
}

bool RowRuns::write(const RowTable::Row& row) {
    const Header header{row.keyStart, row.rowid, row.keySize, row.packedSize};
    const auto put = [this](const void* bytes, std::size_t size) {
        m_size += static_cast<std::int64_t>(size);
        return size == 0 || std::fwrite(bytes, size, 1, m_file.get()) == 1;
    };
    return put(&header, sizeof header) && put(row.keyRest, row.keyRestSize()) &&
           put(row.packed, row.packedSize);
}

bool RowRuns::take(const RowTable& table) {
    if (!m_file && !begin()) return false;
    const std::int64_t begin = m_size;
    const std::span<const RowTable::Row> rows = table.rows();
    for (std::size_t at = 0; at < rows.size(); ++at) {
        constexpr std::size_t rowsAhead = 8;
        if (at + rowsAhead < rows.size()) {
            table.fetchAhead(at + rowsAhead);
            __builtin_prefetch(rows[at + rowsAhead].keyRest);
        }
        if (!write(rows[at])) return false;
    }
    if (std::fflush(m_file.get()) != 0) return false;
    m_runs.push_back({begin, m_size});
    m_rows += static_cast<long long>(table.size());
    return true;
}

// The rows of one run, one after the other.
class RowRuns::Reader {
  public:
    Reader(int file, Run run) : m_file(file), m_at(run.begin), m_end(run.end) {}

    // False at the end of the run. Until the next call the row holds.
    [[nodiscard]] Result<bool> next() {
        m_begin += m_used;
        m_used = 0;
        if (m_begin == m_have && m_at == m_end) return false;
        Header header{};
        TRY(fetch(sizeof header));
        std::memcpy(&header, m_buffer.data() + m_begin, sizeof header);
        m_row.keyStart = header.keyStart;
        m_row.rowid = header.rowid;
        m_row.keySize = header.keySize;
        const std::size_t size = sizeof header + m_row.keyRestSize() + header.packedSize;
        TRY(fetch(size));
        m_row.keyRest = m_buffer.data() + m_begin + sizeof header;
        m_row.packed = m_row.keyRest + m_row.keyRestSize();
        m_used = size;
        return true;
    }
    [[nodiscard]] const RowTable::Row& row() const { return m_row; }

  private:
    // Brings that many bytes behind the last row into the buffer.
    [[nodiscard]] Result<> fetch(std::size_t size) {
        if (m_have - m_begin >= size) return {};
        m_buffer.erase(0, m_begin);
        m_have -= std::exchange(m_begin, 0);
        const auto left = [this] { return static_cast<std::size_t>(m_end - m_at); };
        m_buffer.resize(std::max(size, std::min(m_have + left(), readAtOnce)));
        while (m_have < size) {
            const std::size_t most = std::min(left(), m_buffer.size() - m_have);
            const ssize_t got = ::pread(m_file, m_buffer.data() + m_have, most, m_at);
            if (got < 0 && errno == EINTR) continue;
            if (got <= 0)
                return std::unexpected(
                    Error{error::general, "The temporary file that holds the sorted rows cannot be read"});
            m_have += static_cast<std::size_t>(got);
            m_at += got;
        }
        return {};
    }

    int m_file;
    std::int64_t m_at;
    std::int64_t m_end;
    std::string m_buffer;
    std::size_t m_begin = 0;  // of the row, in the buffer
    std::size_t m_used = 0;   // by the row
    std::size_t m_have = 0;
    RowTable::Row m_row;
};

class RowRuns::Merged final : public Rows {
  public:
    Merged(RowRuns runs, const std::vector<Column>& fields)
        : m_runs(std::move(runs)), m_fields(fields.size()), m_places(fields) {}

    [[nodiscard]] Result<> begin() {
        for (const Run& run : m_runs.m_runs) {
            auto reader = std::make_unique<Reader>(::fileno(m_runs.m_file.get()), run);
            if (TRY(reader->next())) m_readers.push_back(std::move(reader));
        }
        std::ranges::make_heap(m_readers, isBehind);
        toFirst();
        return {};
    }

    [[nodiscard]] bool atEnd() const override { return m_readers.empty(); }
    [[nodiscard]] std::optional<long long> count() const override { return m_runs.m_rows; }
    [[nodiscard]] Value field(Column column) override {
        const int place = m_places[column];
        if (place < 0) return {};
        if (!m_isRead)
            PackedRows::unpack(m_readers.back()->row().packed, std::span(m_values).first(m_fields));
        m_isRead = true;
        return m_values[place];
    }
    [[nodiscard]] Result<> moveNext() override {
        if (TRY(m_readers.back()->next()))
            std::ranges::push_heap(m_readers, isBehind);
        else
            m_readers.pop_back();
        toFirst();
        return {};
    }

  private:
    using ReaderPtr = std::unique_ptr<Reader>;
    static bool isBehind(const ReaderPtr& a, const ReaderPtr& b) {
        return RowTable::isBefore(b->row(), a->row());
    }
    // The reader of the first row stands at the end, out of the heap of the others.
    void toFirst() {
        m_isRead = false;
        if (!m_readers.empty()) std::ranges::pop_heap(m_readers, isBehind);
    }

    RowRuns m_runs;
    std::size_t m_fields;
    FieldPlaces m_places;
    std::vector<ReaderPtr> m_readers;
    bool m_isRead = false;
    std::array<Value, columns.size()> m_values;
};

Result<std::unique_ptr<Rows>> RowRuns::merged(RowRuns runs, const std::vector<Column>& fields) {
    auto rows = std::make_unique<Merged>(std::move(runs), fields);
    TRY(rows->begin());
    return rows;
}

}  // namespace engine
