#include "engine/dialect/parser.h"

#include <algorithm>

#include "engine/dialect/literals.h"
#include "engine/dialect/tokens.h"
#include "engine/text/folding.h"

namespace engine {

namespace {

constexpr int deepestNesting = 64;

// The reserved words that cannot be names.
constexpr std::string_view reserved[] = {
    "select", "insert", "update", "delete", "from", "into", "values", "set",  "where",   "group", "order",
    "by",     "and",    "or",     "not",    "like", "in",   "is",     "null", "between", "asc",   "desc"};

bool isReserved(std::string_view word) {
    return std::any_of(std::begin(reserved), std::end(reserved),
                       [word](std::string_view one) { return equalFolded(one, word); });
}

bool contains(const std::vector<Column>& list, Column column) {
    return std::find(list.begin(), list.end(), column) != list.end();
}

// Recursive descent. The first mistake is kept and everything after it fails: `false` runs up to the top.
class Parser {
  public:
    explicit Parser(std::string_view shape) : m_tokens(tokensOf(shape)) {}

    Result<Statement> parse() {
        const bool understood = parseStatement() && parseEnd();
        if (!understood)
            return std::unexpected(syntaxError(token().literal < 0 ? token().text : "a literal"));
        if (m_unknown.number != 0) return std::unexpected(m_unknown);
        return std::move(m_statement);
    }

  private:
    [[nodiscard]] const Token& token() const { return m_tokens[m_at]; }
    [[nodiscard]] bool atWord(std::string_view word) const {
        return token().kind == Token::Word && equalFolded(token().text, word);
    }
    [[nodiscard]] bool atSign(std::string_view sign) const {
        return token().kind == Token::Sign && token().text == sign;
    }
    bool takeWord(std::string_view word) { return atWord(word) && advance(); }
    bool takeSign(std::string_view sign) { return atSign(sign) && advance(); }
    bool advance() {
        ++m_at;
        return true;
    }

    bool parseEnd() {
        while (takeSign(";")) {
        }
        return token().kind == Token::End;
    }

    bool parseStatement() {
        if (takeWord("select")) return parseSelect();
        if (takeWord("insert")) return parseInsert();
        if (takeWord("update")) return parseUpdate();
        if (takeWord("delete")) return parseDelete();
        return false;
    }

    bool parseSelect() {
        m_statement.kind = Statement::Select;
        if (takeSign("*")) {
            for (std::size_t i = 0; i < columns.size(); ++i)
                m_statement.fields.push_back(static_cast<Column>(i));
        } else {
            std::vector<Column> fields;
            if (!parseColumns(fields)) return false;
            for (const Column field : fields) {
                if (!contains(m_statement.fields, field)) m_statement.fields.push_back(field);
            }
        }
        return takeWord("from") && parseTable() && parseWhere() && parseGroupBy() && parseOrderBy();
    }

    bool parseInsert() {
        m_statement.kind = Statement::Insert;
        std::vector<Column> targets;
        std::vector<Operand> values;
        if (!takeWord("into") || !parseTable() || !takeSign("(") || !parseColumns(targets) ||
            !takeSign(")") || !takeWord("values") || !takeSign("(") ||
            !parseList(values, &Parser::parseValue) || !takeSign(")")) {
            return false;
        }
        if (targets.size() != values.size()) {
            m_unknown = {error::general, "The numbers of values and columns of an insert differ"};
            return true;
        }
        for (std::size_t i = 0; i < targets.size(); ++i)
            m_statement.assignments.push_back({targets[i], values[i]});
        return true;
    }

    bool parseUpdate() {
        m_statement.kind = Statement::Update;
        return parseTable() && takeWord("set") &&
               parseList(m_statement.assignments, &Parser::parseAssignment) && parseWhere();
    }

    bool parseDelete() {
        m_statement.kind = Statement::Delete;
        (void)takeSign("*");
        return takeWord("from") && parseTable() && parseWhere();
    }

    bool parseTable() {
        if (token().kind != Token::Word || isReserved(token().text)) return false;
        if (!equalFolded(token().text, tableName)) {
            m_unknown = {error::unknownTable, "There is no table " + std::string(token().text)};
        }
        return advance();
    }

    template <class Item>
    bool parseList(std::vector<Item>& list, bool (Parser::*parseItem)(Item&)) {
        do {
            Item item{};
            if (!(this->*parseItem)(item)) return false;
            list.push_back(std::move(item));
        } while (takeSign(","));
        return true;
    }

    bool parseColumns(std::vector<Column>& list) { return parseList(list, &Parser::parseColumn); }

    // A name that is no column is told only when the whole statement is sound otherwise.
    bool parseColumn(Column& column) {
        if (token().kind != Token::Word || isReserved(token().text)) return false;
        if (const auto known = columnNamed(token().text)) {
            column = *known;
        } else if (m_unknown.number == 0) {
            m_unknown = {error::unknownName, "There is no column " + std::string(token().text)};
        }
        return advance();
    }

    bool parseAssignment(Assignment& assignment) {
        return parseColumn(assignment.column) && takeSign("=") && parseValue(assignment.value);
    }

    bool parseWhere() {
        if (!takeWord("where")) return true;
        Condition condition;
        if (!parseOr(condition)) return false;
        m_statement.where = std::move(condition);
        return true;
    }

    bool parseGroupBy() {
        if (!takeWord("group")) return true;
        return takeWord("by") && parseColumns(m_statement.groupBy) && groupedFieldsAreGrouped();
    }

