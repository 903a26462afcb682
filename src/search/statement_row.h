#pragma once

#include <array>
#include <string>

namespace search {

// A search is told apart four ways. The outermost is which of the size and note boxes are on,
enum class Family { Name, Size, Note, SizeNote };
// then whether a type and a unit are chosen: A neither, B a type, C a unit, D both,
enum class Case { A, B, C, D };
// then whether the date box is on, and in cases B and D the type.
enum class FileType { All, Audio, Picture, Video, Application, Text, Web, Zipped };

inline constexpr std::array fileTypes{FileType::All,   FileType::Audio,       FileType::Picture,
                                      FileType::Video, FileType::Application, FileType::Text,
                                      FileType::Web,   FileType::Zipped};

// Cases A and C list folders and then files; with a type chosen there are files only.
enum class PassKind { Folder, File };

[[nodiscard]] constexpr bool choosesType(Case criteria) {
    return criteria == Case::B || criteria == Case::D;
}

// One combination, with a statement (or, when split, several) of its own.
struct StatementRow {
    Family family = Family::Name;
    Case criteria = Case::A;
    PassKind pass = PassKind::File;
    bool date = false;
    FileType type = FileType::All;  // All exactly in cases A and C

    bool operator==(const StatementRow&) const = default;
};

// What is joined into a statement, as its text. Nothing is escaped.
struct StatementValues {
    std::string name, unit, note;
    std::string from, until;       // serial numbers of the dates, the upper one a day later
    std::string minimum, maximum;  // kilobytes
};

}  // namespace search
