#include "search/statement_tables.h"

namespace search {
namespace {

using namespace rows;

constexpr unsigned sized = size | sizeNote;

// clang-format off
constexpr Shape shapeTable[] = {
    // Folder rows have no size, so the folder passes don't ask for it.
    {{name | size,     A, anyDate, anyType, folder}, {"FCT"}},
    {{note,            A, anyDate, anyType, folder}, {"FCNT"}},
    {{sizeNote,        A, anyDate, anyType, folder}, {"FCTN"}},
    {{name | size,     C, anyDate, anyType, folder}, {"FDCT"}},
    {{note | sizeNote, C, anyDate, anyType, folder}, {"FDCTN"}},

    {{name,     A, anyDate}, {"FA"}},
    {{note,     A, anyDate}, {"FAN"}},
    {{size,     A, anyDate}, {"LFA"}},
    {{sizeNote, A, anyDate}, {"LFAN"}},
    {{name,     C, anyDate}, {"FDA"}},
    {{note,     C, anyDate}, {"FDAN"}},
    {{size,     C, anyDate}, {"LFDA"}},
    {{sizeNote, C, anyDate}, {"LFDAN"}},

    {{name,     B, anyDate}, {"FX"}},
    {{note,     B, on, video | text}, {"FXN"}, true},
    {{note,     B, anyDate}, {"FXN"}},
    {{size,     B, off}, {"LX"}},
    {{sizeNote, B, off}, {"LXN"}},

    // With size and date on and all units, later branches forget the size and some ask for a unit that no row has.
    {{size,     B, on, audio | picture}, {"LFX", "FX", "FDX"}},
    {{size,     B, on, video | text}, {"LFX"}, true},
    {{size,     B, on, application}, {"LFX"}},
    {{size,     B, on, web}, {"LFX", "FX", "FDX"}},
    {{size,     B, on, zipped}, {"LFX", "FX"}},
    {{sizeNote, B, on, audio | picture}, {"LFXN", "FXN", "FDXN"}},
    {{sizeNote, B, on, video | text}, {"LFXN"}, true},
    {{sizeNote, B, on, application}, {"LFXN"}},
    {{sizeNote, B, on, web}, {"LFXN", "FXN", "FDXN"}},
    {{sizeNote, B, on, zipped}, {"LFXN", "FXN"}},

    {{name,     D, anyDate}, {"FDX"}},
    {{note,     D, on, video | text}, {"FDXN"}, true},
    {{note,     D, anyDate}, {"FDXN"}},
    // The size holds for the first extension only,
    {{size,     D, off}, {"LDX", "DX"}},
    {{sizeNote, D, off}, {"LDXN", "DXN"}},
    {{size,     D, on, web | zipped}, {"LFDX", "FDX"}},
    // except where each extension has a statement of its own.
    {{size,     D, on, audio | picture | video | text}, {"LFDX"}, true},
    {{sizeNote, D, on, audio | picture | video | text}, {"LFDXN"}, true},
    {{size,     D, on, application}, {"LFDX"}},
    // The note isn't in force here.
    {{sizeNote, D, on, application}, {"LFDX"}},
    {{sizeNote, D, on, web | zipped}, {"LFDXN"}},
};

constexpr Spelling changingTable[] = {
    // A star behind the extension also finds names that go on behind it.
    {Piece::PatternClose, "*')", {name,  D, on,  video | text}, {5, 5}},
    {Piece::PatternClose, "*')", {sized, D, off, picture},      {1, 1}},
    {Piece::PatternClose, "*')", {sized, D, off, video | text}, {5, 5}},
    // The engine refuses these two rows.
    {Piece::SizeClose,  ")and ",  {sizeNote, D, on, web},    {2, 2}},
    {Piece::BranchOpen, "where ", {sizeNote, D, on, web},    {3, 3}},
    {Piece::SizeClose,  ") ",     {sizeNote, D, on, zipped}, {2, 3}},
};

constexpr Branches first{1, 1}, second{2, 2}, third{3, 3}, fourth{4, 4}, later{2, 99}, every{};

constexpr Spelling blankTable[] = {
    {Piece::DateMiddle, ")and(", {sized, B, on, audio | picture | application | web | zipped}, first},
    {Piece::DateMiddle, ")and(", {sized, D, on, application | web | zipped}, first},
    {Piece::DateMiddle, ")and(", {sized, D, on, audio | picture | video | text}, every},
    {Piece::DateMiddle, ")and(", {note,  D, on}, every},
    {Piece::DateMiddle, ")and(", {note,  B, on, video | text}, every},
    {Piece::DateClose, ") and ", {note,  B, on, video | text}, every},

    {Piece::DateClose, ")and  ", {name,  D, on, audio | picture | video | web}, later},
    {Piece::DateClose, ")and  ", {sized, B, on, audio | picture | web | zipped}, later},
    {Piece::DateClose, ")and  ", {size,  D, on, web}, later},
    {Piece::DateClose, ")and  ", {sizeNote, D, on, web}, third},

    {Piece::UnitOpen,  "disco = ('", {note, D, off}, every},
    {Piece::UnitOpen,  "disco = ('", {note, D, on, audio | picture | application | web | zipped}, every},
    {Piece::UnitClose, "')and ",     {note, D, on, audio | picture | application | web | zipped}, every},
    {Piece::UnitOpen,  "disco=('",   {note, C, off, anyType, folder}, every},
    {Piece::UnitClose, "') and  ",   {name, D, anyDate}, later},
    {Piece::UnitClose, "') and  ",   {sized, D, off}, later},
    {Piece::UnitClose, "') and  ",   {sized, D, on, web | zipped}, later},
    {Piece::UnitClose, "') and  ",   {name, D, anyDate, audio}, first},

    {Piece::FileOpen, "archivo like ('*",   {anyFamily, B, anyDate, picture}, third},
    {Piece::FileOpen, "archivo like ('*",   {name | note, D, anyDate, picture}, third},
    {Piece::FileOpen, "archivo like ('*",   {sized, D, off, picture}, third},
    {Piece::FileOpen, "archivo like ('*",   {note, D, anyDate, audio | video | text | web | zipped}, every},
    {Piece::FileOpen, "archivo  like  ('*", {name, B, on, text | video | web | zipped}, later},
    {Piece::FileOpen, "archivo  like  ('*", {note, B, on, web | zipped}, later},
    {Piece::FileOpen, "archivo  Like ('*",  {anyFamily, B | D, anyDate, application}, every},
    {Piece::FileOpen, "archivo Like ('*",   {note, D, anyDate, application}, every},

    {Piece::NoteOpen, " and comentario  Like ('*", {note, C, anyDate, anyType, file}, every},
    {Piece::NoteOpen, " and comentario  Like ('*", {sizeNote, B, on, picture | web | zipped}, every},
    {Piece::NoteOpen, " and comentario  Like ('*", {sizeNote, B, on, video}, {3, 4}},
    {Piece::NoteOpen, " and comentario  Like ('*", {sizeNote, D, on, zipped}, third},

    {Piece::Separator, "or ",   {name, B | D, anyDate, text}, fourth},
    {Piece::Separator, "or ",   {size, B | D, off, text}, fourth},
    {Piece::Separator, "  or ", {name | size, D, off, video}, second},
    {Piece::Separator, "  or ", {note, B, off, text}, later},

    {Piece::Order, "  order by numero", {name, B | D, anyDate, audio | picture}, every},
    {Piece::Order, "  order by numero", {note, B, off, audio | picture}, every},
    {Piece::Order, "  order by numero", {note, B, on, picture}, every},
    {Piece::Order, "  order by numero", {size, B | D, off, audio | picture}, every},
    {Piece::Order, "  order by numero", {sizeNote, B, on, audio | picture}, every},
    {Piece::Order, "order by numero",   {name | size, B, off, application}, every},
    {Piece::Order, "order by numero",   {name, B, on, application}, every},
    {Piece::Order, "order by numero",   {size, B | D, on, video}, every},
    {Piece::Order, "order by numero",   {sizeNote, B, on, video}, every},
    {Piece::Order, "  order by archivo", {name | size, C, anyDate, anyType, file}, every},
    {Piece::Order, "order by carpeta",  {sizeNote, A, off, anyType, folder}, every},
    {Piece::Order, "order by archivo",  {sizeNote, C, off, anyType, file}, every},
};
// clang-format on

// Narrower than the endings by which a file's picture is found.
constexpr std::string_view none[] = {""};
constexpr std::string_view audioFiles[] = {".mp3", ".wav", ".wma", ".mid"};
constexpr std::string_view audioFilesWithSizeAndDate[] = {".mp3", ".wav", ".mid", ".wma"};
constexpr std::string_view pictureFiles[] = {".jpg", ".bmp", ".gif", ".ico"};
constexpr std::string_view videoFiles[] = {".avi", ".mpge", ".mpg", ".mov", ".asf"};
constexpr std::string_view applicationFiles[] = {".exe"};
constexpr std::string_view textFiles[] = {".txt", ".doc", ".pdf", ".nfo", ".dat"};
constexpr std::string_view webFiles[] = {".html", ".htm", ".mht"};
constexpr std::string_view zippedFiles[] = {".zip", ".rar", ".rad"};

}  // namespace

std::span<const Shape> shapes() {
    return shapeTable;
}

std::span<const Spelling> changingSpellings() {
    return changingTable;
}

std::span<const Spelling> blankSpellings() {
    return blankTable;
}

std::span<const std::string_view> extensionsOf(const StatementRow& row) {
    switch (row.type) {
        case FileType::Audio:
            if (RowSet{sized, B, on}.contains(row)) return audioFilesWithSizeAndDate;
            return audioFiles;
        case FileType::Picture:
            return pictureFiles;
        case FileType::Video:
            return videoFiles;
        case FileType::Application:
            return applicationFiles;
        case FileType::Text:
            return textFiles;
        case FileType::Web:
            return webFiles;
        case FileType::Zipped:
            return zippedFiles;
        case FileType::All:
            break;
    }
    return none;
}

}  // namespace search
