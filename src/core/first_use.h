#pragma once

namespace core {

// Lets ICU and Qt load what they load on first use. They do not bear to run out of memory meanwhile and end
// the program: better at its start than in the midst of its work.
void loadLibraryTables();

}  // namespace core
