#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/rows/path_index.h"
#include "engine/rows/select.h"

namespace engine {

// A select whose condition holds, beside other things, `ruta like ('*\A\B\*')`, asked again and again with
// nothing changed but that path and the level of a `nivel = 'L'` beside it: as one scan each, loading a tree
// of folders would be quadratic (100,000 folders: 0.5 s instead of hours). From the second time on (on a
// working copy, from the first) the answer comes from rows fetched once, found by runs of whole path
// components. Rows and their order are exactly those of the scan.
class PathLookup {
  public:
    // The rows of a select; nothing when it has to be scanned.
    [[nodiscard]] Result<std::unique_ptr<Rows>> rows(const Select& select);

  private:
    // A statement with all its literals but the path and the level.
    struct Known {
        std::shared_ptr<const Statement> statement;
        int pathLiteral;
        std::vector<std::string> others;
        long long version = -1;                      // of the file when it was asked last
        std::shared_ptr<PathIndex> index = nullptr;  // none before it is needed
        bool tooLarge = false;
    };
    struct Tests;

    [[nodiscard]] Known& knownFor(const Query& query, const Tests& tests);
    [[nodiscard]] static Result<> bringUpToDate(Known& known, const Tests& tests, const Select& select);

    static constexpr std::size_t mostKept = 64;
    std::vector<Known> m_known;
};

}  // namespace engine
