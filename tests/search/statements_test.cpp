#include "search/statements.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <ranges>

#include "search/statement_rows.h"
#include "search/statement_tables.h"

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

// A spelling that matches no row, or a shape hidden by one before it, is a slip in the tables.
TEST(Statements, EveryTableEntryIsUsed) {
    std::vector<const Shape*> used;
    for (const StatementRow& row : allRows()) {
        const auto shape =
            std::ranges::find_if(shapes(), [&](const Shape& s) { return s.rows.contains(row); });
        ASSERT_NE(shape, shapes().end()) << nameOf(row);
        used.push_back(&*shape);
    }
    for (const Shape& shape : shapes())
        EXPECT_NE(std::ranges::find(used, &shape), used.end()) << shape.branches[0];
    for (const auto table : {changingSpellings(), blankSpellings()})
        for (const Spelling& spelling : table)
            EXPECT_TRUE(std::ranges::any_of(allRows(), [&](const StatementRow& row) {
                return spelling.rows.contains(row) &&
                       std::ssize(extensionsOf(row)) >= spelling.branches.first;
            })) << spelling.text;
}

TEST(Statements, TellingRows) {
    auto statements = allStatements();
    EXPECT_EQ(
        statements["name/D/file/off/zipped\t1"],
        "select * from datos where disco  = ('{U}') and archivo  like ('*{T}*.zip') or disco  = ('{U}') and  "
        "archivo  like ('*{T}*.rar') or disco  = ('{U}') and  archivo  like ('*{T}*.rad') order by numero");
    EXPECT_EQ(statements["size/C/file/on/all\t1"],
              "select * from datos where largo between({S1})and ({S2}) and fecha between({D1})and ({D2})and "
              "disco  = "
              "('{U}') and archivo  Like ('*{T}*')  order by archivo");
    EXPECT_EQ(
        statements["size+note/D/file/on/web\t1"],
        "select * from datos where largo between({S1})and ({S2}) and fecha between({D1})and({D2})and disco  "
        "= "
        "('{U}') and archivo  like ('*{T}*.html')and comentario  Like ('*{N}*') or largo between({S1})and "
        "({S2})and fecha between({D1})and ({D2})and disco  = ('{U}') and  archivo  like ('*{T}*.htm')and "
        "comentario  Like ('*{N}*') or where largo between({S1})and ({S2}) and fecha between({D1})and "
        "({D2})and  "
        "disco  = ('{U}') and  archivo  like ('*{T}*.mht')and comentario  Like ('*{N}*') order by numero");
    EXPECT_EQ(
        statements["note/A/folder/on/all\t1"],
        "select * from datos where fecha between({D1})and ({D2})and carpeta  Like ('*{T}*')and comentario  "
        "Like ('*{N}*') and tipo <>('archivo') order by carpeta ");
    // Without a note of its own this row asks what its neighbour without the note box asks.
    EXPECT_EQ(statements["size+note/D/file/on/application\t1"], statements["size/D/file/on/application\t1"]);
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
