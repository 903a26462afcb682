#include "engine/recordset.h"

#include "engine/guarded.h"
#include "engine/recordset_impl.h"

namespace engine {

Recordset::Recordset(std::unique_ptr<Impl> impl) : m_impl(std::move(impl)) {}
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

bool Recordset::Eof() const {
    return m_impl->guarded(true, [this] { return m_impl->atEnd(); });
}

void Recordset::MoveNext() {
    m_impl->guarded(true, [this] {
        if (m_impl->atEnd()) return true;
        if (auto moved = m_impl->rows->moveNext(); !moved) m_impl->failure = std::move(moved.error());
        return true;
    });
}

long long Recordset::RecordCount() {
    return m_impl->guarded(0LL, [this] { return m_impl->count(); });
}

Value Recordset::Field(std::string_view column) const {
    const auto known = columnNamed(column);
    return known ? Field(*known) : Value();
}

Value Recordset::Field(Column column) const {
    return m_impl->guarded(Value(), [&] { return m_impl->atEnd() ? Value() : m_impl->rows->field(column); });
}

const Error* Recordset::error() const {
    return m_impl->failure ? &*m_impl->failure : nullptr;
}

template <class T, class Ask>
T Recordset::Impl::guarded(T otherwise, Ask ask) {
    try {
        return ask();
    } catch (const std::bad_alloc&) {
        failure = outOfMemory();
        return otherwise;
    }
}

Result<> Recordset::Impl::open() {
    if (!rows) rows = TRY(select.rows());
    return {};
}

Result<> Recordset::Impl::begin() {
    if (rows) return {};
    if (select.statement().orderBy.empty()) return open();
    (void)TRY(select.connection()->version());
    return {};
}

bool Recordset::Impl::atEnd() {
    if (failure || !select.connection()->isOpen() || counted == 0) return true;
    if (auto opened = open(); !opened) failure = std::move(opened.error());
    return failure || rows->atEnd();
}

long long Recordset::Impl::count() {
    if (failure || !select.connection()->isOpen()) return 0;
    if (!counted && rows) counted = rows->count();
    if (counted) return *counted;
    if (auto found = select.count())
        counted = *found;
    else
        failure = std::move(found.error());
    return counted.value_or(0);
}

}  // namespace engine
