#include "engine/rows/one_pass.h"

#include <algorithm>

#include "engine/file/read_transaction.h"

namespace engine {

namespace {

// One of the selects of a pass.
struct Part {
    const Select* select;
    std::unique_ptr<Rows>* rows;
    RowSorter sorter;

    [[nodiscard]] const Condition& where() const { return *select->statement().where; }
};

// Writes the parts' conditions, each with its own literals.
void writeEach(SqlWriter& writer, std::span<const Part> parts, std::string_view between) {
    static const UnitNames none;
    for (const Part& part : parts) {
        if (&part != &parts.front()) writer.write(between);
        writer.turnTo(part.select->query().literals(), none);
        writer.writeCondition(part.where());
    }
}

// A row of the pass has its columns, its number, and whether it is one of each part. Where it is of no other
// it must be of the last, whose condition is not tried again.
void writePass(SqlWriter& writer, const RowSorter::Columns& columns, std::span<const Part> parts) {
    const auto others = parts.first(parts.size() - 1);
    writer.write("select ").writeFields(columns);
    writer.write(", rowid");
    for (const Part& part : others) {
        writer.write(", case when ");
        writeEach(writer, {&part, 1}, "");
        writer.write(" then 1 end");
    }
    writer.write(", case when ");
    writeEach(writer, others, " or ");
    writer.write(" then ");
    writeEach(writer, parts.last(1), "");
    writer.write(" else 1 end from datos not indexed where ");
    writeEach(writer, parts, " or ");
}

// Together they take as much memory as one select does. False when the disk does not take what is more.
Result<bool> keepWithin(std::size_t bound, std::vector<Part>& parts) {
    std::size_t bytes = 0;
    for (const Part& part : parts) bytes += part.sorter.bytes();
    if (bytes < bound) return true;
    const auto held = [](const Part& part) { return part.sorter.bytes(); };
    return std::ranges::max_element(parts, {}, held)->sorter.makeRoom();
}

// False when there are more rows than the sorters take.
Result<bool> passOver(Connection& connection, const RowSorter::Columns& columns, std::vector<Part>& parts,
                      std::size_t bound) {
    SqlWriter writer;
    writePass(writer, columns, parts);
    auto rows = TRY(connection.prepare(writer.sql()));
    rows.bind(writer.values());
    const int firstMet = static_cast<int>(columns.size()) + 1;
    while (TRY(rows.next())) {
        for (std::size_t i = 0; i < parts.size(); ++i) {
            if (rows.integer(firstMet + static_cast<int>(i)) == 0) continue;
            if (!TRY(parts[i].sorter.add(rows))) return false;
        }
        if (!TRY(keepWithin(bound, parts))) return false;
    }
    return true;
}

}  // namespace

Result<std::vector<long long>> countTogether(Connection& connection, UnitList& units,
                                             std::span<const Query> selects) {
    const auto oneState = TRY(ReadTransaction::begin(connection));
    SqlWriter writer;
    writer.write("select ");
    for (const Query& select : selects) {
        writer.turnTo(select.literals(), *TRY(units.namesFor(select.statement())));
        writer.write("count(*)");
        if (const auto& where = select.statement().where) {
            writer.write(" filter (where ").writeCondition(*where);
            writer.write(")");
        }
        writer.write(&select == &selects.back() ? " from datos" : ", ");
    }
    auto row = TRY(connection.prepare(writer.sql()));
    row.bind(writer.values());
    TRY(row.answer());
    std::vector<long long> counts(selects.size());
    for (std::size_t i = 0; i < counts.size(); ++i) counts[i] = row.integer(static_cast<int>(i));
    return counts;
}

Result<std::vector<std::unique_ptr<Rows>>> rowsTogether(Connection& connection,
                                                        std::span<const Select* const> selects,
                                                        std::size_t bound) {
    const auto oneState = TRY(ReadTransaction::begin(connection));
    std::vector<std::unique_ptr<Rows>> rows(selects.size());
    std::vector<std::size_t> left;
    for (std::size_t i = 0; i < selects.size(); ++i) {
        if (!selects[i]->isSortedPass()) continue;
        rows[i] = TRY(selects[i]->knownRows());
        if (!rows[i]) left.push_back(i);
    }
    const auto fieldsOf = [&](std::size_t i) { return selects[i]->statement().fields; };
    std::erase_if(left, [&](std::size_t i) { return fieldsOf(i) != fieldsOf(left.front()); });
    if (left.size() < 2) return rows;
    RowSorter::Columns columns;
    for (const std::size_t i : left) RowSorter::addColumns(columns, selects[i]->statement());
    std::vector<Part> parts;
    parts.reserve(left.size());
    for (const std::size_t i : left)
        parts.push_back({selects[i], &rows[i], {selects[i]->statement(), columns, bound}});
    if (TRY(passOver(connection, columns, parts, bound)))
        for (Part& part : parts) *part.rows = TRY(std::move(part.sorter).rows());
    return rows;
}

}  // namespace engine
