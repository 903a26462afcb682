#include "engine/text/collation.h"

#include <unicode/ucol.h>
#include <unicode/ustring.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>
#include <memory_resource>

#include "platform/utf8.h"

namespace engine {

using platform::isAscii;

namespace {

constexpr const char* spanish = "es";

struct CloseCollator {
    void operator()(UCollator* collator) const { ucol_close(collator); }
};

Error failure(UErrorCode code) {
    return {error::general, std::string("Texts cannot be sorted: ") + u_errorName(code)};
}

// One for all threads, until the end. Failing to open it is not remembered.
Result<const UCollator*> collator() {
    static std::atomic<UCollator*> shared = nullptr;
    if (const UCollator* opened = shared) return opened;
    UErrorCode code = U_ZERO_ERROR;
    std::unique_ptr<UCollator, CloseCollator> fresh(ucol_open(spanish, &code));
    if (U_SUCCESS(code)) ucol_setAttribute(fresh.get(), UCOL_STRENGTH, UCOL_SECONDARY, &code);
    if (U_FAILURE(code)) return std::unexpected(failure(code));
    UCollator* others = nullptr;
    return shared.compare_exchange_strong(others, fresh.get()) ? fresh.release() : others;
}

// In UTF-16; bytes that are no UTF-8 become replacement characters.
Result<> convert(std::string_view text, std::pmr::u16string& out) {
    if (isAscii(text)) {
        out.assign(text.begin(), text.end());
        return {};
    }
    out.resize(text.size());  // no text is longer in UTF-16
    UErrorCode code = U_ZERO_ERROR;
    int32_t size = 0;
    u_strFromUTF8WithSub(out.data(), static_cast<int32_t>(out.size()), &size, text.data(),
                         static_cast<int32_t>(text.size()), 0xFFFD, nullptr, &code);
    if (U_FAILURE(code)) return std::unexpected(failure(code));
    out.resize(static_cast<std::size_t>(size));
    return {};
}

}  // namespace

Result<> appendSortKey(std::string& key, std::string_view text) {
    const UCollator* const rules = TRY(collator());
    std::array<std::byte, 1024> stack;  // enough for a name
    std::pmr::monotonic_buffer_resource memory(stack.data(), stack.size());
    std::pmr::u16string wide(&memory);
    TRY(convert(text, wide));
    const std::size_t begin = key.size();
    const auto fill = [&](std::size_t room) {
        key.resize(begin + room);
        return ucol_getSortKey(rules, wide.data(), static_cast<int32_t>(wide.size()),
                               reinterpret_cast<uint8_t*>(key.data() + begin), static_cast<int32_t>(room));
    };
    const std::size_t guess = 2 * wide.size() + 16;
    auto size = static_cast<std::size_t>(fill(guess));
    if (size > guess) size = static_cast<std::size_t>(fill(size));
    if (size == 0) return std::unexpected(failure(U_MEMORY_ALLOCATION_ERROR));
    key.resize(begin + size);
    return {};
}

}  // namespace engine
