// Makes a catalogue shaped like a collection of discs: 200 units of photos, music, films, documents and
// programs. One of them, "Archivo completo", has a tenth of the rows as its folders, and 700 files in its
// folder "Carpeta llena"; another, "Disco suelto", has a thousand rows. About one name in three bears the
// common word "viaje", about one row in fifty thousand the rare word "zanahoria".
//
//     make_catalogue FILE ROWS
//
// The same number always gives the same rows.

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

#include "core/catalog_row.h"
#include "core/inserts.h"
#include "core/unit_kinds.h"
#include "core/unit_name.h"
#include "engine/database.h"
#include "engine/maintenance.h"

namespace {

constexpr int units = 200;
constexpr int rowsInATransaction = 50'000;
constexpr std::string_view commonWord = "viaje";
constexpr std::string_view rareWord = "zanahoria";

constexpr std::array<std::string_view, 24> words{
    "Verano",  "playa",   "montaña", "Cumpleaños", "familia", "Boda",    "concierto", "Proyecto",
    "informe", "Factura", "Copia",   "antiguo",    "Álbum",   "versión", "directo",   "Navidad",
    "casa",    "trabajo", "Música",  "película",   "Backup",  "notes",   "final",     "Ñandú"};
constexpr std::array<std::string_view, 12> endings{".JPG", ".jpg", ".mp3", ".mp3", ".avi", ".txt",
                                                   ".doc", ".htm", ".zip", ".exe", ".gif", ".pdf"};

class CatalogueMaker {
  public:
    CatalogueMaker(engine::Database& database, long long rows) : m_database(database), m_rows(rows) {}

    bool make() {
        if (!m_database.BeginTrans()) return false;
        crowdedUnit(m_rows / 10);
        ordinaryUnit("Disco suelto", m_numero + std::min(m_rows / units, 1'000LL));
        for (int unit = 3; unit <= units; ++unit)
            ordinaryUnit(std::string(word()) + " " + std::to_string(unit), m_rows * unit / units);
        return m_sound && m_database.CommitTrans();
    }

  private:
    unsigned below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }
    std::string_view word() { return words[below(words.size())]; }

    std::string name() {
        std::string text(word());
        text.append(" ").append(word()).append(" ").append(std::to_string(1980 + below(45)));
        if (below(3) == 0) text.append(" ").append(commonWord);
        if (below(50'000) == 0) text.append(" ").append(rareWord);
        return text;
    }

    void run(const std::string& statement) {
        m_sound = m_sound && m_database.Execute(statement);
        if (m_numero % rowsInATransaction == 0)
            m_sound = m_sound && m_database.CommitTrans() && m_database.BeginTrans();
    }

    core::CatalogRow row(const std::string& ruta, int level) {
        core::CatalogRow made;
        made.numero = ++m_numero;
        made.ruta = ruta;
        made.carpeta = ruta.substr(ruta.rfind('\\') + 1);
        made.nivel = std::to_string(level);
        made.fecha = 36'000 + below(9'000) + below(86'400) / 86'400.0;
        made.disco = m_disco;
        return made;
    }

    void folder(const std::string& ruta, int level) {
        core::CatalogRow made = row(ruta, level);
        made.tipo = core::folderTipo;
        run(core::insertFolder(made));
    }

    void files(const std::string& ruta, int level, int count) {
        for (int i = 0; i < count; ++i) {
            core::CatalogRow made = row(ruta, level);
            made.archivo = name() + " " + std::to_string(i) + std::string(endings[below(endings.size())]);
            made.largo = below(9'000);
            made.tipo = core::fileTipo;
            run(core::insertFile(made));
        }
    }

    // Folders in tens, four levels deep at a hundred thousand, every second one with a file.
    void crowdedUnit(long long folders) {
        m_disco = "Archivo completo :";
        folder("E:\\Carpeta llena", 1);
        files("E:\\Carpeta llena", 2, 700);
        while (folders > 0) folders -= tens("E:\\" + name() + " " + std::to_string(folders), 1, folders);
    }

    long long tens(const std::string& ruta, int level, long long folders) {
        folder(ruta, level);
        if (below(2) == 0) files(ruta, level + 1, 1);
        long long made = 1;
        for (int i = 0; i < 10 && level < 4 && made < folders; ++i)
            made += tens(ruta + "\\" + name() + " " + std::to_string(i), level + 1, folders - made);
        return made;
    }

    void ordinaryUnit(const std::string& unit, long long untilRow) {
        m_disco = core::discoOf(unit);
        while (m_numero < untilRow) {
            const std::string top = "D:\\" + name() + " " + std::to_string(m_numero);
            folder(top, 1);
            for (int i = 0; i < 5; ++i) {
                const std::string inner = top + "\\" + name();
                folder(inner, 2);
                files(inner, 3, 15);
            }
            files(top, 2, 4);
        }
    }

    engine::Database& m_database;
    long long m_rows;
    std::int64_t m_numero = 0;
    std::string m_disco;
    bool m_sound = true;
    std::mt19937 m_random{1999};
};

}  // namespace

int main(int argc, char** argv) {
    const long long rows = argc == 3 ? std::atoll(argv[2]) : 0;
    if (rows <= 0) {
        std::fputs("usage: make_catalogue FILE ROWS\n", stderr);
        return 2;
    }
    ::unlink(argv[1]);
    if (auto created = engine::CreateDatabase(argv[1]); !created) {
        std::fprintf(stderr, "%s\n", created.error().text.c_str());
        return 1;
    }
    auto database = engine::OpenDatabase(argv[1], engine::Use::Catalogue);
    if (database && CatalogueMaker(*database, rows).make()) return 0;
    std::fprintf(stderr, "%s could not be written\n", argv[1]);
    return 1;
}
