#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/jet/recordset_impl.h"

namespace jet {

// A select whose condition holds, beside other things, `ruta like ('*\A\B\*')`, asked again and again with
// nothing changed but that path: as one scan each, loading a tree of folders would be quadratic. From the
// second time on the answer comes from rows fetched once, found by runs of whole path components. Rows and
// their order are exactly those of the scan.
class PathLookup {
  public:
    // The recordset for a select, or nullptr when it has to be scanned. `version` is that of the file now.
    [[nodiscard]] std::unique_ptr<Recordset::Impl> open(const OwnedScan& scan, long long version);

  private:
    // The rows of one select without its path, and where each run of components stands.
    class Index;

    struct Known {
        long long version = 0;
        std::shared_ptr<Index> index;  // none after the first time
        bool tooLarge = false;
    };

    static constexpr std::size_t mostKept = 64;
    std::unordered_map<std::string, Known> m_known;  // by shape and all literals but the path
};

}  // namespace jet
