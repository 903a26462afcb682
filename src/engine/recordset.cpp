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
    m_impl->guarded(true, [this] { return m_impl->moveNext(), true; });
}

long long Recordset::RecordCount() {
    return m_impl->guarded(0LL, [this] { return m_impl->count(); });
}

Value Recordset::Field(std::string_view column) const {
    const auto known = columnNamed(column);
    return known ? Field(*known) : Value();
}

Value Recordset::Field(Column column) const {
    return m_impl->guarded(Value(), [&] { return m_impl->field(column); });
}

const Error* Recordset::error() const {
    return m_impl->failure ? &*m_impl->failure : nullptr;
}

// What is given in place of an answer for which there was no memory.
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
    if (rows) return {};
    auto opened = select.rows();
    if (!opened) return std::unexpected(failure.emplace(opened.error()));
    rows = std::move(*opened);
    return {};
}

Result<> Recordset::Impl::begin() {
    if (rows) return {};
    if (select.statement().orderBy.empty()) return open();
    (void)TRY(select.connection()->version());
    return {};
}

template <class T>
T Recordset::Impl::noted(Result<T> result, T otherwise) {
    if (result) return *result;
    failure = std::move(result.error());
    return otherwise;
}

bool Recordset::Impl::atEnd() {
    if (failure || !select.connection()->isOpen()) return true;
    return counted == 0 || !open() || rows->atEnd();
}

void Recordset::Impl::moveNext() {
    if (atEnd()) return;
    if (auto moved = rows->moveNext(); !moved) failure = std::move(moved.error());
}

Value Recordset::Impl::field(Column column) {
    return atEnd() ? Value() : rows->field(column);
}

long long Recordset::Impl::count() {
    if (failure || !select.connection()->isOpen()) return 0;
    if (!counted && rows) counted = rows->count();
    if (!counted) counted = noted(select.count(), 0LL);
    return *counted;
}

}  // namespace engine
