#pragma once

namespace engine {

// The name of SQLite's own way to files, without what a journal from a stranger could do on it: a journal may
// name a second one, of a change of several databases, and whatever file bears that name SQLite deletes in
// the end. Nor does a pipe in the place of a journal keep anybody waiting. Opening fails where SQLite could
// not be told of it.
[[nodiscard]] const char* carefulFiles();

}  // namespace engine
