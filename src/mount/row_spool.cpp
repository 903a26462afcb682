#include "mount/row_spool.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "platform/temporary_file.h"

namespace mount {
namespace {

constexpr std::size_t writtenAtOnce = 256 * 1024;
constexpr std::size_t readAtOnce = 8 * 1024;  // a folder is mostly less than that

struct RowHeader {
    double fecha;
    std::int64_t kilobytes;
    std::uint64_t run;  // the place of the run that the row belongs to
    std::uint32_t nameSize;
    std::uint32_t noteSize;
    Kind kind;
};

std::unexpected<engine::Error> failed(const char* doing, int reason) {
    return std::unexpected(
        engine::Error{engine::error::general, std::string(doing) + ": " + std::strerror(reason)});
}

}  // namespace

engine::Result<std::shared_ptr<RowSpool>> RowSpool::create() {
    const auto file = platform::namelessFile();
    if (!file) return std::unexpected(engine::Error{engine::error::general, file.error().text});
    return std::shared_ptr<RowSpool>(new RowSpool(*file));
}

RowSpool::~RowSpool() {
    ::close(m_file);
}

RowSpool::Run RowSpool::beginRun(std::string_view ruta) {
    m_run = m_end;
    const auto size = static_cast<std::uint32_t>(ruta.size());
    write({reinterpret_cast<const char*>(&size), sizeof size});
    write(ruta);
    return {m_run, 0};
}

void RowSpool::append(Run& run, const Row& row) {
    ++run.rows;
    RowHeader header{};
    header.fecha = row.fecha;
    header.kilobytes = row.kilobytes;
    header.run = m_run;
    header.nameSize = static_cast<std::uint32_t>(row.name.size());
    header.noteSize = static_cast<std::uint32_t>(row.note.size());
    header.kind = row.kind;
    write({reinterpret_cast<const char*>(&header), sizeof header});
    write(row.name);
    write(row.note);
}

std::size_t RowSpool::runSize() const {
    return m_end - m_run;
}

engine::Result<> RowSpool::flush() {
    writeOut();
    if (m_writeError != 0) return failed("The temporary file cannot be written", m_writeError);
    return {};
}

engine::Result<RowSpool::Stored> RowSpool::row(Offset offset) const {
    const auto header = TRY(read<RowHeader>(offset));
    const Offset behindHeader = offset + sizeof(RowHeader);
    const std::size_t size = std::size_t{header.nameSize} + header.noteSize;
    const auto texts = TRY(bytes(behindHeader, size));
    return Stored{{header.kind, std::string(texts.substr(0, header.nameSize)), header.fecha, header.kilobytes,
                   std::string(texts.substr(header.nameSize))},
                  behindHeader + size};
}

engine::Result<RowSpool::Offset> RowSpool::firstRow(const Run& run) const {
    const auto size = TRY(read<std::uint32_t>(run.at));
    return run.at + sizeof size + size;
}

engine::Result<std::string> RowSpool::ruta(Offset run) const {
    const auto size = TRY(read<std::uint32_t>(run));
    const auto text = TRY(bytes(run + sizeof size, size));
    return std::string(text);
}

engine::Result<std::string> RowSpool::rutaOfRow(Offset row) const {
    const auto header = TRY(read<RowHeader>(row));
    return ruta(header.run);
}

void RowSpool::write(std::string_view bytes) {
    m_unwritten += bytes;
    m_end += bytes.size();
    if (m_unwritten.size() >= writtenAtOnce) writeOut();
}

void RowSpool::writeOut() {
    std::string_view rest = m_unwritten;
    while (m_writeError == 0 && !rest.empty()) {
        const ssize_t written = ::write(m_file, rest.data(), rest.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) m_writeError = errno;
        rest.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
    m_unwritten.clear();
}

engine::Result<std::string_view> RowSpool::bytes(Offset offset, std::size_t size) const {
    const bool known = offset >= m_windowAt && offset + size <= m_windowAt + m_window.size();
    if (!known) {
        m_windowAt = offset;
        m_window.resize(std::max(size, readAtOnce));
        std::size_t have = 0;
        while (have < size) {
            const ssize_t got = ::pread(m_file, m_window.data() + have, m_window.size() - have,
                                        static_cast<off_t>(offset + have));
            if (got < 0 && errno == EINTR) continue;
            if (got <= 0) {
                m_window.clear();
                return failed("The temporary file cannot be read", got < 0 ? errno : EIO);
            }
            have += static_cast<std::size_t>(got);
        }
        m_window.resize(have);
    }
    return std::string_view(m_window).substr(offset - m_windowAt, size);
}

template <class T>
engine::Result<T> RowSpool::read(Offset offset) const {
    const auto found = TRY(bytes(offset, sizeof(T)));
    T value;
    std::memcpy(&value, found.data(), sizeof value);
    return value;
}

}  // namespace mount
