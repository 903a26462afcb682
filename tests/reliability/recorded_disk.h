#pragma once

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "support/temporary_folder.h"

namespace test {

// A change that a program made of a file or a name, as failing_calls.c records them.
struct DiskEvent {
    std::string what;
    ino_t file = 0;  // of a folder too, when it was flushed
    std::size_t at = 0;
    std::string name, other, bytes;
};

inline std::vector<DiskEvent> recordedEvents(const std::string& path) {
    std::vector<DiskEvent> events;
    std::ifstream record(path, std::ios::binary);
    std::size_t size = 0;
    for (DiskEvent event; record >> event.what >> event.file >> event.at >> size; events.push_back(event)) {
        record.ignore();
        std::getline(record, event.name);
        std::getline(record, event.other);
        event.bytes.resize(size);
        record.read(event.bytes.data(), std::streamsize(size));
    }
    return events;
}

// What the disk is certain to hold of one folder, and what may have come to it besides: of what was not
// flushed each part, or not. Bytes are flushed with their file, names with the folder.
class RecordedDisk {
  public:
    using Image = std::map<std::string, std::string>;  // files by their names
    enum class Chance { Nothing, Everything, Newest, Any };

    explicit RecordedDisk(const std::string& folder) : m_folder(inodeOf(folder)), m_prefix(folder + '/') {
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            m_now[entry.path()] = fileNumbered(inodeOf(entry.path()));
            m_files.back().certain = readFile(entry.path());
        }
        m_certain = m_now;
    }

    void add(const DiskEvent& event) {
        if (event.what == "write" || event.what == "truncate") {
            if (const auto file = m_numbers.find(event.file); file != m_numbers.end())
                m_files[file->second].pending.push_back(event);
        } else if (event.what == "flush") {
            flush(event.file);
        } else if (event.what == "create") {
            change(event.name, fileNumbered(event.file));  // a number may come again
        } else if (event.what == "unlink") {
            change({}, {}, event.name);
        } else if (const auto from = m_now.find(event.name); from != m_now.end()) {
            change(event.other, from->second, event.what == "rename" ? event.name : "");
        }
    }

    [[nodiscard]] Image now() const {
        std::minstd_rand none;
        return cut(Chance::Everything, Chance::Everything, none);
    }
    [[nodiscard]] Image cut(Chance ofNames, Chance ofBytes, std::minstd_rand& random) const {
        const auto applySome = [&](const auto& pending, Chance chance, auto& to) {
            for (std::size_t i = 0; i < pending.size(); ++i)
                if (chance == Chance::Everything || (chance == Chance::Newest && i + 1 == pending.size()) ||
                    (chance == Chance::Any && random() % 2 == 0))
                    apply(pending[i], to);
        };
        Names names = m_certain;
        applySome(m_pending, ofNames, names);
        Image image;
        for (const auto& [name, file] : names) {
            if (!name.starts_with(m_prefix)) continue;
            std::string& bytes = image[name.substr(m_prefix.size())] = m_files[file].certain;
            applySome(m_files[file].pending, ofBytes, bytes);
        }
        return image;
    }

  private:
    using Names = std::map<std::string, std::size_t>;  // to places in m_files
    struct NameChange {
        std::string name;  // leads to this file from now on
        std::size_t file = 0;
        std::string gone;  // with the same step; each may be none
    };
    struct File {
        std::string certain;
        std::vector<DiskEvent> pending;
    };

    static ino_t inodeOf(const std::string& path) {
        struct stat status {};
        return ::stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
    }
    std::size_t fileNumbered(ino_t number) {
        m_files.emplace_back();
        return m_numbers[number] = m_files.size() - 1;
    }
    void change(const std::string& name, std::size_t file, const std::string& gone = {}) {
        m_pending.push_back({name, file, gone});
        apply(m_pending.back(), m_now);
    }
    void flush(ino_t number) {
        if (number == m_folder) {
            for (const NameChange& change : m_pending) apply(change, m_certain);
            m_pending.clear();
        } else if (const auto place = m_numbers.find(number); place != m_numbers.end()) {
            File& file = m_files[place->second];
            for (const DiskEvent& event : file.pending) apply(event, file.certain);
            file.pending.clear();
        }
    }

    static void apply(const NameChange& change, Names& names) {
        if (!change.name.empty()) names[change.name] = change.file;
        if (!change.gone.empty()) names.erase(change.gone);
    }
    static void apply(const DiskEvent& event, std::string& bytes) {
        if (event.what == "truncate") return bytes.resize(event.at);
        bytes.resize(std::max(bytes.size(), event.at + event.bytes.size()));
        bytes.replace(event.at, event.bytes.size(), event.bytes);
    }

    ino_t m_folder;
    std::string m_prefix;
    std::vector<File> m_files;
    std::map<ino_t, std::size_t> m_numbers;
    Names m_now, m_certain;
    std::vector<NameChange> m_pending;
};

}  // namespace test
