#include "engine/file/sql_functions.h"

#include <sqlite3.h>

#include <new>
#include <string>

#include "engine/text/collation.h"
#include "engine/text/folding.h"
#include "engine/text/like_pattern.h"

namespace engine {

namespace {

// SQLite must not be left by an exception.
template <void (*function)(sqlite3_context*, sqlite3_value**)>
void guardedFunction(sqlite3_context* context, int, sqlite3_value** arguments) {
    try {
        function(context, arguments);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

void likeFunction(sqlite3_context* context, sqlite3_value** arguments) {
    const auto* pattern =
        static_cast<const LikePattern*>(sqlite3_value_pointer(arguments[1], patternPointerType));
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(arguments[0]));
    if (!pattern || !text) return sqlite3_result_null(context);
    sqlite3_result_int(context,
                       pattern->matches({text, static_cast<std::size_t>(sqlite3_value_bytes(arguments[0]))}));
}

// What `order by` sorts by. A null stays one.
void sortKeyFunction(sqlite3_context* context, sqlite3_value** arguments) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(arguments[0]));
    if (!text) return sqlite3_result_null(context);
    std::string key;
    const auto size = static_cast<std::size_t>(sqlite3_value_bytes(arguments[0]));
    if (const auto made = appendSortKey(key, {text, size}); !made)
        return sqlite3_result_error(context, made.error().text.c_str(), -1);
    sqlite3_result_blob64(context, key.data(), key.size(), SQLITE_TRANSIENT);
}

int collateFolded(void*, int sizeA, const void* a, int sizeB, const void* b) {
    return compareFolded({static_cast<const char*>(a), static_cast<std::size_t>(sizeA)},
                         {static_cast<const char*>(b), static_cast<std::size_t>(sizeB)});
}

}  // namespace

int registerFunctions(sqlite3* database) {
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY;
    int code = sqlite3_create_function(database, "engine_like", 2, flags, nullptr,
                                       guardedFunction<likeFunction>, nullptr, nullptr);
    if (code == SQLITE_OK) {
        code = sqlite3_create_collation(database, "engine_folded", SQLITE_UTF8, nullptr, collateFolded);
    }
    if (code == SQLITE_OK) {
        code = sqlite3_create_function(database, "engine_sort_key", 1, flags, nullptr,
                                       guardedFunction<sortKeyFunction>, nullptr, nullptr);
    }
    return code;
}

}  // namespace engine
