#pragma once

#include <dirent.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "scan/exclusion.h"
#include "scan/listing.h"

namespace scan {

// What a row tells of an item on the disk.
struct ItemFacts {
    std::int64_t modified = 0;  // Unix seconds
    std::int64_t bytes = 0;
    bool known = true;  // false: it may not be looked at, and the others are 0
};

// One open folder of the disk. Everything below it is reached through its descriptor and a bare name, so no
// path is ever too long. Nothing but folders is opened: a FIFO or a device is a name like any other.
class Folder {
  public:
    [[nodiscard]] static Folder at(const std::string& nativePath);
    [[nodiscard]] Folder subfolder(const char* name) const;  // never through a link

    // False for a folder that is gone or may not be read; it then lists nothing.
    [[nodiscard]] bool isOpen() const { return m_stream != nullptr; }

    // Whether it is one of the kernel's own file systems, such as /proc, in which nothing is kept.
    [[nodiscard]] bool isOfKernel() const;

    // Adds the names that have not been read yet to `listing`, but for the excluded ones. False when not all
    // of them could be read.
    [[nodiscard]] bool readAll(Listing& listing, const Exclusion& exclusion = {});

    // Date and length of an item; of a link, those of what it leads to, or its own if that is missing.
    // Nothing when the item is gone; zeros when the folder may be listed but not searched.
    [[nodiscard]] std::optional<ItemFacts> facts(const char* name, bool isLink) const;

  private:
    struct Close {
        void operator()(DIR* stream) const { closedir(stream); }
    };
    explicit Folder(int descriptor);
    void add(const dirent& entry, Listing& listing) const;
    std::unique_ptr<DIR, Close> m_stream;
};

}  // namespace scan
