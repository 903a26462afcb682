#include "engine/dialect/query.h"

#include <algorithm>

namespace engine {

Result<std::shared_ptr<const Statement>> StatementReader::read(std::string_view sql) {
    if (sql.size() > longestValue) return std::unexpected(Error{error::general, "The statement is too long"});
    TRY(liftLiterals(sql, m_lifted));
    const std::string& shape = m_lifted.shape;
    if (const auto found = m_shapes.find(shape); found != m_shapes.end()) return found->second;
    Statement statement = TRY(parseShape(shape));
    if (m_shapes.size() >= mostKept) m_shapes.clear();
    const auto same = std::find_if(m_shapes.begin(), m_shapes.end(),
                                   [&](const auto& known) { return *known.second == statement; });
    const auto shared =
        same == m_shapes.end() ? std::make_shared<const Statement>(std::move(statement)) : same->second;
    return m_shapes[shape] = shared;
}

Query::Query(std::shared_ptr<const Statement> statement, const std::vector<Literal>& literals)
    : m_statement(std::move(statement)), m_literals(literals) {
    std::size_t size = 0;
    for (const Literal& literal : literals) size += literal.text.size();
    m_texts.reserve(size);  // so that none moves
    for (Literal& literal : m_literals) {
        const char* const begin = m_texts.data() + m_texts.size();
        m_texts.insert(m_texts.end(), literal.text.begin(), literal.text.end());
        literal.text = {begin, literal.text.size()};
    }
}

}  // namespace engine
