#include "sample_discs.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <span>

namespace {

namespace fs = std::filesystem;

struct Sample {
    core::Bilingual path;
    int kb;
    const char* day;  // YYYY-MM-DD
};

constexpr Sample photographs[] = {
    {{"Verano 2003/Playa/playa al amanecer.jpg", "Summer 2003/Beach/beach at dawn.jpg"}, 1840, "2003-07-12"},
    {{"Verano 2003/Playa/castillo de arena.jpg", "Summer 2003/Beach/sand castle.jpg"}, 1622, "2003-07-12"},
    {{"Verano 2003/Playa/paseo por la playa.mpg", "Summer 2003/Beach/walk on the beach.mpg"},
     48210,
     "2003-07-13"},
    {{"Verano 2003/Playa/la playa de noche.jpg", "Summer 2003/Beach/the beach by night.jpg"},
     1304,
     "2003-07-13"},
    {{"Verano 2003/Montaña/el refugio.jpg", "Summer 2003/Mountains/the hut.jpg"}, 2011, "2003-08-02"},
    {{"Verano 2003/Montaña/cumbre.jpg", "Summer 2003/Mountains/summit.jpg"}, 1987, "2003-08-03"},
    {{"Verano 2003/Montaña/ruta.txt", "Summer 2003/Mountains/route.txt"}, 6, "2003-08-03"},
    {{"Verano 2003/gastos.xls", "Summer 2003/expenses.xls"}, 38, "2003-08-20"},
    {{"Verano 2003/diario de viaje.doc", "Summer 2003/travel diary.doc"}, 412, "2003-08-21"},
    {{"Verano 2003/álbum.htm", "Summer 2003/album.htm"}, 14, "2003-08-24"},
    {{"Boda de Ana/iglesia.jpg", "Anne's wedding/church.jpg"}, 2210, "2004-05-08"},
    {{"Boda de Ana/el baile.mpg", "Anne's wedding/the dance.mpg"}, 91077, "2004-05-08"},
    {{"Boda de Ana/discurso.mp3", "Anne's wedding/speech.mp3"}, 5120, "2004-05-08"},
    {{"Boda de Ana/originales.zip", "Anne's wedding/originals.zip"}, 120344, "2004-05-11"},
    {{"visor.exe", "viewer.exe"}, 884, "2002-11-30"},
    {{"leame.txt", "readme.txt"}, 2, "2004-05-12"},
};

constexpr Sample music[] = {
    {{"Ensayos/01 vals.mp3", "Rehearsals/01 waltz.mp3"}, 4410, "2005-02-01"},
    {{"Ensayos/02 tango.mp3", "Rehearsals/02 tango.mp3"}, 3972, "2005-02-01"},
    {{"Ensayos/03 vals lento.mp3", "Rehearsals/03 slow waltz.mp3"}, 5208, "2005-02-15"},
    {{"Concierto en la playa/bis.ogg", "Concert on the beach/encore.ogg"}, 7244, "2005-06-24"},
    {{"Concierto en la playa/cartel.png", "Concert on the beach/poster.png"}, 940, "2005-06-20"},
    {{"Partituras/vals.pdf", "Scores/waltz.pdf"}, 133, "2005-01-09"},
    {{"Partituras/tango.pdf", "Scores/tango.pdf"}, 151, "2005-01-09"},
};

void setDay(const fs::path& path, const char* day) {
    std::tm time{};
    ::strptime(day, "%Y-%m-%d", &time);
    time.tm_hour = 17;
    const std::timespec moment{::timegm(&time), 0};
    const std::timespec times[] = {moment, moment};
    ::utimensat(AT_FDCWD, path.c_str(), times, 0);
}

void write(const fs::path& folder, std::span<const Sample> samples, core::Language language) {
    for (const Sample& sample : samples) {
        const fs::path file = folder / sample.path.in(language);
        fs::create_directories(file.parent_path());
        std::ofstream(file).close();
        fs::resize_file(file, std::uintmax_t(sample.kb) * 1024);  // a hole: takes no space
        setDay(file, sample.day);
    }
    // A folder's own date, once nothing more is written into it.
    for (const Sample& sample : samples) {
        fs::path above = fs::path(sample.path.in(language)).parent_path();
        for (; !above.empty(); above = above.parent_path()) setDay(folder / above, sample.day);
    }
}

}  // namespace

void writePhotoDisc(const std::string& folder, core::Language language) {
    write(folder, photographs, language);
}

void writeMusicDisc(const std::string& folder, core::Language language) {
    write(folder, music, language);
}
