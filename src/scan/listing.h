#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace scan {

// The names of one folder, subfolders and files apart. Once sorted, each list stands in the order of a file
// list control: by name without regard to case (lower case over Unicode, by code point), names that differ in
// case only by their bytes. The order is the same on every machine. Names are the disk's bytes and hold until
// clear().
class Listing {
  public:
    struct Entry {
        std::uint64_t prefix;  // first eight bytes of the sort key, big-endian
        std::uint32_t name;    // offsets into the text
        std::uint32_t nameLength;
        std::uint32_t key;
        std::uint32_t keyLength;
        bool isLink;
    };

    void clear();
    void addFolder(std::string_view name, bool isLink) { m_folders.push_back(makeEntry(name, isLink)); }
    void addFile(std::string_view name, bool isLink) { m_files.push_back(makeEntry(name, isLink)); }
    void sort();

    [[nodiscard]] const std::vector<Entry>& folders() const { return m_folders; }
    [[nodiscard]] const std::vector<Entry>& files() const { return m_files; }
    // Ends in a NUL, so that data() can go to the system as it is.
    [[nodiscard]] std::string_view name(const Entry& entry) const {
        return {m_text.data() + entry.name, entry.nameLength};
    }

  private:
    [[nodiscard]] Entry makeEntry(std::string_view name, bool isLink);
    [[nodiscard]] bool precedes(const Entry& left, const Entry& right) const;

    std::string m_text;  // all names and the keys that differ from their name
    std::vector<Entry> m_folders;
    std::vector<Entry> m_files;
};

}  // namespace scan
