#pragma once

#include <optional>
#include <string>

#include "core/language.h"
#include "engine/recordset.h"
#include "lists/file_types.h"
#include "lists/list_item.h"

namespace lists {

// What the rows shown leave behind for the rows after them, in whichever list they were shown.
struct RowMemory {
    std::string notafila;     // note of the last row shown
    std::string tipocarpeta;  // caption of the last folder; a row of unknown kind shows it again
};

// What is done with the note of a row.
enum class NoteReading {
    Read,    // the row's own
    Keep,    // shows the note of the last row shown before, in either list
    Ignore,  // reads none, and the item gets neither a note nor a name key
};

// In what the listings differ.
struct RowStyle {
    PatternSet patterns = PatternSet::Browsing;
    NoteReading note = NoteReading::Read;
    std::optional<FileKind> fileKind = {};  // of every file, whatever its name says
    bool lowerCaseKeys = false;             // of files
    bool dateKeyIsSerial = false;
};

// Turns the current row of a listing into an item of either list. The memory outlives it.
class RowItems {
  public:
    RowItems(core::Language language, RowMemory& memory, const RowStyle& style = {})
        : m_language(language), m_memory(memory), m_style(style) {}

    [[nodiscard]] ListItem folderItem(const engine::Recordset& row) const;
    [[nodiscard]] ListItem fileItem(const engine::Recordset& row) const;

  private:
    void addCommon(ListItem& item, const engine::Recordset& row) const;

    core::Language m_language;
    RowMemory& m_memory;
    RowStyle m_style;
};

}  // namespace lists
