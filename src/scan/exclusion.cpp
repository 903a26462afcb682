#include "scan/exclusion.h"

#include <fnmatch.h>

#include <algorithm>
#include <clocale>

namespace scan {
namespace {

// Patterns are matched by characters of UTF-8, whatever the program's locale; bytes that are none stand for
// themselves.
class Utf8Locale {
  public:
    Utf8Locale() : m_before(uselocale(utf8())) {}
    ~Utf8Locale() { uselocale(m_before); }
    Utf8Locale(const Utf8Locale&) = delete;
    Utf8Locale& operator=(const Utf8Locale&) = delete;

  private:
    static locale_t utf8() {
        static const locale_t made = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
        return made ? made : LC_GLOBAL_LOCALE;
    }
    locale_t m_before;
};

}  // namespace

bool Exclusion::excludes(const char* diskName) const {
    if (hidden && diskName[0] == '.') return true;
    if (patterns.empty()) return false;
    const Utf8Locale locale;
    return std::ranges::any_of(patterns, [diskName](const std::string& pattern) {
        return fnmatch(pattern.c_str(), diskName, FNM_CASEFOLD) == 0;
    });
}

}  // namespace scan
