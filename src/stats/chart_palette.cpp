#include "stats/chart_palette.h"

namespace stats {

QColor categoryColour(std::size_t category) {
    static constexpr std::array<QRgb, categoryCount> colours{
        0xFFE69F00,  // orange
        0xFF56B4E9,  // sky blue
        0xFF009E73,  // bluish green
        0xFFF0E442,  // yellow
        0xFF0072B2,  // blue
        0xFFD55E00,  // vermilion
        0xFFCC79A7,  // reddish purple
        0xFF8C8C8C,  // grey, for what is in no category
    };
    return QColor::fromRgba(colours[category]);
}

QColor categoryOutline(std::size_t category) {
    return categoryColour(category).darker(140);
}

QString shareText(const Statistics& statistics, std::size_t category) {
    return QStringLiteral("%1 (%2 %)")
        .arg(statistics.cantidadcategoria[category])
        .arg(statistics.percentage(category));
}

}  // namespace stats
