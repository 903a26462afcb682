#include "search/typed_text.h"

#include "core/serial_date.h"
#include "search/search_request.h"

namespace search {

std::string steppedSize(std::string_view text, double step) {
    return core::pointedDecimalText(numericValue(text) + step);
}

}  // namespace search
