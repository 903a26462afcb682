#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace lists {

// One item of a list as a listing builds it from a row of the catalogue. The item's text is column 0 in the
// code and "column 1" to the user; its sub-items are numbered from 1.
struct ListItem {
    std::string text;
    int picture = 1;  // large
    int smallPicture = 1;
    std::string notes;                  // sub-item 1
    std::string type;                   // 2, in the interface language
    std::optional<std::int64_t> largo;  // 3: " " when absent, else "N KB"; 6: the same, padded, as sort key
    double fecha = 0;                   // 4, as text
    bool dateKeyIsSerial = false;  // 5: the decimal serial number (search) or the date as shown (browsing)
    std::string nameKey;           // 7: "a" + folder name or "b" + file name; sorts folders first
    std::string disco;             // 8
    std::string ruta;              // 9
};

inline constexpr int subItemCount = 9;

}  // namespace lists
