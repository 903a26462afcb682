#include "platform/jet/units.h"

namespace jet {

const std::vector<std::string>& Units::spellings() {
    const auto version = m_connection.version();
    if (!version || m_version != *version) {
        read();
        m_version = version ? std::optional(*version) : std::nullopt;
    }
    return m_spellings;
}

void Units::read() {
    m_spellings.clear();
    auto next = m_connection.prepare("select disco from datos where disco > ? order by disco limit 1");
    if (!next) return;
    next->bind(0, std::string_view());
    // A unit with the empty name would stand before the first step.
    if (auto empty = m_connection.prepare("select 1 from datos where disco = '' limit 1");
        empty && empty->step() == Prepared::Step::Row) {
        m_spellings.emplace_back();
    }
    while (next->step() == Prepared::Step::Row) {
        m_spellings.emplace_back(next->text(0));
        next->reset();
        next->bind(0, std::string_view(m_spellings.back()));
    }
}

}  // namespace jet
