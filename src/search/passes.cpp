#include "search/passes.h"

#include "core/serial_date.h"
#include "search/row_set.h"
#include "search/statements.h"

namespace search {
namespace {

StatementValues valuesOf(const SearchRequest& request) {
    return {.name = request.name,
            .unit = request.unit,
            .note = request.noteText,
            .from = core::decimalText(request.from),
            .until = core::decimalText(request.until + 1),
            .minimum = core::pointedDecimalText(numericValue(request.minimum)),
            .maximum = core::pointedDecimalText(numericValue(request.maximum))};
}

// Most rows find picture and caption by the file's name, these by the chosen type.
bool showsChosenType(const StatementRow& row) {
    using namespace rows;
    constexpr RowSet sizeAndDate{size | sizeNote, B | D, on};
    return isSplit(row) || sizeAndDate.contains(row);
}

NoteReading noteReadingOf(const StatementRow& row) {
    using namespace rows;
    constexpr RowSet keeping{name, D, anyDate};
    constexpr RowSet ignoring{size, A, anyDate, anyType, folder};
    if (keeping.contains(row)) return NoteReading::Keep;
    return ignoring.contains(row) ? NoteReading::Ignore : NoteReading::Read;
}

void addPasses(std::vector<Pass>& passes, const StatementRow& row, const StatementValues& values) {
    Pass pass;
    pass.kind = row.pass;
    pass.shownType = showsChosenType(row) ? row.type : FileType::All;
    pass.note = noteReadingOf(row);
    pass.silent = row.criteria != Case::A && row.pass == PassKind::File;
    for (std::string& sql : statementsOf(row, values)) {
        pass.sql = std::move(sql);
        passes.push_back(pass);
        pass.addsToCount = true;
    }
}

}  // namespace

std::vector<Pass> passesOf(const SearchRequest& request, const core::Rotulos& rotulos) {
    const StatementValues values = valuesOf(request);
    StatementRow row{familyOf(request), caseOf(request, rotulos), PassKind::File, request.date,
                     FileType::All};
    std::vector<Pass> passes;
    if (choosesType(row.criteria)) {
        const auto type = typeOf(request.type, rotulos);
        if (!type) return passes;
        row.type = *type;
    } else {
        row.pass = PassKind::Folder;
        addPasses(passes, row, values);
        row.pass = PassKind::File;
    }
    addPasses(passes, row, values);
    return passes;
}

}  // namespace search
