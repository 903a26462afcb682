#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "engine/dialect/literals.h"
#include "engine/dialect/parser.h"

namespace engine {

// Takes statements apart: their literals, and the parsed shape that they share with others. Each shape is
// parsed once, and shapes that say the same share what they say.
class StatementReader {
  public:
    // The literals are those of the statement until the next one is read, and look at its text.
    [[nodiscard]] Result<std::shared_ptr<const Statement>> read(std::string_view sql);
    [[nodiscard]] const std::vector<Literal>& literals() const { return m_lifted.literals; }

  private:
    static constexpr std::size_t mostKept = 1000;
    LiftedStatement m_lifted;
    std::unordered_map<std::string, std::shared_ptr<const Statement>> m_shapes;
};

// One statement that outlives the text it came as.
class Query {
  public:
    Query(std::shared_ptr<const Statement> statement, const std::vector<Literal>& literals);
    Query(Query&&) = default;
    Query& operator=(Query&&) = default;

    [[nodiscard]] const std::shared_ptr<const Statement>& shared() const { return m_statement; }
    [[nodiscard]] const Statement& statement() const { return *m_statement; }
    [[nodiscard]] const std::vector<Literal>& literals() const { return m_literals; }

  private:
    std::shared_ptr<const Statement> m_statement;
    std::vector<char> m_texts;
    std::vector<Literal> m_literals;  // views into m_texts
};

}  // namespace engine
