#pragma once

#include "browse/open_file.h"
#include "browse/surface.h"

namespace browse {

// What clicks on the two lists do: remember the clicked row, open files from their medium, step into folders.
class ListActivation {
  public:
    explicit ListActivation(Surface& surface, core::DriveSource drives = platform::Drives::current)
        : m_surface(surface), m_drives(std::move(drives)) {}

    void abrirlistitem();  // the popup entry: as a double click on the list that is shown

    void itemClicked(lists::ItemList& list, int position);
    void doubleClicked(lists::ItemList& list);
    [[nodiscard]] bool popupAllowed() const;  // a row is selected, and it is no folder

  private:
    // The selected row, kept over the clearing of its list.
    struct Row {
        std::string name;
        std::string disco;
        std::string ruta;
    };

    [[nodiscard]] bool isResults(const lists::ItemList& list) const {
        return &list == &m_surface.lists.listView2;
    }
    [[nodiscard]] bool isFolderCaption(const std::string& type) const;
    void openRow(const Row& row);
    void stepFromBrowsing(const Row& row);
    void listSteppedInto(engine::Database& database, const Row& row);
    void stepFromResults(const Row& row);
    void selectChildNode(std::size_t number);

    Surface& m_surface;
    core::DriveSource m_drives;
};

}  // namespace browse
