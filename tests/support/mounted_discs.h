#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "platform/drives.h"
#include "support/temporary_folder.h"

namespace test {

// A machine with a fixed disk under C: and drives into which discs are put and taken out again. Every disc is
// a real folder.
class MountedDiscs {
  public:
    MountedDiscs() { insert('C', "disk", "fixed"); }

    // The disc's native folder, made when it is new.
    std::string disc(const std::string& name) const {
        std::filesystem::create_directories(m_folder / name);
        return m_folder / name;
    }
    void insert(char letter, const std::string& discName, const std::string& type = "optical") {
        m_drives[letter] = disc(discName) + ',' + type;
    }
    void eject(char letter) { m_drives[letter] = ",optical"; }

    // Writes a file, its folders included, and gives its native path.
    std::string write(const std::string& disc, const std::string& path, const std::string& bytes) const {
        const std::filesystem::path file = m_folder / (disc + '/' + path);
        std::filesystem::create_directories(file.parent_path());
        writeFile(file, bytes);
        return file;
    }

    [[nodiscard]] platform::Drives operator()() const {
        std::string text;
        for (const auto& [letter, drive] : m_drives) text += std::string(1, letter) + '=' + drive + ';';
        return platform::Drives::parse(text);
    }

  private:
    TemporaryFolder m_folder;
    std::map<char, std::string> m_drives;
};

}  // namespace test
