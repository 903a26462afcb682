#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "lists/list_item.h"

namespace lists {

// The items of one list, held compactly (a million of them, at most 400 bytes each with ordinary names);
// units and paths are stored once. Positions are those of the list as shown, from 0.
class ItemStore {
  public:
    ItemStore();
    ~ItemStore();
    ItemStore(const ItemStore&) = delete;
    ItemStore& operator=(const ItemStore&) = delete;

    void clear();
    // Adds behind the last item; while sorting is on, finish a run of additions with sortAgain().
    void add(const ListItem& item);
    [[nodiscard]] std::size_t size() const;

    [[nodiscard]] std::string_view text(std::size_t position) const;
    [[nodiscard]] std::string subItem(std::size_t position, int number) const;  // 1 to 9
    [[nodiscard]] int picture(std::size_t position) const;
    [[nodiscard]] int smallPicture(std::size_t position) const;
    void setNotes(std::size_t position, std::string_view notes);
    // What became of units: their items bear another name, or are gone; those left are numbered anew.
    using Units = std::function<bool(std::string_view disco)>;
    void renameUnits(const Units& which, std::string_view disco);
    void removeUnits(const Units& which);
    // An item keeps its number, from 0 in the order of adding, wherever sorting puts it.
    [[nodiscard]] std::size_t numberOf(std::size_t position) const;

    // Sorting by a key (0 the text, 1 to 9 a sub-item), as text by code points; items of equal keys stand in
    // the order of adding, descending too. Stays on, through clear() too, until another sort.
    struct Sorting {
        bool on = false;
        int key = 0;
        bool descending = false;
        bool operator==(const Sorting&) const = default;
    };
    void sort(Sorting sorting);
    void sortAgain();
    [[nodiscard]] const Sorting& sorting() const;

    [[nodiscard]] std::size_t bytesUsed() const;
    // Every item stands at exactly one position.
    [[nodiscard]] bool isConsistent() const;

  private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}  // namespace lists
