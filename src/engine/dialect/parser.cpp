#include "engine/dialect/parser.h"

#include <algorithm>

#include "engine/dialect/condition_parser.h"
#include "engine/dialect/literals.h"

namespace engine {

namespace {

bool contains(const std::vector<Column>& list, Column column) {
    return std::find(list.begin(), list.end(), column) != list.end();
}

// Recursive descent. The first mistake is kept and everything after it fails: `false` runs up to the top.
class Parser {
  public:
    explicit Parser(std::string_view shape) : m_in(shape) {}

    Result<Statement> parse() {
        const bool understood = parseStatement() && parseEnd();
        const Token& near = m_in.token();
        if (!understood) return std::unexpected(syntaxError(near.literal < 0 ? near.text : "a literal"));
        if (m_in.unknown.number != 0) return std::unexpected(m_in.unknown);
        return std::move(m_statement);
    }

  private:
    bool parseEnd() {
        while (m_in.takeSign(";")) {
        }
        return m_in.token().kind == Token::End;
    }

    bool parseStatement() {
        if (m_in.takeWord("select")) return parseSelect();
        if (m_in.takeWord("insert")) return parseInsert();
        if (m_in.takeWord("update")) return parseUpdate();
        if (m_in.takeWord("delete")) return parseDelete();
        return false;
    }

    bool parseSelect() {
        m_statement.kind = Statement::Select;
        if (m_in.takeSign("*")) {
            for (std::size_t i = 0; i < columns.size(); ++i)
                m_statement.fields.push_back(static_cast<Column>(i));
        } else {
            std::vector<Column> fields;
            if (!parseColumns(fields)) return false;
            for (const Column field : fields) {
                if (!contains(m_statement.fields, field)) m_statement.fields.push_back(field);
            }
        }
        return m_in.takeWord("from") && parseTable() && parseWhere() && parseGroupBy() && parseOrderBy();
    }

    bool parseInsert() {
        m_statement.kind = Statement::Insert;
        std::vector<Column> targets;
        std::vector<Operand> values;
        if (!m_in.takeWord("into") || !parseTable() || !m_in.takeSign("(") || !parseColumns(targets) ||
            !m_in.takeSign(")") || !m_in.takeWord("values") || !m_in.takeSign("(") ||
            !m_in.takeList(values, [this](Operand& value) { return parseValue(m_in, value); }) ||
            !m_in.takeSign(")")) {
            return false;
        }
        if (targets.size() != values.size()) {
            m_in.unknown = {error::general, "The numbers of values and columns of an insert differ"};
            return true;
        }
        for (std::size_t i = 0; i < targets.size(); ++i)
            m_statement.assignments.push_back({targets[i], values[i]});
        return true;
    }

    bool parseUpdate() {
        m_statement.kind = Statement::Update;
        return parseTable() && m_in.takeWord("set") &&
               m_in.takeList(m_statement.assignments,
                             [this](Assignment& one) { return parseAssignment(one); }) &&
               parseWhere();
    }

    bool parseDelete() {
        m_statement.kind = Statement::Delete;
        (void)m_in.takeSign("*");
        return m_in.takeWord("from") && parseTable() && parseWhere();
    }

    bool parseTable() {
        if (!m_in.atName()) return false;
        if (!equalFolded(m_in.token().text, tableName)) {
            m_in.unknown = {error::unknownTable, "There is no table " + std::string(m_in.token().text)};
        }
        return m_in.advance();
    }

    bool parseColumns(std::vector<Column>& list) {
        return m_in.takeList(list, [this](Column& column) { return m_in.takeColumn(column); });
    }

    bool parseAssignment(Assignment& assignment) {
        return m_in.takeColumn(assignment.column) && m_in.takeSign("=") && parseValue(m_in, assignment.value);
    }

    bool parseWhere() {
        if (!m_in.takeWord("where")) return true;
        Condition condition;
        if (!parseCondition(m_in, condition)) return false;
        m_statement.where = std::move(condition);
        return true;
    }

    bool parseGroupBy() {
        if (!m_in.takeWord("group")) return true;
        return m_in.takeWord("by") && parseColumns(m_statement.groupBy) && groupedFieldsAreGrouped();
    }

    [[nodiscard]] bool groupedFieldsAreGrouped() const {
        const auto& grouped = m_statement.groupBy;
        return std::all_of(m_statement.fields.begin(), m_statement.fields.end(),
                           [&](Column field) { return contains(grouped, field); });
    }

    bool parseOrderBy() {
        if (!m_in.takeWord("order")) return true;
        return m_in.takeWord("by") &&
               m_in.takeList(m_statement.orderBy, [this](Ordering& one) { return parseOrdering(one); });
    }

    bool parseOrdering(Ordering& ordering) {
        if (!m_in.takeColumn(ordering.column)) return false;
        ordering.descending = m_in.takeWord("desc");
        if (!ordering.descending) (void)m_in.takeWord("asc");
        return true;
    }

    TokenReader m_in;
    Statement m_statement;
};

}  // namespace

Result<Statement> parseShape(std::string_view shape) {
    return Parser(shape).parse();
}

}  // namespace engine
