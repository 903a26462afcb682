// What the window does and no command, for the tests that let a program's calls fail:
//
//     window_work save-as CATALOGUE NEW_NAME
//     window_work searches CATALOGUE            several with one memory; prints what all give that end

#include <cstdio>
#include <iostream>
#include <new>
#include <optional>
#include <string>

#include "core/catalogue_file.h"
#include "engine/database.h"

namespace {

engine::Result<std::string> search(const std::string& catalogue, engine::SearchMemory& memory) {
    auto database = engine::OpenDatabase(catalogue, engine::Use::ReadOnly);
    if (!database) return std::unexpected(database.error());
    database->SearchWith(memory);
    auto rows = database->OpenRecordset("select * from datos where archivo like ('*17*') order by archivo");
    if (!rows) return std::unexpected(rows.error());
    std::string answer = std::to_string(rows->RecordCount());
    for (; !rows->Eof(); rows->MoveNext()) answer += '\n' + std::string(rows->Field("archivo").text());
    if (rows->error()) return std::unexpected(*rows->error());
    (void)database->FillMemory();
    return answer;
}

int searches(const std::string& catalogue) {
    engine::SearchMemory memory;
    std::optional<std::string> common;
    for (int i = 0; i < 3; ++i) {
        const auto answer = search(catalogue, memory);
        if (answer && common && *common != *answer) return 1;
        if (answer) common = *answer;
    }
    std::cout << common.value_or("no answer") << '\n';
    return common ? 0 : 3;
}

}  // namespace

int main(int argc, char** argv) try {
    const std::string work = argc > 2 ? argv[1] : "";
    if (work == "searches") return searches(argv[2]);
    if (work != "save-as" || argc != 4) return 2;
    const auto copied = core::copyCatalogue(argv[2], argv[3]);
    if (!copied) std::cerr << copied.error().text << '\n';
    return copied ? 0 : 3;
} catch (const std::bad_alloc&) {
    std::fputs("no memory\n", stdout);
    return 3;
}
