#pragma once

#include <string>

#include "engine/error.h"

namespace engine {

// A file being written beside the one it is to replace. Whatever happens, the name leads to the old file or
// to the complete new one; what was not put in place is deleted.
class Replacement {
  public:
    // An empty file next to `target`, with the permissions of `model`.
    [[nodiscard]] static Result<Replacement> beside(const std::string& target, const std::string& model);

    Replacement(Replacement&& other) noexcept;
    Replacement& operator=(Replacement&&) = delete;
    ~Replacement();

    [[nodiscard]] const std::string& path() const { return m_path; }

    // Brings the file to the disk and gives it the target's name.
    [[nodiscard]] Result<> putInPlace();

  private:
    Replacement(std::string path, std::string target)
        : m_path(std::move(path)), m_target(std::move(target)) {}

    std::string m_path;
    std::string m_target;
};

}  // namespace engine
