#include "stats/bar_chart_2d.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QLegend>
#include <QValueAxis>

#include "stats/chart_scale.h"

namespace stats {
namespace {

constexpr double barsWidth = 0.94;  // of the plot, all eight together
constexpr int iconSize = 20;
constexpr double gap = 4;

}  // namespace

BarChart2D::BarChart2D(CategoryIcons icons, QWidget* parent)
    : QChartView(parent), m_icons(std::move(icons)), m_series(new QBarSeries), m_values(new QValueAxis) {
    m_series->setBarWidth(barsWidth);
    for (std::size_t category = 0; category < categoryCount; ++category) {
        m_bars[category] = new QBarSet(QString());
        m_bars[category]->append(0);
        m_bars[category]->setBrush(categoryColour(category));
        m_bars[category]->setPen(categoryOutline(category));
        m_series->append(m_bars[category]);
    }
    chart()->addSeries(m_series);

    auto* single = new QBarCategoryAxis;  // one group of eight bars, without a caption
    single->append(QStringLiteral(" "));
    single->setLabelsVisible(false);
    single->setGridLineVisible(false);
    single->setLineVisible(false);
    chart()->addAxis(single, Qt::AlignBottom);
    m_series->attachAxis(single);
    m_values->setTickType(QValueAxis::TicksDynamic);
    m_values->setLabelFormat(QStringLiteral("%.0f"));
    m_values->setLineVisible(false);
    chart()->addAxis(m_values, Qt::AlignLeft);
    m_series->attachAxis(m_values);

    chart()->legend()->hide();
    chart()->setBackgroundVisible(false);
    chart()->setMargins(QMargins(4, 24, 4, 4));  // counts above the highest bar
    setRenderHint(QPainter::Antialiasing);
    setFrameShape(QFrame::NoFrame);
}

void BarChart2D::setStatistics(const Statistics& statistics) {
    m_statistics = statistics;
    const ChartScale scale = chartScale(statistics.cantidadcategoria);
    m_values->setRange(static_cast<double>(scale.low), static_cast<double>(scale.high));
    m_values->setTickInterval(static_cast<double>(scale.step));
    m_values->setLabelsColor(palette().color(QPalette::WindowText));
    m_values->setGridLineColor(palette().color(QPalette::Mid));
    for (std::size_t category = 0; category < categoryCount; ++category)
        m_bars[category]->replace(0, static_cast<double>(statistics.cantidadcategoria[category]));
    scene()->update();
}

void BarChart2D::drawForeground(QPainter* painter, const QRectF&) {
    const QRectF plot = chart()->plotArea();
    const double pitch = plot.width() * barsWidth / categoryCount;
    const double left = plot.left() + plot.width() * (1 - barsWidth) / 2;
    const double height = fontMetrics().height();
    const double zero = chart()->mapToPosition({0, 0}, m_series).y();
    painter->setFont(font());
    painter->setPen(palette().color(QPalette::WindowText));
    painter->drawLine(QPointF(plot.left(), zero), QPointF(plot.right(), zero));
    for (std::size_t category = 0; category < categoryCount; ++category) {
        const auto count = m_statistics.cantidadcategoria[category];
        const double centre = left + pitch * (static_cast<double>(category) + 0.5);
        const double end = chart()->mapToPosition({0, static_cast<double>(count)}, m_series).y();
        const double top = count < 0 ? end + gap / 2 : end - height - gap / 2;
        painter->drawText(QRectF(centre - pitch, top, 2 * pitch, height), Qt::AlignCenter,
                          QString::number(count));
        const QRectF foot(centre - iconSize / 2.0, plot.bottom() + gap, iconSize, iconSize);
        m_icons[category].paint(painter, foot.toRect());
    }
}

}  // namespace stats
