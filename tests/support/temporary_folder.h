#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace test {

// A fresh folder that goes away with everything in it.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string path = std::filesystem::temp_directory_path() / "zarquelin-test-XXXXXX";
        if (!::mkdtemp(path.data())) throw std::runtime_error("no temporary folder");
        m_path = path;
    }
    ~TemporaryFolder() {
        namespace fs = std::filesystem;
        std::error_code ignored;
        // A test may have taken away the permissions that removing needs.
        fs::permissions(m_path, fs::perms::owner_all, fs::perm_options::add, ignored);
        for (fs::recursive_directory_iterator at(m_path, ignored), end; at != end; at.increment(ignored))
            if (at->is_directory(ignored) && !at->is_symlink(ignored))
                fs::permissions(at->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
        fs::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::string& path() const { return m_path; }
    [[nodiscard]] std::string operator/(const std::string& name) const { return m_path + '/' + name; }

  private:
    std::string m_path;
};

inline void writeFile(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace test
