#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace lists {

// The sub-items of an item, by their numbers. The item's text is column 0 in the code and "column 1" to the
// user, who sees the sub-items up to Date.
struct SubItem {
    enum Number {
        Text,  // the item's own
        Notes,
        Type,
        Size,  // " " when absent, else "N KB"
        Date,
        DateKey,  // the decimal serial number (search) or the date as shown (browsing)
        SizeKey,  // padded
        NameKey,  // "a" + folder name or "b" + file name; sorts folders first
        Disco,
        Ruta
    };
};
inline constexpr int subItemCount = SubItem::Ruta;

// One item of a list as a listing builds it from a row of the catalogue.
struct ListItem {
    std::string text;
    int picture = 1;  // large
    int smallPicture = 1;
    std::string notes;
    std::string type;  // in the interface language
    std::optional<std::int64_t> largo;
    double fecha = 0;
    bool dateKeyIsSerial = false;
    std::string nameKey;
    std::string disco;
    std::string ruta;
};

}  // namespace lists
