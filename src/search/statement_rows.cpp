#include "search/statement_rows.h"

#include <span>
#include <string_view>

namespace search {
namespace {

constexpr std::string_view familyNames[] = {"name", "size", "note", "size+note"};
constexpr std::string_view caseNames[] = {"A", "B", "C", "D"};
constexpr std::string_view typeNames[] = {"all",         "audio", "picture", "video",
                                          "application", "text",  "web",     "zipped"};

template <class E>
std::string named(std::span<const std::string_view> names, E value) {
    return std::string(names[static_cast<std::size_t>(value)]);
}

}  // namespace

std::vector<StatementRow> allRows() {
    std::vector<StatementRow> rows;
    for (const Family family : {Family::Name, Family::Size, Family::Note, Family::SizeNote})
        for (const Case criteria : {Case::A, Case::B, Case::C, Case::D})
            for (const PassKind pass : {PassKind::Folder, PassKind::File})
                for (const bool date : {false, true})
                    for (const FileType type : fileTypes) {
                        if (choosesType(criteria) == (type == FileType::All)) continue;
                        if (choosesType(criteria) && pass == PassKind::Folder) continue;
                        rows.push_back({family, criteria, pass, date, type});
                    }
    return rows;
}

std::string nameOf(const StatementRow& row) {
    return named(familyNames, row.family) + "/" + named(caseNames, row.criteria) +
           (row.pass == PassKind::Folder ? "/folder" : "/file") + (row.date ? "/on/" : "/off/") +
           named(typeNames, row.type);
}

}  // namespace search
