#include "search/statements.h"

#include <algorithm>

#include "search/statement_rows.h"
#include "support/statement_list.h"

namespace {

using namespace search;

const StatementValues placeholders{"{T}", "{U}", "{N}", "{D1}", "{D2}", "{S1}", "{S2}"};

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
