#pragma once

#include <string>
#include <vector>

#include "engine/database.h"
#include "search/passes.h"

namespace search {

// The counters of the status line. A search sets those of the passes that it makes and leaves the other as it
// was.
struct FoundCounts {
    long long carpetasencontradas = 0;
    long long archivosencontrados = 0;

    bool operator==(const FoundCounts&) const = default;
};

// The four texts and numbers of the status line, joined.
[[nodiscard]] std::string countersText(const FoundCounts& counters, const core::Rotulos& rotulos);

// Where the rows of a search go.
class ResultSink {
  public:
    virtual ~ResultSink() = default;
    // Empties the result list: once before the first pass, and again before the rows of a folder pass.
    virtual void clear() = 0;
    virtual void add(const engine::Recordset& row, const Pass& pass) = 0;
};

// Runs the passes one after the other, to the last one even if the engine refuses the statements of silent
// ones; another failure ends the search with its error.
[[nodiscard]] engine::Result<> runPasses(engine::Database& database, const std::vector<Pass>& passes,
                                         FoundCounts& counters, ResultSink& sink);

}  // namespace search
