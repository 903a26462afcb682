#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "platform/jet/literals.h"
#include "platform/jet/parser.h"

namespace jet {

// One statement as it came: its text, its literals, and the parsed shape that it shares with others.
struct Query {
    std::string sql;
    LiftedStatement lifted;  // views into `sql`
    std::shared_ptr<const Statement> statement;
};

// Parsed shapes, each parsed once.
class ShapeCache {
  public:
    [[nodiscard]] Result<std::shared_ptr<const Statement>> find(const std::string& shape);

  private:
    static constexpr std::size_t mostKept = 1000;
    std::unordered_map<std::string, std::shared_ptr<const Statement>> m_shapes;
};

}  // namespace jet
