#pragma once

#include <string>

#include "core/catalog_row.h"
#include "core/language.h"
#include "lists/list_item.h"

namespace lists {

// Turns rows into the items of a browse listing. Keeps `tipocarpeta` from row to row, since an unknown `tipo`
// shows the caption of the row before.
class RowItems {
  public:
    explicit RowItems(core::Language language) : m_language(language) {}

    [[nodiscard]] ListItem folderItem(const core::CatalogRow& row);
    // Two listings lower-case the file's name in its sort key; everywhere else it is kept as it stands.
    [[nodiscard]] ListItem fileItem(const core::CatalogRow& row, bool lowerCaseKey = false) const;

  private:
    core::Language m_language;
    std::string m_tipocarpeta;
};

}  // namespace lists
