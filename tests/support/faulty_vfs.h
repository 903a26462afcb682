#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace test {

// Stands between SQLite and the system for the whole process. Counts what is asked of the disk, lets any of
// it fail, and can keep a record of every change, from which the disk after a power cut is made.
namespace disk {

// The n-th read, write, flush, truncation, deletion, opening or lock from now on fails; with `always` every
// later one too. 0: none fails. Counting begins anew.
void failAt(int n, bool always = false);
[[nodiscard]] int calls();  // since failAt

struct Write {
    std::int64_t offset;
    std::string bytes;
};
struct Truncate {
    std::int64_t size;
};
struct Delete {
    bool flushed;  // with the folder
};
struct Flush {};
struct Event {
    std::string path;
    std::variant<Write, Truncate, Delete, Flush> what;
};
using Record = std::vector<Event>;

void startRecord();
[[nodiscard]] const Record& record();  // so far

}  // namespace disk
}  // namespace test
