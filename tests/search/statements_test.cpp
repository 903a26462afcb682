#include "search/statements.h"

#include <algorithm>

#include "search/statement_row.h"
#include "support/statement_list.h"

namespace {

using namespace search;

const StatementValues placeholders{"{T}", "{U}", "{N}", "{D1}", "{D2}", "{S1}", "{S2}"};

// All combinations that have a statement of their own.
std::vector<StatementRow> allRows() {
    std::vector<StatementRow> rows;
    for (const Family family : {Family::Name, Family::Size, Family::Note, Family::SizeNote})
        for (const Case criteria : {Case::A, Case::B, Case::C, Case::D})
            for (const PassKind pass : {PassKind::Folder, PassKind::File})
                for (const bool date : {false, true})
                    for (const FileType type : fileTypes)
                        if (choosesType(criteria) != (type == FileType::All) &&
                            !(choosesType(criteria) && pass == PassKind::Folder))
                            rows.push_back({family, criteria, pass, date, type});
    return rows;
}

// "size+note/D/file/on/web".
std::string nameOf(const StatementRow& row) {
    constexpr const char *families[]{"name", "size", "note", "size+note"}, *cases[]{"A", "B", "C", "D"},
        *types[]{"all", "audio", "picture", "video", "application", "text", "web", "zipped"};
    return std::string(families[static_cast<int>(row.family)]) + "/" + cases[static_cast<int>(row.criteria)] +
           (row.pass == PassKind::Folder ? "/folder" : "/file") + (row.date ? "/on/" : "/off/") +
           types[static_cast<int>(row.type)];
}

// Every statement by its row and its place within it.
test::Statements searchStatements() {
    test::Statements statements;
    for (const StatementRow& row : allRows()) {
        int index = 0;
        for (const std::string& sql : statementsOf(row, placeholders))
            statements[nameOf(row) + "\t" + std::to_string(++index)] = sql;
    }
    return statements;
}

TEST(Statements, StandInTheList) {
    EXPECT_EQ(allRows().size(), 144u);
    EXPECT_EQ(searchStatements().size(), 204u);
    EXPECT_EQ(std::ranges::count_if(allRows(), isSplit), 16);
    test::expectListed(searchStatements(), ZARQUELIN_TESTS "/search/statements_expected.tsv");
}

}  // namespace
