#include "platform/jet/query.h"

namespace jet {

Result<std::shared_ptr<const Statement>> ShapeCache::find(const std::string& shape) {
    if (const auto found = m_shapes.find(shape); found != m_shapes.end()) return found->second;
    auto parsed = parseShape(shape);
    if (!parsed) return std::unexpected(parsed.error());
    if (m_shapes.size() >= mostKept) m_shapes.clear();
    return m_shapes[shape] = std::make_shared<const Statement>(std::move(*parsed));
}

}  // namespace jet
