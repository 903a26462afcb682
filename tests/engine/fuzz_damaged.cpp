#include <cstdio>

#include "engine/database.h"
#include "engine/maintenance.h"
#include "support/fuzz_rounds.h"
#include "support/temporary_folder.h"

namespace {

void useAll(const std::string& path) {
    auto db = engine::OpenDatabase(path, engine::Use::ReadOnly);
    if (!db) return;
    for (const char* sql :
         {"select disco from datos group by disco order by disco", "select * from datos order by carpeta",
          "select * from datos where archivo like ('*1*') and disco=('U :')"}) {
        auto rows = db->OpenRecordset(sql);
        if (!rows) continue;
        (void)rows->RecordCount();
        for (int i = 0; i < 5000 && !rows->Eof(); ++i, rows->MoveNext()) (void)rows->Field("archivo");
    }
}

}  // namespace

// A catalogue with a few bytes changed or its end cut off: reading ends in rows or an error, and what a
// repair calls repaired is sound.
int main(int argc, char** argv) {
    const test::TemporaryFolder folder;
    const std::string path = folder / "a.zrq";
    if (!engine::CreateDatabase(path)) return 1;
    if (auto db = engine::OpenDatabase(path)) {
        for (int i = 0; i < 400; ++i) {
            (void)db->Execute(
                "insert into datos (numero,ruta,carpeta,archivo,nivel,fecha,largo,tipo,disco,comentario) "
                "values (" +
                std::to_string(i) + ",'E:\\x','x','f" + std::to_string(i) +
                "','1','3','4','Archivo','U :','" + std::string(i % 90 == 0 ? 9000 : 5, 'n') + "')");
        }
    }
    const std::string whole = test::readFile(path);
    std::mt19937 random(3);
    bool unsound = false;
    int repaired = 0;
    for (int i = rounds(argc, argv, 200); i > 0 && !unsound; --i) {
        std::string hurt = whole;
        for (unsigned flips = 1 + random() % 20; flips > 0; --flips) {
            const std::size_t at = random() % 4 ? random() % hurt.size() : random() % 8192;
            hurt[at] = static_cast<char>(hurt[at] ^ 1 << random() % 8);
        }
        if (random() % 3 == 0) hurt.resize(random() % hurt.size());
        test::writeFile(path, hurt);
        useAll(path);
        if (!engine::RepairDatabase(path)) continue;
        ++repaired;
        useAll(path);
        unsound = !engine::OpenDatabase(path).has_value();
        unsound = unsound || !engine::RepairDatabase(path).has_value();
    }
    std::printf("%d repaired%s\n", repaired, unsound ? ", one of them unsound" : "");
    return unsound ? 1 : 0;
}
