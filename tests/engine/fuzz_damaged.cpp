#include <algorithm>
#include <filesystem>

#include "engine/database.h"
#include "engine/maintenance.h"
#include "support/another_program.h"
#include "support/fuzz.h"
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

// A catalogue of many units, long paths and some notes of several pages.
void fill(const std::string& path) {
    auto db = engine::OpenDatabase(path).value();
    (void)db.BeginTrans();
    for (int i = 0; i < 600; ++i) {
        const std::string number = std::to_string(i), unit = i % 3 == 0 ? "U" : "U" + std::to_string(i % 40);
        (void)db.Execute(
            "insert into datos (numero,ruta,carpeta,archivo,nivel,fecha,largo,tipo,disco,comentario) values "
            "(" +
            number + ",'E:\\" + std::string(i % 50 == 0 ? 3000 : i % 30, 'x') + "','x','f" + number +
            "','1','3','4','Archivo','" + unit + " :','" + std::string(i % 90 == 0 ? 30'000 : 5, 'n') + "')");
    }
    (void)db.CommitTrans();
}

// Some bits flipped, pages put in each other's place or over each other, pointers and counts near the start
// of a page made others, the end cut off.
void hurt(std::string& bytes, test::Random& random) {
    constexpr std::size_t page = 8192;
    if (bytes.size() < page) return;
    const auto somePage = [&] { return random(bytes.size() / page) * page; };
    for (std::size_t faults = 1 + random(20); faults > 0; --faults) {
        const std::size_t at = random(4) ? random(bytes.size()) : somePage() + random(64);
        const std::size_t from = somePage(), to = somePage();
        switch (random(16)) {
            case 0:
                std::swap_ranges(&bytes[from], &bytes[from] + page, &bytes[to]);
                break;
            case 1:
                bytes.replace(to, page, std::string(bytes, from, page));
                break;
            case 2:
                bytes.replace(to + random(40), 4, std::string(bytes, from + random(40), 4));
                break;
            default:
                bytes[std::min(at, bytes.size() - 1)] ^= static_cast<char>(1 << random(8));
        }
    }
    if (random(4) == 0) bytes.resize(random(bytes.size()));
}

// A damaged catalogue, with a journal beside it or without: reading ends in rows or an error, and what a
// repair calls repaired is sound.
struct WhatIsCalledRepairedIsSound : test::Fuzz {
    WhatIsCalledRepairedIsSound() {
        engine::CreateDatabase(path).value();
        fill(path);
        whole = test::readFile(path);
        test::inTheMidstOfAChange(
            path, [] {}, "update datos set archivo = archivo || ruta");
        changed = test::readFile(path);
        wayBack = test::readFile(journal);
    }

    void round(test::Random& random) {
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            std::filesystem::remove(entry);
        const bool interrupted = random(2) == 0;
        std::string file = interrupted ? changed : whole, beside = wayBack;
        if (!interrupted || random(3) != 0) hurt(file, random);
        if (interrupted && random(2) == 0) hurt(beside, random);
        test::writeFile(path, file);
        if (interrupted) test::writeFile(journal, beside);
        useAll(path);
        if (!engine::RepairDatabase(path)) return;
        ++useful;
        useAll(path);
        const auto check = engine::CheckDatabase(path);
        ASSERT_TRUE(check) << check.error().text;
        ASSERT_EQ(check->faults, std::vector<std::string>());
    }

    const test::TemporaryFolder folder;
    const std::string path = folder / "a.zrq", journal = path + "-journal";
    std::string whole, changed, wayBack;
};
FUZZED(WhatIsCalledRepairedIsSound, 30)

}  // namespace
