#include <algorithm>
#include <charconv>
#include <chrono>
#include <expected>
#include <string>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/output.h"
#include "cli/row_output.h"
#include "core/serial_date.h"
#include "core/text.h"
#include "core/unit_kinds.h"
#include "search/search_messages.h"
#include "search/search_run.h"
#include "search/typed_text.h"

namespace cli {
namespace {

using search::SearchRequest;

constexpr core::Bilingual notTypeable{"contiene un carácter no permitido",
                                      "holds a character that is not allowed"};
constexpr core::Bilingual unknownType{"--type es audio, picture, video, application, text, web o zipped",
                                      "--type is audio, picture, video, application, text, web or zipped"};
constexpr core::Bilingual halfRange{"--from va con --to, y --min-kb con --max-kb",
                                    "--from goes with --to, and --min-kb with --max-kb"};
constexpr core::Bilingual wrongDate{"las fechas se escriben AAAA-MM-DD", "dates are written YYYY-MM-DD"};
constexpr core::Bilingual wrongSize{"los tamaños son números de KB", "sizes are numbers of KB"};

// What is wrong with the command line; its subject may be empty.
struct Complaint {
    core::Bilingual reason;
    std::string subject;
};
using Checked = std::expected<void, Complaint>;

// In the order of search::fileTypes, which begins with all of them.
constexpr std::string_view typeNames[]{"audio", "picture", "video", "application", "text", "web", "zipped"};

Checked readTexts(SearchRequest& request, const Arguments& arguments) {
    request.name = arguments.operands[1];
    if (request.name.empty()) return std::unexpected(Complaint{search::messages::itemForName, {}});
    if (const auto unit = arguments.value("--unit")) request.unit = *unit + std::string(core::unitSuffix);
    if (const auto note = arguments.value("--note")) {
        request.note = true;
        request.noteText = *note;
        if (note->empty()) return std::unexpected(Complaint{search::messages::noteOnButton, {}});
    }
    for (const std::string& text : {request.name, arguments.value("--unit").value_or(""), request.noteText})
        if (!canBeTyped(text, search::nameCharacters)) return std::unexpected(Complaint{notTypeable, text});
    return {};
}

Checked readType(SearchRequest& request, const Arguments& arguments, const core::Rotulos& rotulos) {
    const auto name = arguments.value("--type");
    if (!name) return {};
    const auto found = std::ranges::find(typeNames, *name);
    if (found == std::end(typeNames)) return std::unexpected(Complaint{unknownType, *name});
    request.type = captionOf(search::fileTypes[1 + std::size_t(found - std::begin(typeNames))], rotulos);
    return {};
}

// The serial number of a day written YYYY-MM-DD.
std::expected<double, Complaint> dayOf(const std::string& text) {
    const auto number = [&](std::size_t at, std::size_t length) {
        int value = 0;
        const char* end = text.data() + at + length;
        const auto [rest, error] = std::from_chars(text.data() + at, end, value);
        return error == std::errc{} && rest == end ? value : -1;
    };
    if (text.size() == 10 && text[4] == '-' && text[7] == '-') {
        const int year = number(0, 4), month = number(5, 2), day = number(8, 2);
        using namespace std::chrono;
        if (year > 0 && month > 0 && day > 0 &&
            year_month_day(std::chrono::year(year), std::chrono::month(unsigned(month)),
                           std::chrono::day(unsigned(day)))
                .ok())
            return core::serialOfDate(year, month, day);
    }
    return std::unexpected(Complaint{wrongDate, text});
}

Checked readDates(SearchRequest& request, const Arguments& arguments) {
    if (arguments.has("--from") != arguments.has("--to")) return std::unexpected(Complaint{halfRange, {}});
    if (!arguments.has("--from")) return {};
    const auto from = dayOf(*arguments.value("--from"));
    if (!from) return std::unexpected(from.error());
    const auto until = dayOf(*arguments.value("--to"));
    if (!until) return std::unexpected(until.error());
    request.date = true;
    request.from = *from;
    request.until = *until;
    return {};
}

Checked readSizes(SearchRequest& request, const Arguments& arguments) {
    if (arguments.has("--min-kb") != arguments.has("--max-kb"))
        return std::unexpected(Complaint{halfRange, {}});
    if (!arguments.has("--min-kb")) return {};
    request.size = true;
    request.minimum = *arguments.value("--min-kb");
    request.maximum = *arguments.value("--max-kb");
    for (const std::string& text : {request.minimum, request.maximum}) {
        // A minus can't be typed in the window, but its step buttons go below zero.
        const std::string_view digits = std::string_view(text).substr(text.starts_with('-') ? 1 : 0);
        if (digits.empty() || !canBeTyped(digits, search::sizeCharacters))
            return std::unexpected(Complaint{wrongSize, text});
    }
    return {};
}

std::expected<SearchRequest, Complaint> readRequest(const Arguments& arguments,
                                                    const core::Rotulos& rotulos) {
    SearchRequest request = search::requestFor({}, rotulos);
    for (const Checked& step : {readTexts(request, arguments), readType(request, arguments, rotulos),
                                readDates(request, arguments), readSizes(request, arguments)})
        if (!step) return std::unexpected(step.error());
    return request;
}

// A line a row: the row as JSON, or its unit, path and kilobytes.
class Printer : public search::ResultSink {
  public:
    explicit Printer(const Invocation& invocation) : m_output(invocation) {}
    void clear() override {}
    void add(const engine::Recordset& rows, const search::Pass&) override {
        ++m_count;
        const core::CatalogRow row = core::readRow(rows);
        if (!m_output.forPrograms(row)) print(plainRow(row));
    }
    [[nodiscard]] int status() const { return m_output.status(m_count > 0); }

