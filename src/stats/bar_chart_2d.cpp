#include "stats/bar_chart_2d.h"

#include <QBarCategoryAxis>
#include <QEvent>
#include <QLegend>
#include <QStackedBarSeries>
#include <QValueAxis>

#include "stats/chart_scale.h"

namespace stats {
namespace {

constexpr double flatBarWidth = 0.72;  // of its eighth of the plot

}  // namespace

BarChart2D::BarChart2D(CategoryIcons icons, QWidget* parent)
    : QChartView(parent),
      m_icons(std::move(icons)),
      m_series(new QStackedBarSeries),
      m_values(new QValueAxis) {
    auto* places = new QBarCategoryAxis;
    m_series->setBarWidth(flatBarWidth);
    // Only a set of bars has a colour, so each category is a set of its own with one bar, at its own place.
    for (std::size_t category = 0; category < categoryCount; ++category) {
        m_bars[category] = new QBarSet(QString());
        for (std::size_t place = 0; place < categoryCount; ++place) m_bars[category]->append(0);
        m_bars[category]->setBrush(categoryColour(category));
        m_bars[category]->setPen(categoryOutline(category));
        m_series->append(m_bars[category]);
        places->append(QString::number(category));
    }
    chart()->addSeries(m_series);

    places->setLabelsVisible(false);
    places->setGridLineVisible(false);
    places->setLineVisible(false);
    chart()->addAxis(places, Qt::AlignBottom);
    m_series->attachAxis(places);
    m_values->setTickType(QValueAxis::TicksDynamic);
    m_values->setLabelFormat(QStringLiteral("%.0f"));
    m_values->setLineVisible(false);
    chart()->addAxis(m_values, Qt::AlignLeft);
    m_series->attachAxis(m_values);

    chart()->legend()->hide();
    chart()->setBackgroundVisible(false);
    chart()->setMargins(QMargins(4, 28, 12, iconSize + 4));  // counts above, icons below
    setBackgroundBrush(palette().color(QPalette::Base));
    setRenderHint(QPainter::Antialiasing);
    setFrameShape(QFrame::NoFrame);
    viewport()->setFocusPolicy(Qt::NoFocus);
}

void BarChart2D::setStatistics(const Statistics& statistics) {
    m_statistics = statistics;
    const ChartScale scale = chartScale(statistics.cantidadcategoria);
    m_values->setRange(static_cast<double>(scale.low), static_cast<double>(scale.high));
    m_values->setTickInterval(static_cast<double>(scale.step));
    m_values->setLabelsColor(palette().color(QPalette::WindowText));
    m_values->setGridLineColor(palette().color(QPalette::Mid));
    for (std::size_t category = 0; category < categoryCount; ++category)
        m_bars[category]->replace(static_cast<int>(category),
                                  static_cast<double>(statistics.cantidadcategoria[category]));
    scene()->update();
}

// What is drawn by the chart itself keeps the colours that it was given.
void BarChart2D::changeEvent(QEvent* event) {
    QChartView::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    setBackgroundBrush(palette().color(QPalette::Base));
    setStatistics(m_statistics);
}

void BarChart2D::drawForeground(QPainter* painter, const QRectF&) {
    const QRectF plot = chart()->plotArea();
    const double pitch = plot.width() / categoryCount;
    const double height = fontMetrics().height();
    const double zero = chart()->mapToPosition({0, 0}, m_series).y();
    painter->setFont(font());
    painter->setPen(palette().color(QPalette::WindowText));
    painter->drawLine(QPointF(plot.left(), zero), QPointF(plot.right(), zero));
    for (std::size_t category = 0; category < categoryCount; ++category) {
        const auto count = m_statistics.cantidadcategoria[category];
        const QPointF end =
            chart()->mapToPosition({static_cast<double>(category), static_cast<double>(count)}, m_series);
        const double top = count < 0 ? end.y() + iconGap / 2 : end.y() - height - iconGap / 2;
        painter->drawText(QRectF(end.x() - pitch, top, 2 * pitch, height), Qt::AlignCenter,
                          QString::number(count));
        const QRectF foot(end.x() - iconSize / 2.0, plot.bottom() + iconGap, iconSize, iconSize);
        m_icons[category].paint(painter, foot.toRect());
    }
}

}  // namespace stats

#include "moc_bar_chart_2d.cpp"
