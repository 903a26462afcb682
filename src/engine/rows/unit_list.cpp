#include "engine/rows/unit_list.h"

namespace engine {

// A plain union ends where a damaged index leads back to a unit that was met before.
const std::string_view UnitList::sql =
    "select disco from (with recursive unit(disco) as (select (select disco from datos where disco >= '' "
    "and disco < x'' order by disco limit 1) "
    "union select (select disco from datos where disco > unit.disco and disco < x'' order by disco "
    "limit 1) "
    "from unit where unit.disco is not null) "
    "select disco from unit where disco is not null "
    "union all select null where exists (select 1 from datos where disco is null))";

Result<const UnitNames*> UnitList::namesFor(const Statement& statement) {
    static const UnitNames none;
    if (!statement.where || !UnitNames::areAskedBy(*statement.where)) return &none;
    const auto version = m_connection.version();
    if (version && m_names && m_version == *version) return &*m_names;
    m_names.reset();
    m_stretches.clear();
    if (!version) return std::unexpected(version.error());
    UnitNames names = TRY(read());
    m_version = *version;
    return &m_names.emplace(std::move(names));
}

Result<UnitNames> UnitList::read() {
    auto rows = TRY(m_connection.prepare(std::string(sql)));
    UnitNames names;
    while (TRY(rows.next()))
        if (!rows.isNull(0)) names.add(std::string(rows.text(0)));
    return names;
}

}  // namespace engine
