#pragma once

#include <string>
#include <utility>

namespace frame {

// The current catalogue: one native path, empty when unset, kept for the whole run, and the last-file value.
class Catalogue {
  public:
    [[nodiscard]] const std::string& path() const { return m_path; }
    [[nodiscard]] bool isSet() const { return !m_path.empty(); }
    void setPath(std::string path) { m_path = std::move(path); }

    void rememberAsLast();                   // saves the path as "lastfile", if one is set, and reads it back
    void saveLast(const std::string& path);  // last() stays as it was read
    void readLast();
    [[nodiscard]] const std::string& last() const { return m_last; }

  private:
    std::string m_path;
    std::string m_last;
};

}  // namespace frame
