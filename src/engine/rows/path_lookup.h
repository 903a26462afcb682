#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/rows/path_index.h"
#include "engine/rows/recordset_impl.h"

namespace engine {

// A select whose condition holds, beside other things, `ruta like ('*\A\B\*')`, asked again and again with
// nothing changed but that path and the level of a `nivel = 'L'` beside it: as one scan each, loading a tree
// of folders would be quadratic. From the second time on (on a working copy, from the first) the answer comes
// from rows fetched once, found by runs of whole path components. Rows and their order are exactly those of
// the scan.
class PathLookup {
  public:
    // The recordset for a select, or nullptr when it has to be scanned. The statement is the scan's own.
    [[nodiscard]] std::unique_ptr<Recordset::Impl> open(const std::shared_ptr<Connection>& connection,
                                                        const std::shared_ptr<const Statement>& statement,
                                                        const Scan& scan);

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

    [[nodiscard]] Known& knownFor(const std::shared_ptr<const Statement>& statement, const Tests& tests,
                                  const std::vector<Literal>& literals);

    [[nodiscard]] static std::shared_ptr<PathIndex> indexFor(Known& known, const Tests& tests,
                                                             const Scan& scan);

    static constexpr std::size_t mostKept = 64;
    std::vector<Known> m_known;
};

}  // namespace engine
