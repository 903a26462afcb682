#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "mount/row_spool.h"

namespace mount {

// A file or folder of the tree. The same path has the same number as long as the catalogue has it, whatever
// else changes there.
using NodeId = std::uint64_t;
inline constexpr NodeId rootId = 1;

struct Child {
    NodeId id = 0;
    std::string shown;  // its name as a file
    Row row;
    RowSpool::Offset at = 0;
};

// What lies in one folder: every name once. Of two rows with one name the first is shown, and a folder goes
// before a file; a row whose name cannot be a file name gives way where its stand-in is taken, and is shown
// with a mark behind it. It stays as it is when the catalogue changes.
class Directory {
  public:
    [[nodiscard]] static engine::Result<std::shared_ptr<const Directory>> of(
        NodeId folder, std::shared_ptr<const RowSpool> spool, std::span<const RowSpool::Run> folders,
        std::span<const RowSpool::Run> files = {});

    [[nodiscard]] std::size_t size() const { return m_entries.size(); }
    [[nodiscard]] engine::Result<Child> child(std::size_t index) const;  // in the order of the rows
    [[nodiscard]] engine::Result<std::optional<Child>> find(NodeId id) const;
    [[nodiscard]] engine::Result<std::optional<Child>> find(std::string_view shown) const;
    // The path of the folder in which the child lay when it was scanned.
    [[nodiscard]] engine::Result<std::string> rutaOf(const Child& child) const;

  private:
    enum Rank : RowSpool::Offset { Folder, AlteredFolder, File, AlteredFile };  // the first has the name
    struct Entry {
        NodeId id;
        RowSpool::Offset at : 48;
        RowSpool::Offset rank : 2;
        RowSpool::Offset marked : 1;
    };
    enum class Meeting { Mark, Drop };  // what becomes of a row that another one has the name of

    Directory(NodeId folder, std::shared_ptr<const RowSpool> spool)
        : m_folder(folder), m_spool(std::move(spool)) {}

    [[nodiscard]] engine::Result<> add(std::span<const RowSpool::Run> runs, Rank rank, Rank altered);
    [[nodiscard]] engine::Result<> settle(Meeting meeting);
    [[nodiscard]] engine::Result<bool> isTwin(const Entry& a, const Entry& b) const;
    [[nodiscard]] engine::Result<Child> childOf(const Entry& entry) const;
    void sortById();

    NodeId m_folder;
    std::shared_ptr<const RowSpool> m_spool;
    std::vector<Entry> m_entries;
    std::vector<std::uint32_t> m_byId;
};

}  // namespace mount
