#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/file/connection.h"
#include "engine/rows/known_texts.h"

namespace engine {

// How the rows of the table divide by unit, level and kind: read from the index alone, unit by unit as
// needed, and kept until the file changes. It turns a unit's name into its exact spellings, answers counts
// that ask for nothing else or were taken before, and tells where in the table the rows of a statement can
// lie.
class Census {
  public:
    struct Group {
        KnownTexts::Text nivel;
        KnownTexts::Text tipo;
        long long rows = 0;
        std::int64_t firstRow = 0;
        std::int64_t lastRow = 0;
    };
    struct Unit {
        KnownTexts::Text name;  // null for rows without a unit
        std::optional<std::vector<Group>> groups;
    };
    // The rows that can meet a condition: how many at most, and between which rowids.
    struct Extent {
        long long rows = 0;
        std::int64_t firstRow = 0;
        std::int64_t lastRow = -1;
    };

    explicit Census(Connection& connection) : m_connection(connection) {}

    // Makes sure that what is kept holds for the file as it is now. To be called before each statement.
    [[nodiscard]] Result<> refresh();

    // Takes note that all rows of units that do not meet the condition are gone and the others numbered anew,
    // from 1 on.
    void keepOnly(const Condition& where, const std::vector<Literal>& literals);

    // Of the file at the last refresh.
    [[nodiscard]] long long version() const { return m_version.value_or(-1); }

    // By code point, one for each spelling; a null unit comes first.
    [[nodiscard]] const std::vector<Unit>& units();

    // Takes note of how many rows met a condition, read while the file was of this version.
    void noteCount(const Condition& where, const std::vector<Literal>& literals, long long rows,
                   long long version);
    [[nodiscard]] std::optional<long long> notedCount(const Condition& where,
                                                      const std::vector<Literal>& literals) const;

    // Nothing when the condition asks for more than unit, level and kind and was not noted before, or where
    // another tool has put in values that are no texts.
    [[nodiscard]] std::optional<long long> count(const Condition* where,
                                                 const std::vector<Literal>& literals);

    // Nothing when the condition leaves all units open, or where there are values that are no texts.
    [[nodiscard]] std::optional<Extent> extent(const Condition* where, const std::vector<Literal>& literals);

  private:
    struct Noted {
        Condition where;
        std::vector<std::string> literals;
        long long rows;
    };
    static constexpr std::size_t mostNoted = 8;

    void readUnits();

    // The texts that stand in a column of the index where the columns before it are as the condition, which
    // ends in " and ", says. Null comes first.
    [[nodiscard]] std::vector<KnownTexts::Text> textsOf(std::string_view column, std::string_view condition,
                                                        std::span<const BoundValue> values);
    [[nodiscard]] const std::vector<Group>& groupsOf(Unit& unit);
    [[nodiscard]] std::int64_t firstNumber(const std::string& sql, std::span<const BoundValue> values);

    Connection& m_connection;
    std::optional<long long> m_version;
    std::optional<std::vector<Unit>> m_units;
    std::vector<Noted> m_noted;
    bool m_isComplete = true;  // false once values were met that are no texts, or an index out of order
};

}  // namespace engine
