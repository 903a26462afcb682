#include "stats/bar_chart_3d.h"

#include <QPainter>
#include <QPainterPath>

namespace stats {
namespace {

// Widths along the row of bars, in bars' pitches.
constexpr double rowLength = categoryCount;
constexpr double barWidth = 0.66;
constexpr double floorDepth = 1.3;
constexpr double barFront = 0.3;
constexpr double barBack = 1.0;
// Where a pitch along the row, and one into the depth, lead on the screen (pitches right and up).
constexpr double rowRise = -0.13;
constexpr double depthRun = 0.62;
constexpr double depthRise = 0.42;

double barLeft(std::size_t category) {
    return static_cast<double>(category) + (1 - barWidth) / 2;
}

}  // namespace

// From the room of the bars (x along the row, value upwards, z into the depth) to the widget.
class BarChart3D::Projection {
  public:
    Projection(const ChartScale& scale, QRectF area) : m_scale(scale) {
        m_pitch = area.width() / (rowLength + floorDepth * depthRun);
        const double slope = m_pitch * (rowLength * -rowRise + floorDepth * depthRise);
        m_perValue = (area.height() - slope) / static_cast<double>(scale.high - scale.low);
        m_origin = {area.left(), area.bottom() - m_pitch * rowLength * -rowRise};
    }
    [[nodiscard]] QPointF at(double x, double value, double z) const {
        return {m_origin.x() + m_pitch * (x + z * depthRun),
                m_origin.y() - m_pitch * (x * rowRise + z * depthRise) -
                    (value - static_cast<double>(m_scale.low)) * m_perValue};
    }
    [[nodiscard]] double pitch() const { return m_pitch; }

  private:
    ChartScale m_scale;
    double m_pitch;
    double m_perValue;
    QPointF m_origin;
};

BarChart3D::BarChart3D(CategoryIcons icons, QWidget* parent) : QWidget(parent), m_icons(std::move(icons)) {}

void BarChart3D::setStatistics(const Statistics& statistics) {
    m_statistics = statistics;
    m_scale = chartScale(statistics.cantidadcategoria);
    update();
}

void BarChart3D::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double line = fontMetrics().height();
    const double axis = fontMetrics().horizontalAdvance(QString::number(m_scale.high) + u'0') + 2 * iconGap;
    const Projection space(
        m_scale, QRectF(rect()).adjusted(axis, line + 2 * iconGap, -3 * iconGap, -iconSize - 3 * iconGap));

    drawRoom(painter, space);
    // What hangs below the floor is seen through it; nearer bars cover farther ones.
    for (std::size_t category = 0; category < categoryCount; ++category)
        if (m_statistics.cantidadcategoria[category] < 0) drawBar(painter, space, category);
    drawFloor(painter, space);
    for (std::size_t category = 0; category < categoryCount; ++category)
        if (m_statistics.cantidadcategoria[category] > 0) drawBar(painter, space, category);
    drawTexts(painter, space);
}

// The back wall and the left one, with a line and a number at every step of the scale.
void BarChart3D::drawRoom(QPainter& painter, const Projection& space) const {
    const auto low = static_cast<double>(m_scale.low);
    const auto high = static_cast<double>(m_scale.high);
    const QPalette colours = palette();
    painter.setPen(colours.color(QPalette::Mid));
    painter.setBrush(colours.color(QPalette::Base));
    painter.drawPolygon(QPolygonF{space.at(0, low, floorDepth), space.at(rowLength, low, floorDepth),
                                  space.at(rowLength, high, floorDepth), space.at(0, high, floorDepth)});
    painter.setBrush(colours.color(QPalette::AlternateBase));
    painter.drawPolygon(QPolygonF{space.at(0, low, 0), space.at(0, low, floorDepth),
                                  space.at(0, high, floorDepth), space.at(0, high, 0)});
    for (std::int64_t step = m_scale.low; step <= m_scale.high; step += m_scale.step) {
        const auto value = static_cast<double>(step);
        painter.setPen(colours.color(QPalette::Mid));
        painter.drawPolyline(QPolygonF{space.at(0, value, 0), space.at(0, value, floorDepth),
                                       space.at(rowLength, value, floorDepth)});
        painter.setPen(colours.color(QPalette::WindowText));
        const QPointF end = space.at(0, value, 0);
        painter.drawText(QRectF(0, end.y() - 50, end.x() - iconGap, 100), Qt::AlignRight | Qt::AlignVCenter,
                         QString::number(step));
    }
}

void BarChart3D::drawFloor(QPainter& painter, const Projection& space) const {
    QColor ground = palette().color(QPalette::Midlight);
    ground.setAlpha(170);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(ground);
    painter.drawPolygon(QPolygonF{space.at(0, 0, 0), space.at(rowLength, 0, 0),
                                  space.at(rowLength, 0, floorDepth), space.at(0, 0, floorDepth)});
}

void BarChart3D::drawBar(QPainter& painter, const Projection& space, std::size_t category) const {
    const auto count = static_cast<double>(m_statistics.cantidadcategoria[category]);
    const double left = barLeft(category);
    const double right = left + barWidth;
    const double foot = std::min(count, 0.0);
    const double top = std::max(count, 0.0);
    const QColor colour = categoryColour(category);
    painter.setPen(QPen(categoryOutline(category), 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(colour.darker(125));
    painter.drawPolygon(QPolygonF{space.at(right, foot, barFront), space.at(right, foot, barBack),
                                  space.at(right, top, barBack), space.at(right, top, barFront)});
    painter.setBrush(colour);
    painter.drawPolygon(QPolygonF{space.at(left, foot, barFront), space.at(right, foot, barFront),
                                  space.at(right, top, barFront), space.at(left, top, barFront)});
    painter.setBrush(colour.lighter(125));
    painter.drawPolygon(QPolygonF{space.at(left, top, barFront), space.at(right, top, barFront),
                                  space.at(right, top, barBack), space.at(left, top, barBack)});
}

// Counts with a halo, since a taller neighbour may stand behind them, and icons along the front of the floor.
void BarChart3D::drawTexts(QPainter& painter, const Projection& space) const {
    const QFontMetricsF metrics(font());
    for (std::size_t category = 0; category < categoryCount; ++category) {
        const auto count = m_statistics.cantidadcategoria[category];
        const double middle = barLeft(category) + barWidth / 2;
        const QString text = QString::number(count);
        const QPointF end = count < 0
                                ? space.at(middle, static_cast<double>(count), barFront)
                                : space.at(middle, static_cast<double>(count), (barFront + barBack) / 2);
        const double base =
            count < 0 ? end.y() + iconGap + metrics.ascent() : end.y() - iconGap - metrics.descent();
        QPainterPath path;
        path.addText(end.x() - metrics.horizontalAdvance(text) / 2, base, font(), text);
        QColor halo = palette().color(QPalette::Base);
        halo.setAlpha(220);
        painter.strokePath(path, QPen(halo, 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.fillPath(path, palette().color(QPalette::WindowText));

        const QPointF foot = space.at(middle, static_cast<double>(m_scale.low), 0);
        m_icons[category].paint(
            &painter, QRectF(foot.x() - iconSize / 2.0, foot.y() + iconGap, iconSize, iconSize).toRect());
    }
}

}  // namespace stats

#include "moc_bar_chart_3d.cpp"
