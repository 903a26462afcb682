#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "engine/error.h"

namespace mount {

// Unit: a unit's folder. Content: the empty file that tells what a unit made by hand contains.
enum class Kind : std::uint8_t { Unit, Folder, File, Content };

struct Row {
    Kind kind = Kind::File;
    std::string name;  // as the catalogue has it; of a unit its `disco`
    double fecha = 0;
    std::int64_t kilobytes = 0;
    std::string note;
};

// Rows in a file without a name, which is gone with its last user: what was looked at takes disk and not
// memory (a million rows about 70 MB). Rows that lie in one folder stand together in runs that begin with the
// folder's path. Not for use from two threads.
class RowSpool {
  public:
    using Offset = std::uint64_t;

    struct Run {
        Offset at = 0;
        std::uint32_t rows = 0;
        auto operator<=>(const Run&) const = default;
    };

    [[nodiscard]] static engine::Result<std::shared_ptr<RowSpool>> create();
    ~RowSpool();
    RowSpool(const RowSpool&) = delete;
    RowSpool& operator=(const RowSpool&) = delete;

    [[nodiscard]] Run beginRun(std::string_view ruta);
    void append(Run& run, const Row& row);      // to the run that was begun last
    [[nodiscard]] std::size_t runSize() const;  // its bytes so far
    // To be called before what was appended is read. Fails when any of it could not be written.
    [[nodiscard]] engine::Result<> flush();

    struct Stored {
        Row row;
        Offset next = 0;  // of the row behind it in the same run
    };
    [[nodiscard]] engine::Result<Stored> row(Offset offset) const;
    [[nodiscard]] engine::Result<Offset> firstRow(const Run& run) const;
    [[nodiscard]] engine::Result<std::string> ruta(Offset run) const;
    [[nodiscard]] engine::Result<std::string> rutaOfRow(Offset row) const;

  private:
    explicit RowSpool(int file) : m_file(file) {}

    void write(std::string_view bytes);
    void writeOut();
    [[nodiscard]] engine::Result<std::string_view> bytes(Offset offset, std::size_t size) const;
    template <class T>
    [[nodiscard]] engine::Result<T> read(Offset offset) const;

    int m_file;
    int m_writeError = 0;
    Offset m_end = 0;
    Offset m_run = 0;
    std::string m_unwritten;
    mutable std::string m_window;  // what was read last
    mutable Offset m_windowAt = 0;
};

}  // namespace mount
