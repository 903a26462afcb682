#include "cli/search_options.h"

#include <QUtf8StringView>
#include <algorithm>
#include <charconv>
#include <chrono>

#include "core/serial_date.h"
#include "core/text.h"
#include "engine/error.h"
#include "platform/names.h"
#include "search/refusal.h"

namespace cli {
namespace {

using search::SearchRequest;

constexpr core::Bilingual unknownType{"--type es audio, picture, video, application, text, web o zipped",
                                      "--type is audio, picture, video, application, text, web or zipped"};
constexpr core::Bilingual halfRange{"--from va con --to, y --min-kb con --max-kb",
                                    "--from goes with --to, and --min-kb with --max-kb"};
constexpr core::Bilingual reversedRange{"el intervalo está al revés", "the range is reversed"};
constexpr core::Bilingual wrongDate{"las fechas se escriben AAAA-MM-DD", "dates are written YYYY-MM-DD"};
constexpr core::Bilingual wrongSize{"los tamaños son números enteros de KB", "sizes are whole numbers of KB"};

using Checked = std::expected<void, Complaint>;

// What is looked for may hold any letter; as in the rows, an apostrophe is an accent and a stray byte an
// escape.
std::string asStored(const std::string& text) {
    return core::withoutApostrophes(QUtf8StringView(text).isValidUtf8() ? text
                                                                        : platform::toStoredName(text));
}

Checked readTexts(SearchRequest& request, const Arguments& arguments) {
    request.name = asStored(arguments.operands.back());
    if (request.name.empty()) return std::unexpected(Complaint{search::messages::itemForName, {}});
    if (const auto note = arguments.value("--note")) {
        request.note = true;
        request.noteText = asStored(*note);
        if (note->empty()) return std::unexpected(Complaint{search::messages::noteOnButton, {}});
    }
    return {};
}

// In the order of search::fileTypes, which begins with all of them.
Checked readType(SearchRequest& request, const Arguments& arguments, const core::Rotulos& rotulos) {
    const auto name = arguments.value("--type");
    if (!name) return {};
    std::size_t number = 1;
    for (std::string_view rest = searchTypes; !rest.empty(); ++number) {
        const std::string_view word = rest.substr(0, rest.find('|'));
        if (word == *name) {
            request.type = captionOf(search::fileTypes[number], rotulos);
            return {};
        }
        rest.remove_prefix(std::min(word.size() + 1, rest.size()));
    }
    return std::unexpected(Complaint{unknownType, *name});
}

template <class Number>
std::optional<Number> wholeNumber(std::string_view text) {
    Number value = 0;
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, value);
    return error == std::errc{} && rest == end ? std::optional(value) : std::nullopt;
}

// The serial number of a day written YYYY-MM-DD.
std::expected<double, Complaint> dayOf(const std::string& text) {
    const std::string_view digits(text);
    if (text.size() == 10 && text[4] == '-' && text[7] == '-') {
        const auto year = wholeNumber<unsigned>(digits.substr(0, 4));
        const auto month = wholeNumber<unsigned>(digits.substr(5, 2));
        const auto day = wholeNumber<unsigned>(digits.substr(8, 2));
        using namespace std::chrono;
        if (year && month && day && *year > 0 &&
            year_month_day(std::chrono::year(int(*year)), std::chrono::month(*month), std::chrono::day(*day))
                .ok())
            return core::serialOfDate(int(*year), int(*month), int(*day));
    }
    return std::unexpected(Complaint{wrongDate, text});
}

Checked readDates(SearchRequest& request, const Arguments& arguments) {
    if (arguments.has("--from") != arguments.has("--to")) return std::unexpected(Complaint{halfRange, {}});
    if (!arguments.has("--from")) return {};
    request.from = TRY(dayOf(*arguments.value("--from")));
    request.until = TRY(dayOf(*arguments.value("--to")));
    if (request.from > request.until) return std::unexpected(Complaint{reversedRange, "--from, --to"});
    request.date = true;
    return {};
}

Checked readSizes(SearchRequest& request, const Arguments& arguments) {
    if (arguments.has("--min-kb") != arguments.has("--max-kb"))
        return std::unexpected(Complaint{halfRange, {}});
    if (!arguments.has("--min-kb")) return {};
    request.size = true;
    request.minimum = *arguments.value("--min-kb");
    request.maximum = *arguments.value("--max-kb");
    const auto minimum = wholeNumber<std::int64_t>(request.minimum);
    const auto maximum = wholeNumber<std::int64_t>(request.maximum);
    if (!minimum) return std::unexpected(Complaint{wrongSize, request.minimum});
    if (!maximum) return std::unexpected(Complaint{wrongSize, request.maximum});
    if (*minimum > *maximum) return std::unexpected(Complaint{reversedRange, "--min-kb, --max-kb"});
    return {};
}

}  // namespace

std::expected<SearchRequest, Complaint> searchRequestOf(const Arguments& arguments,
                                                        const core::Rotulos& rotulos) {
    SearchRequest request = search::requestFor({}, rotulos);
    for (const Checked& step : {readTexts(request, arguments), readType(request, arguments, rotulos),
                                readDates(request, arguments), readSizes(request, arguments)})
        TRY(step);
    return request;
}

}  // namespace cli
