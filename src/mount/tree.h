#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "core/medium.h"
#include "engine/database.h"
#include "mount/directory.h"
#include "mount/known_nodes.h"
#include "mount/level_rows.h"

namespace mount {

// A catalogue as a tree of folders and files: a folder for each unit, in it what was catalogued there. The
// file is locked for one statement at a time, and never written to.
//
// Where a call fails, the catalogue could not be read now; what it gives is otherwise whole. Not for use from
// two threads.
class Tree {
  public:
    explicit Tree(std::string cataloguePath) : m_path(std::move(cataloguePath)) {}

    // Looks whether the catalogue has changed, or another file has its name; then nothing that was read
    // before is shown any more. While another program keeps the file locked its old state is the true one.
    [[nodiscard]] engine::Result<> refresh();

    // Nothing where there is no such folder, or not any more.
    [[nodiscard]] engine::Result<std::shared_ptr<const Directory>> directory(NodeId folder);
    // A name with apostrophes also finds the row that has acute accents in their place.
    [[nodiscard]] engine::Result<std::optional<Child>> find(NodeId folder, std::string_view name);
    // Nothing for the root, for what is gone, and for a number that is not known.
    [[nodiscard]] engine::Result<std::optional<Child>> node(NodeId id);
    // Where a file lay when it was scanned.
    [[nodiscard]] engine::Result<std::optional<core::CataloguedFile>> fileOf(NodeId id);

    [[nodiscard]] KnownNodes& known() { return m_known; }

    struct Totals {
        std::int64_t items = 0;  // folders and files
        std::int64_t kilobytes = 0;
    };
    [[nodiscard]] engine::Result<Totals> totals();

    // When the catalogue's file was last changed, in seconds since 1970.
    [[nodiscard]] std::int64_t changed() const { return m_file.changed; }

  private:
    // Of the file under the catalogue's name.
    struct FileState {
        std::uint64_t device = 0, inode = 0;
        std::int64_t changed = 0;
        [[nodiscard]] bool isSameFile(const FileState& other) const {
            return device == other.device && inode == other.inode;
        }
    };
    // A folder that was looked into.
    struct Opened {
        NodeId id;
        Place place;
        std::shared_ptr<const Directory> folders;  // always there
        std::shared_ptr<const Directory> all;
    };

    [[nodiscard]] engine::Result<> open(const FileState& file);
    void forgetRows();
    [[nodiscard]] engine::Result<LevelRows*> rows();
    // Asks again where the file was locked, or has changed between the statements that an answer took.
    template <class Ask>
    [[nodiscard]] auto steadily(Ask ask) -> decltype(ask());
    [[nodiscard]] bool changedMeanwhile();

    [[nodiscard]] engine::Result<Opened*> opened(NodeId folder);  // null: no such folder
    [[nodiscard]] engine::Result<std::optional<Opened>> open(NodeId folder);
    [[nodiscard]] engine::Result<std::optional<Place>> placeOf(NodeId folder);
    [[nodiscard]] engine::Result<std::shared_ptr<const Directory>> all(Opened& folder);
    template <class Key>
    [[nodiscard]] engine::Result<std::optional<Child>> childIn(NodeId folder, Key key);
    [[nodiscard]] engine::Result<std::optional<core::CataloguedFile>> fileIn(NodeId folder, NodeId id);
    void closeSome();

    std::string m_path;
    FileState m_file;
    std::optional<engine::Database> m_database;
    engine::Error m_failure{.text = "The catalogue was not opened"};  // why there is no database
    long long m_version = 0;
    std::unique_ptr<LevelRows> m_rows;
    std::list<Opened> m_opened;  // the one used last in front
    std::optional<Totals> m_totals;
    KnownNodes m_known;
};

}  // namespace mount
