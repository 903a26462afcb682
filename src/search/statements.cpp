#include "search/statements.h"

#include <algorithm>

#include "search/statement_tables.h"

namespace search {
namespace {

constexpr std::string_view head = "select * from datos where ";

// A branch's pieces as the row has them.
class Pieces {
  public:
    Pieces(const StatementRow& row, int branch) {
        set(Piece::Order, usualOrder(row));
        for (const auto table : {blankSpellings(), changingSpellings()})
            for (const Spelling& spelling : table)
                if (spelling.rows.contains(row) && spelling.branches.contains(branch))
                    set(spelling.piece, spelling.text);
    }

    std::string_view operator[](Piece piece) const { return m_texts[static_cast<std::size_t>(piece)]; }

  private:
    static std::string_view usualOrder(const StatementRow& row) {
        if (choosesType(row.criteria)) return " order by numero";
        const bool blankAtEnd = row.criteria == Case::A && row.date;
        if (row.pass == PassKind::Folder) return blankAtEnd ? " order by carpeta " : " order by carpeta";
        return blankAtEnd ? " order by archivo " : " order by archivo";
    }

    void set(Piece piece, std::string_view text) { m_texts[static_cast<std::size_t>(piece)] = text; }

    // The usual spellings, in the order of Piece.
    std::array<std::string_view, pieceCount> m_texts{"",
                                                     ") and ",
                                                     ")and (",
                                                     ")and ",
                                                     "disco  = ('",
                                                     "') and ",
                                                     "archivo  like ('*",
                                                     "')",
                                                     "and comentario  Like ('*",
                                                     " or ",
                                                     ""};
};

void join(std::string& text, std::initializer_list<std::string_view> pieces) {
    for (const std::string_view piece : pieces) text += piece;
}

void addClause(std::string& text, char clause, std::string_view extension, const Pieces& pieces,
               const StatementValues& values) {
    switch (clause) {
        case 'L':
            join(text,
                 {"largo between(", values.minimum, ")and (", values.maximum, pieces[Piece::SizeClose]});
            break;
        case 'F':
            join(text, {"fecha between(", values.from, pieces[Piece::DateMiddle], values.until,
                        pieces[Piece::DateClose]});
            break;
        case 'D':
            join(text, {pieces[Piece::UnitOpen], values.unit, pieces[Piece::UnitClose]});
            break;
        case 'C':
            join(text, {"carpeta  Like ('*", values.name, "*')"});
            break;
        case 'A':
            join(text, {"archivo  Like ('*", values.name, "*')"});
            break;
        case 'X':
            join(text, {pieces[Piece::FileOpen], values.name, "*", extension, pieces[Piece::PatternClose]});
            break;
        case 'T':
            text += " and tipo <>('archivo')";
            break;
        case 'N':
            join(text, {pieces[Piece::NoteOpen], values.note, "*')"});
            break;
        default:
            break;
    }
}

const Shape& shapeOf(const StatementRow& row) {
    const auto shape = std::ranges::find_if(shapes(), [&](const Shape& s) { return s.rows.contains(row); });
    return *shape;  // every row has one
}

std::string_view clausesOf(const Shape& shape, int branch) {
    std::size_t index = std::min<std::size_t>(std::size_t(branch), shape.branches.size()) - 1;
    while (shape.branches[index].empty()) --index;
    return shape.branches[index];
}

}  // namespace

std::vector<std::string> statementsOf(const StatementRow& row, const StatementValues& values) {
    const Shape& shape = shapeOf(row);
    std::vector<std::string> statements;
    std::string_view order;
    int branch = 0;
    for (const std::string_view extension : extensionsOf(row)) {
        const Pieces pieces(row, ++branch);
        order = pieces[Piece::Order];
        if (branch > 1 && shape.split) statements.back() += order;
        if (branch == 1 || shape.split)
            statements.emplace_back(head);
        else
            statements.back() += pieces[Piece::Separator];
        std::string& text = statements.back();
        text += pieces[Piece::BranchOpen];
        for (const char clause : clausesOf(shape, branch))
            if (clause != 'F' || row.date) addClause(text, clause, extension, pieces, values);
    }
    statements.back() += order;
    return statements;
}

bool isSplit(const StatementRow& row) {
    return shapeOf(row).split;
}

}  // namespace search
