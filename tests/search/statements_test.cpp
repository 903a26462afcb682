#include "search/statements.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>

#include "search/statement_rows.h"

namespace {

using namespace search;

const StatementValues placeholders{"{T}", "{U}", "{N}", "{D1}", "{D2}", "{S1}", "{S2}"};

// Every statement under "ROW<TAB>INDEX".
std::map<std::string, std::string> allStatements() {
    std::map<std::string, std::string> statements;
    for (const StatementRow& row : allRows()) {
        int index = 0;
        for (const std::string& sql : statementsOf(row, placeholders))
            statements[nameOf(row) + "\t" + std::to_string(++index)] = sql;
    }
    return statements;
}

long occurrences(std::string_view what) {
    long count = 0;
    for (const auto& [row, sql] : allStatements())
        for (std::size_t at = sql.find(what); at != std::string::npos; at = sql.find(what, at + 1)) ++count;
    return count;
}

TEST(Statements, NumberOfRowsAndSpellings) {
    EXPECT_EQ(allRows().size(), 144u);
    EXPECT_EQ(allStatements().size(), 204u);
    EXPECT_EQ(std::ranges::count_if(allRows(), isSplit), 16);
    EXPECT_EQ(occurrences("{D1})and({D2})and"), 77);
    EXPECT_EQ(occurrences("{D1})and({D2}) and"), 10);
    EXPECT_EQ(occurrences("archivo like ('*"), 54);
    EXPECT_EQ(occurrences("or where"), 1);
    EXPECT_EQ(occurrences("{S2}) fecha"), 2);
}

TEST(Statements, EqualTheListWrittenByHand) {
    std::ifstream file(STATEMENTS_EXPECTED);
    ASSERT_TRUE(file) << STATEMENTS_EXPECTED;
    auto statements = allStatements();
    std::string line;
    while (std::getline(file, line)) {
        if (line.empty() || line.starts_with('#')) continue;
        const std::size_t tab = line.rfind('\t');
        ASSERT_NE(tab, std::string::npos) << line;
        const std::string key = line.substr(0, tab);
        ASSERT_TRUE(statements.contains(key)) << key;
        EXPECT_EQ(statements[key], line.substr(tab + 1)) << key;
        statements.erase(key);
    }
    for (const auto& [key, sql] : statements) ADD_FAILURE() << "not in the list: " << key;
}

}  // namespace
