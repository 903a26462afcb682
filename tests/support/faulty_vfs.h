#pragma once

namespace test {

// Stands between SQLite and the system for the whole process, counts what is asked of the disk and lets any
// of it fail.
namespace disk {

// The n-th read, write, flush, truncation, deletion, opening or lock from now on fails; with `always` every
// later one too. 0: none fails. Counting begins anew.
void failAt(int n, bool always = false);
[[nodiscard]] int calls();  // since failAt

}  // namespace disk
}  // namespace test