  private:
    static std::string plainRow(const core::CatalogRow& row) {
        std::string_view unit = row.disco;
        if (unit.ends_with(core::unitSuffix)) unit.remove_suffix(core::unitSuffix.size());
        return shown(unit) + '\t' + shown(row.archivo ? core::joinPath(row.ruta, *row.archivo) : row.ruta) +
               '\t' + (row.largo ? std::to_string(*row.largo) : std::string()) + '\n';
    }

    RowOutput m_output;
    long long m_count = 0;
};

int runSearch(const Invocation& invocation) {
    const Arguments& arguments = invocation.arguments;
    const core::Rotulos& rotulos = core::rotulos(invocation.language);
    const auto request = readRequest(arguments, rotulos);
    if (!request) {
        const Complaint& complaint = request.error();
        const std::string_view reason = complaint.reason.in(invocation.language);
        return complaint.subject.empty() ? fail(WrongUsage, reason)
                                         : fail(WrongUsage, complaint.subject, reason);
    }
    const auto passes = search::passesOf(*request, rotulos);
    if (arguments.has("--explain")) {
        for (const search::Pass& pass : passes) print(pass.sql + '\n');
        return Done;
    }

    auto database = openCatalogue(arguments.operands[0], engine::Use::ReadOnly);
    if (!database) return UnusableCatalogue;
    Printer printer(invocation);
    search::Counters counters;
    if (const auto done = runPasses(*database, passes, counters, printer); !done)
        return fail(UnusableCatalogue, arguments.operands[0], done.error().text);
    return printer.status();
}

constexpr Option searchOptions[]{
    {"--type",
     "audio|picture|video|application|text|web|zipped",
     {"solo archivos de ese tipo", "only files of that kind"}},
    {"--unit", "NAME", {"solo en esa unidad", "only in that unit"}},
    {"--from", "YYYY-MM-DD", {"cambiado desde ese día", "changed from that day on"}, false, true},
    {"--to", "YYYY-MM-DD", {"y hasta ese", "and up to this one"}},
    {"--min-kb", "N", {"desde esos KB", "from that many KB"}, false, true},
    {"--max-kb", "N", {"y hasta estos", "and up to these"}},
    {"--note", "TEXT", {"con una nota que contiene TEXT", "with a note that holds TEXT"}},
    {"--explain", "", {"muestra las consultas y no hace ninguna", "prints the statements and runs none"}},
    pathsOption,
};

constexpr Command searchTable[]{
    {"search",
     "CAT TEXT",
     {"Busca carpetas y archivos por su nombre; * y ? son comodines.",
      "Looks for folders and files by name; * and ? are wildcards."},
     searchOptions,
     runSearch},
};

}  // namespace

std::span<const Command> searchCommands() {
    return searchTable;
}

}  // namespace cli
