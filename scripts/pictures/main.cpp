// Takes the pictures of the documents: pictures FOLDER makes FOLDER/en and FOLDER/es. To look at the windows
// as they come up on a screen, give its platform in QT_QPA_PLATFORM and --screen; --dark takes a dark
// palette, --big the biggest letters.

#include <QApplication>
#include <QDir>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include "controls/pictures.h"
#include "sample_discs.h"
#include "support/dark_palette.h"
#include "tour.h"

namespace {

namespace fs = std::filesystem;

// A folder whose name shows in the pictures, so it is the same each time.
struct Scratch {
    Scratch() {
        fs::remove_all(path);
        fs::create_directories(path);
    }
    ~Scratch() { fs::remove_all(path); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    fs::path path = fs::temp_directory_path() / "zarquelin-pictures";
};

struct Look {
    bool dark = false;
    bool asOnScreen = false;
    bool big = false;
};

bool takePictures(const std::string& scratch, const std::string& folder, core::Language language, Look look) {
    const TourFolders folders{scratch + "/media/anne/Photo disc 2003",
                              scratch + "/media/anne/Rehearsal disc",
                              scratch + (language == core::Language::Spanish ? "/discos.zrq" : "/discs.zrq"),
                              folder,
                              look.asOnScreen,
                              look.big};
    for (const std::string& made : {folders.photoDisc, folders.musicDisc, folders.pictures})
        if (!QDir().mkpath(QString::fromStdString(made))) return false;
    writePhotoDisc(folders.photoDisc, language);
    writeMusicDisc(folders.musicDisc, language);
    // The discs are in drives of their own, whatever the machine has.
    qputenv("ZARQUELIN_DRIVES", QByteArray::fromStdString("C=/;D=" + folders.photoDisc +
                                                          ",optical;E=" + folders.musicDisc + ",optical"));
    return goOnTour(folders, language);
}

// The toolkit's own screen without a display is narrower than the pictures.
std::string roomyScreen(const fs::path& folder) {
    const fs::path file = folder / "screen.json";
    std::ofstream(file) << R"({"screens": [{"name": "desk", "x": 0, "y": 0, "width": 1280, "height": 1024,)"
                        << R"( "logicalDpi": 96, "dpr": 1}]})";
    return file;
}

}  // namespace

int main(int argc, char** argv) {
    Look look;
    for (; argc > 2; --argc) {
        look.dark |= std::strcmp(argv[argc - 1], "--dark") == 0;
        look.asOnScreen |= std::strcmp(argv[argc - 1], "--screen") == 0;
        look.big |= std::strcmp(argv[argc - 1], "--big") == 0;
    }
    if (argc != 2) {
        std::fputs("usage: pictures FOLDER [--dark] [--screen] [--big]\n", stderr);
        return 2;
    }
    // The same pictures on every machine: without a display, with settings and paths of their own.
    const Scratch scratch;
    if (!look.asOnScreen)
        qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + roomyScreen(scratch.path)).c_str());
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(scratch.path));
    qputenv("TZ", "UTC");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    if (look.dark) QApplication::setPalette(test::darkPalette());
    controls::installIconTheme();

    const std::string folder = argv[1];
    if (takePictures(scratch.path / "en", folder + "/en", core::Language::English, look) &&
        takePictures(scratch.path / "es", folder + "/es", core::Language::Spanish, look))
        return 0;
    std::fprintf(stderr, "%s: the pictures could not be written\n", folder.c_str());
    return 1;
}
