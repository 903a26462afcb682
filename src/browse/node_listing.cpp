#include "browse/node_listing.h"

#include <algorithm>
#include <vector>

#include "browse/tree_loader.h"
#include "core/text.h"
#include "core/units.h"

namespace browse {
namespace {

using Names = std::vector<std::string>;

// The engine takes no notice of case.
bool sameName(const std::string& a, const std::string& b) {
    return core::lowerCase(a) == core::lowerCase(b);
}

// The spelling that stands in the catalogue; the one given if it does.
std::optional<std::string> storedSpelling(const Names& units, const std::string& disco) {
    if (std::ranges::find(units, disco) != units.end()) return disco;
    const auto found = std::ranges::find_if(units, [&](const auto& unit) { return sameName(unit, disco); });
    return found == units.end() ? std::nullopt : std::optional(*found);
}

// Learns the names of a unit's folders as the tree does, and looks out for one of them.
class Learner : public FolderSink {
  public:
    Learner(NameLists& lists, const std::string& disco, std::span<const std::string> wanted)
        : m_lists(lists), m_disco(disco), m_wanted(wanted) {}

    bool yieldAndTestStop() override { return false; }

    void addFolder(int nivel, std::string_view carpeta) override {
        m_lists.addFolder(nivel + 1, m_disco, carpeta);
        m_path.resize(static_cast<std::size_t>(nivel) - 1);
        m_path.emplace_back(carpeta);
        if (std::ranges::equal(m_path, m_wanted) ||
            (m_found.empty() && std::ranges::equal(m_path, m_wanted, sameName)))
            m_found = m_path;
    }

    [[nodiscard]] const Names& found() const { return m_found; }  // empty for none

  private:
    NameLists& m_lists;
    const std::string& m_disco;
    std::span<const std::string> m_wanted;
    Names m_path;
    Names m_found;
};

}  // namespace

std::optional<FolderListing> clickedListing(const NameLists& lists, const NodeNames& node) {
    const std::string disco = node.unit();
    const int level = lists.levelOf(disco, node.text, node.ancestors);
    if (level == 0) return std::nullopt;
    return FolderListing{level, clickedFolderListing(level, disco, node.chain(level), node.text)};
}

engine::Result<std::optional<Listing>> nodeListing(engine::Database& database, const std::string& unit,
                                                   std::span<const std::string> folders) {
    const auto units = core::unitNames(database);
    if (!units) return std::unexpected(units.error());
    const auto disco = storedSpelling(*units, unit);
    if (!disco) return std::nullopt;

    NameLists lists;
    for (const std::string& name : *units) lists.addUnit(name);
    Learner learner(lists, *disco, folders);
    if (!folders.empty()) {
        loadFolders(database, *disco, FirstLevel::NoFiles, learner);
        if (learner.found().empty()) return std::nullopt;
    }
    const NodeNames node = namesBelow(*disco, learner.found());
    if (lists.isUnit(node.text)) return unitListing(node.text);
    const auto clicked = clickedListing(lists, node);
    return clicked ? clicked->listing : Listing{};
}

}  // namespace browse
