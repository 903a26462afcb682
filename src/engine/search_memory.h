#pragma once

#include <memory>

namespace engine {

class KnownNames;

// What searches remember of a catalogue, to be given to one handle on it after the other: with it, a rare
// word is found without a pass over all rows from the second search on. It takes some 32 MB for a million
// rows, 512 MB at most, and nothing of it outlives a change of the file. Belongs to one thread.
class SearchMemory {
  public:
    SearchMemory();
    ~SearchMemory();
    SearchMemory(const SearchMemory&) = delete;
    SearchMemory& operator=(const SearchMemory&) = delete;

    void clear();

  private:
    friend class Database;
    std::shared_ptr<KnownNames> m_names;
};

}  // namespace engine
