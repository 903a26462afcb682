#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <string>

namespace test {

using Statements = std::map<std::string, std::string>;  // by what they are for

// Holds statements to a list that nothing writes anew: lines of key, tab and text, each with its blanks.
inline void expectListed(Statements statements, const char* path) {
    std::ifstream list(path);
    ASSERT_TRUE(list) << path;
    for (std::string line; std::getline(list, line);) {
        if (line.empty() || line.starts_with('#')) continue;
        const std::size_t tab = line.rfind('\t');
        ASSERT_NE(tab, std::string::npos) << line;
        const std::string key = line.substr(0, tab);
        ASSERT_TRUE(statements.contains(key)) << key;
        EXPECT_EQ(statements[key], line.substr(tab + 1)) << key;
        statements.erase(key);
    }
    for (const auto& [key, sql] : statements) ADD_FAILURE() << "not in the list: " << key << '\t' << sql;
}

}  // namespace test
