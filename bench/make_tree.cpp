// Makes a tree of empty and sparse files shaped like a home directory: photos by year and month, music by
// artist and album, projects with deep folders and short names, one folder with very many files.
//
//     make_tree FOLDER ENTRIES
//
// The same number always gives the same tree.

#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <random>
#include <string>

namespace {

namespace fs = std::filesystem;

class TreeMaker {
  public:
    explicit TreeMaker(long long entries) : m_left(entries) {}

    void make(const fs::path& root) {
        fs::create_directories(root);
        crowd(root / "Descargas");
        for (int round = 0; m_left > 0; ++round) {
            photos(root, round);
            music(root, round);
            project(root, round);
        }
    }

  private:
    bool folder(const fs::path& path) {
        if (m_left <= 0) return false;
        if (fs::create_directory(path)) --m_left;
        return true;
    }

    void files(const fs::path& folder, int count, const std::string& stem, const std::string& ending) {
        for (int i = 0; i < count && m_left > 0; ++i, --m_left) {
            const fs::path path = folder / (stem + std::to_string(1000 + i) + ending);
            std::fclose(std::fopen(path.c_str(), "w"));
            static_cast<void>(truncate(path.c_str(), static_cast<off_t>(m_random() % 5'000'000)));
        }
    }

    void crowd(const fs::path& path) {
        const auto twentieth = static_cast<int>(m_left / 20);
        if (folder(path)) files(path, twentieth, "descarga_", ".tmp");
    }

    void photos(const fs::path& root, int round) {
        const fs::path all = root / "Fotos";
        const fs::path year = all / std::to_string(1990 + round);
        if (!folder(all) || !folder(year)) return;
        for (int month = 1; month <= 12; ++month) {
            const fs::path path = year / (std::to_string(month) + " - Año de viajes");
            if (folder(path)) files(path, 20 + static_cast<int>(m_random() % 60), "IMG_", ".JPG");
        }
    }

    void music(const fs::path& root, int round) {
        const fs::path all = root / "Música";
        const fs::path artist = all / ("The Artist No. " + std::to_string(round));
        if (!folder(all) || !folder(artist)) return;
        for (int album = 0; album < 6; ++album) {
            const fs::path path = artist / ("Album " + std::to_string(album));
            if (folder(path)) files(path, 12, "Track with a longer name ", ".mp3");
        }
    }

    void project(const fs::path& root, int round) {
        const fs::path all = root / "projects";
        fs::path path = all / ("project-" + std::to_string(round));
        if (!folder(all) || !folder(path)) return;
        for (int depth = 0; depth < 8; ++depth) {
            files(path, 10, "module_", ".cpp");
            for (int side = 0; side < 3; ++side) {
                const fs::path beside = path / ("part" + std::to_string(side));
                if (folder(beside)) files(beside, 8, "n", ".h");
            }
            path /= "deeper";
            if (!folder(path)) return;
        }
    }

    long long m_left;
    std::minstd_rand m_random{2003};
};

}  // namespace

int main(int argc, char** argv) {
    const long long entries = argc == 3 ? std::atoll(argv[2]) : 0;
    if (entries <= 0) {
        std::fputs("usage: make_tree FOLDER ENTRIES\n", stderr);
        return 2;
    }
    TreeMaker(entries).make(argv[1]);
    return 0;
}