    [[nodiscard]] bool groupedFieldsAreGrouped() const {
        const auto& grouped = m_statement.groupBy;
        return std::all_of(m_statement.fields.begin(), m_statement.fields.end(),
                           [&](Column field) { return contains(grouped, field); });
    }

    bool parseOrderBy() {
        if (!takeWord("order")) return true;
        return takeWord("by") && parseList(m_statement.orderBy, &Parser::parseOrdering);
    }

    bool parseOrdering(Ordering& ordering) {
        if (!parseColumn(ordering.column)) return false;
        ordering.descending = takeWord("desc");
        if (!ordering.descending) (void)takeWord("asc");
        return true;
    }

    bool parseOr(Condition& out) { return parseJoined(out, Condition::Or, "or", &Parser::parseAnd); }
    bool parseAnd(Condition& out) { return parseJoined(out, Condition::And, "and", &Parser::parseNot); }

    bool parseJoined(Condition& out, Condition::Kind kind, std::string_view word,
                     bool (Parser::*parsePart)(Condition&)) {
        std::vector<Condition> parts;
        do {
            if (!(this->*parsePart)(parts.emplace_back())) return false;
        } while (takeWord(word));
        if (parts.size() == 1) {
            out = Condition(std::move(parts.front()));
        } else {
            out = {kind, std::move(parts), {}};
        }
        return true;
    }

    bool parseNot(Condition& out) {
        if (!takeWord("not")) return parsePredicate(out);
        Condition inner;
        if (!enter() || !parseNot(inner)) return false;
        leave();
        out = negated(std::move(inner));
        return true;
    }

    static Condition negated(Condition inner) {
        Condition outer{Condition::Not, {}, {}};
        outer.children.push_back(std::move(inner));
        return outer;
    }

    bool parsePredicate(Condition& out) {
        if (atSign("(") && !parenthesesHoldValue()) {
            if (!enter() || !advance() || !parseOr(out) || !takeSign(")")) return false;
            leave();
            return true;
        }
        out.operands.resize(1);
        return parseValue(out.operands.front()) && parseTest(out);
    }

    // Whether the parentheses that open here enclose a mere value, as in `(disco) = ...`, or a condition.
    [[nodiscard]] bool parenthesesHoldValue() const {
        std::size_t at = m_at;
        int open = 0;
        for (; m_tokens[at].text == "("; ++at) ++open;
        if (m_tokens[at].text == "-") ++at;
        if (m_tokens[at].kind == Token::End) return false;
        for (++at; m_tokens[at].text == ")"; ++at) --open;
        return open <= 0;
    }

    bool parseTest(Condition& out) {
        static constexpr std::pair<std::string_view, Condition::Kind> comparisons[] = {
            {"=", Condition::Equal},        {"<>", Condition::Unequal}, {"<", Condition::Less},
            {"<=", Condition::LessOrEqual}, {">", Condition::Greater},  {">=", Condition::GreaterOrEqual}};
        for (const auto& [sign, kind] : comparisons) {
            if (!takeSign(sign)) continue;
            out.kind = kind;
            return parseValue(out.operands.emplace_back());
        }
        if (takeWord("is")) return parseIsNull(out);
        const bool negative = takeWord("not");
        if (!parseWordTest(out)) return false;
        if (negative) out = negated(std::move(out));
        return true;
    }

    bool parseWordTest(Condition& out) {
        if (takeWord("like")) {
            out.kind = Condition::Like;
            return parseValue(out.operands.emplace_back()) && out.operands.back().kind == Operand::Text;
        }
        if (takeWord("between")) {
            out.kind = Condition::Between;
            return parseValue(out.operands.emplace_back()) && takeWord("and") &&
                   parseValue(out.operands.emplace_back());
        }
        if (takeWord("in")) {
            out.kind = Condition::In;
            return takeSign("(") && parseList(out.operands, &Parser::parseValue) && takeSign(")");
        }
        return false;
    }

    bool parseIsNull(Condition& out) {
        out.kind = Condition::IsNull;
        const bool negative = takeWord("not");
        if (!takeWord("null")) return false;
        if (negative) out = negated(std::move(out));
        return true;
    }

    bool parseValue(Operand& out) {
        if (takeSign("(")) {
            if (!enter() || !parseValue(out) || !takeSign(")")) return false;
            leave();
            return true;
        }
        out.negative = takeSign("-");
        switch (token().kind) {
            case Token::Number:
                return takeLiteral(out, Operand::Number);
            case Token::Text:
                return !out.negative && takeLiteral(out, Operand::Text);
            case Token::Word:
                break;
            default:
                return false;
        }
        if (out.negative) return false;
        if (takeWord("null")) {
            out.kind = Operand::Null;
            return true;
        }
        out.kind = Operand::Field;
        return parseColumn(out.column);
    }

    bool takeLiteral(Operand& out, Operand::Kind kind) {
        out.kind = kind;
        out.literal = token().literal;
        return advance();
    }

    bool enter() { return ++m_depth <= deepestNesting; }
    void leave() { --m_depth; }

    std::vector<Token> m_tokens;
    std::size_t m_at = 0;
    int m_depth = 0;
    Statement m_statement;
    Error m_unknown{0, {}};
};

}  // namespace

Result<Statement> parseShape(std::string_view shape) {
    return Parser(shape).parse();
}

}  // namespace engine
