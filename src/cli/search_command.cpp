#include <algorithm>
#include <span>
#include <string>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/operands.h"
#include "cli/output.h"
#include "cli/row_output.h"
#include "cli/search_options.h"
#include "core/text.h"
#include "core/unit_name.h"
#include "search/search_run.h"

namespace cli {
namespace {

// A line a row, as it comes: for programs, or the row's unit, path and kilobytes.
class Printer : public search::ResultSink {
  public:
    explicit Printer(const Invocation& invocation) : m_output(invocation) {}

    // The rows that follow are of this catalogue, which is printed before them unless it is the only one, and
    // of this unit alone unless that is empty.
    void begin(const std::string& catalogue, bool isOnly, std::string disco) {
        if (!isOnly) {
            m_output.setCatalogue(catalogue);
            m_prefix = shown(catalogue) + '\t';
        }
        m_disco = std::move(disco);
    }

    void clear() override {}
    void add(const engine::Recordset& rows, const search::Pass&) override {
        core::readRow(rows, m_row);
        if (!m_disco.empty() && m_row.disco != m_disco) return;  // a unit whose name differs in case
        m_foundAny = true;
        if (!m_output.forPrograms(m_row)) printPlain(m_row);
    }
    [[nodiscard]] int status() const { return m_output.status(m_foundAny); }

  private:
    void printPlain(const core::CatalogRow& row) {
        m_line = m_prefix;
        appendShown(m_line, core::unitName(row.disco));
        m_line += '\t';
        appendShown(m_line, core::drivePathOf(row));
        m_line += '\t';
        if (row.largo) m_line += std::to_string(*row.largo);
        m_line += '\n';
        print(m_line);
    }

    RowOutput m_output;
    std::string m_prefix;
    core::CatalogRow m_row;  // it and the line keep their room from row to row
    std::string m_line;
    std::string m_disco;
    bool m_foundAny = false;
};

// What a request asks of one unit; a literal's quotes are doubled where a foreign hand stored some.
search::SearchRequest ofUnit(search::SearchRequest request, std::string_view disco) {
    request.unit = core::replaceAll(std::string(disco), "'", "''");
    return request;
}

int explain(search::SearchRequest request, const Invocation& invocation) {
    if (const auto unit = invocation.arguments.value("--unit"))
        request = ofUnit(std::move(request), core::discoOf(core::withoutApostrophes(*unit)));
    for (const search::Pass& pass : search::passesOf(request, core::rotulos(invocation.language)))
        print(pass.sql + '\n');
    return Done;
}

// Prints what one catalogue holds; gives the status of what went wrong.
int searchIn(const std::string& catalogue, search::SearchRequest request, bool isOnly, Printer& printer,
             const Invocation& invocation) {
    auto database = openCatalogue(catalogue, invocation.language, engine::Use::ReadOnly);
    if (!database) return UnusableCatalogue;
    std::string disco;
    if (const auto unit = invocation.arguments.value("--unit")) {
        const auto isMissing = [](const auto& found) {
            return !found && found.error().kind == core::LookupFailure::Missing;
        };
        if (!isOnly && isMissing(core::findUnit(*database, *unit))) return NothingFound;
        const auto found = unitOperand(*database, catalogue, *unit, invocation);
        if (!found) return found.error();
        disco = *found;
        request = ofUnit(std::move(request), disco);
    }
    printer.begin(catalogue, isOnly, std::move(disco));
    const auto passes = search::passesOf(request, core::rotulos(invocation.language));
    search::FoundCounts counters;
    if (const auto done = runPasses(*database, passes, counters, printer); !done)
        return unusable(catalogue, done.error(), invocation.language);
    return Done;
}

int runSearch(const Invocation& invocation) {
    const auto& operands = invocation.arguments.operands;
    const auto request = searchRequestOf(invocation.arguments, core::rotulos(invocation.language));
    if (!request) {
        const Complaint& complaint = request.error();
        const std::string_view reason = complaint.reason.in(invocation.language);
        return complaint.subject.empty() ? fail(WrongUsage, reason)
                                         : fail(WrongUsage, complaint.subject, reason);
    }
    if (invocation.arguments.has("--explain")) return explain(*request, invocation);

    Printer printer(invocation);
    const std::span catalogues(operands.begin(), operands.end() - 1);
    int worst = Done;
    bool searchedAny = false;
    for (const std::string& catalogue : catalogues) {
        const int status = searchIn(catalogue, *request, catalogues.size() == 1, printer, invocation);
        searchedAny |= status == Done;
        // A unit that only some of the catalogues have is there.
        if (status != NothingFound) worst = std::max(worst, status);
    }
    if (worst != Done) return worst;
    if (!searchedAny && catalogues.size() > 1)
        return fail(NothingFound, *invocation.arguments.value("--unit"), noSuchUnit.in(invocation.language));
    return searchedAny ? printer.status() : NothingFound;
}

constexpr Option searchOptions[]{
    {"--type", searchTypes, {"solo archivos de ese tipo", "only files of that kind"}},
    {"--unit", "NAME", {"solo en esa unidad", "only in that unit"}},
    {"--from", "YYYY-MM-DD", {"cambiado desde ese día", "changed from that day on"}, false, true},
    {"--to", "YYYY-MM-DD", {"y hasta ese", "and up to this one"}},
    {"--min-kb",
     "N",
     {"archivos desde esos KB; carpetas, todas", "files from that many KB; folders have no size and stay"},
     false,
     true},
    {"--max-kb", "N", {"y hasta estos", "and up to these"}},
    {"--note", "TEXT", {"con una nota que contiene TEXT", "with a note that holds TEXT"}},
    {"--explain", "", {"muestra las consultas y no hace ninguna", "prints the statements and runs none"}},
    pathsOption,
};

constexpr Command searchTable[]{
    {"search",
     "CAT... TEXT",
     {"Busca carpetas y archivos por su nombre en uno o varios catálogos; el último argumento es TEXT, en el "
      "que * y ? "
      "son comodines.",
      "Looks for folders and files by name in one catalogue or several; the last argument is TEXT, in which "
      "* and ? are "
      "wildcards."},
     searchOptions,
     runSearch},
};

}  // namespace

std::span<const Command> searchCommands() {
    return searchTable;
}

}  // namespace cli
