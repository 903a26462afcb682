#include "stats/pie_chart.h"

#include <QEvent>
#include <QLegend>
#include <QPieSeries>
#include <QPieSlice>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "stats/chart_scale.h"

namespace stats {
namespace {

constexpr double largestPie = 0.78;  // of the plot's shorter side
constexpr double smallestPie = 0.3;
constexpr double leaderLength = 16;  // beyond the rim, in pixels
constexpr int pieIconSize = 16;
constexpr double pieGap = 5;

QPointF onCircle(QPointF centre, double radius, double degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    return {centre.x() + radius * std::sin(angle), centre.y() - radius * std::cos(angle)};
}

}  // namespace

struct PieChart::Label {
    std::size_t category = 0;
    QPointF rim;    // where its line starts
    QPointF knee;   // straight out from there
    QPointF elbow;  // where it turns level
    bool right = true;
};

PieChart::PieChart(CategoryIcons icons, QWidget* parent)
    : QChartView(parent), m_icons(std::move(icons)), m_series(new QPieSeries) {
    m_series->setPieSize(largestPie);
    chart()->addSeries(m_series);
    chart()->legend()->hide();
    chart()->setBackgroundVisible(false);
    chart()->setMargins({});
    setBackgroundBrush(palette().color(QPalette::Base));
    setRenderHint(QPainter::Antialiasing);
    setFrameShape(QFrame::NoFrame);
    viewport()->setFocusPolicy(Qt::NoFocus);
}

void PieChart::setStatistics(const Statistics& statistics) {
    m_statistics = statistics;
    m_series->clear();
    for (std::size_t category = 0; category < categoryCount; ++category) {
        const auto count = statistics.cantidadcategoria[category];
        if (count <= 0) continue;
        auto* slice = new QPieSlice(QString(), static_cast<double>(count));
        slice->setBrush(categoryColour(category));
        slice->setPen(QPen(palette().color(QPalette::Base), 1.5));
        slice->setProperty("category", static_cast<int>(category));
        m_series->append(slice);
    }
    // A light border would leave nothing of a narrow slice, and cut into one that is alone.
    for (QPieSlice* slice : m_series->slices())
        if (slice->percentage() < 0.02 || slice->percentage() > 0.98)
            slice->setPen(QPen(slice->brush().color(), 0.5));
    fitPie();
    scene()->update();
}

// A narrow chart has a smaller pie, so that the labels beside it stay whole.
void PieChart::fitPie() {
    double widest = 0;
    for (std::size_t category = 0; category < categoryCount; ++category)
        if (m_statistics.cantidadcategoria[category] > 0)
            widest =
                std::max<double>(widest, fontMetrics().horizontalAdvance(shareText(m_statistics, category)));
    const double room = width() / 2.0 - leaderLength - 4 * pieGap - pieIconSize - widest;
    const QRectF plot = chart()->plotArea();
    const double side = std::max(1.0, std::min(plot.width(), plot.height()));
    m_series->setPieSize(std::clamp(2 * room / side, smallestPie, largestPie));
}

void PieChart::resizeEvent(QResizeEvent* event) {
    QChartView::resizeEvent(event);
    fitPie();
}

// What is drawn by the chart itself keeps the colours that it was given.
void PieChart::changeEvent(QEvent* event) {
    QChartView::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    setBackgroundBrush(palette().color(QPalette::Base));
    setStatistics(m_statistics);
}

void PieChart::drawForeground(QPainter* painter, const QRectF&) {
    const QRectF plot = chart()->plotArea();
    const double radius = std::min(plot.width(), plot.height()) / 2 * m_series->pieSize();
    const double height = std::max<double>(fontMetrics().height(), pieIconSize) + 2;

    const double reach = radius + leaderLength;

    std::vector<Label> sides[2];
    for (const QPieSlice* slice : m_series->slices()) {
        const double middle = slice->startAngle() + slice->angleSpan() / 2;
        const QPointF knee = onCircle(plot.center(), reach, middle);
        sides[middle < 180].push_back({static_cast<std::size_t>(slice->property("category").toInt()),
                                       onCircle(plot.center(), radius, middle), knee, knee, middle < 180});
    }
    for (auto& side : sides) {
        std::ranges::sort(side, {}, [](const Label& label) { return label.knee.y(); });
        std::vector<double> centres;
        centres.reserve(side.size());
        for (const Label& label : side) centres.push_back(label.knee.y());
        centres = spreadLabels(std::move(centres), height, plot.top(), plot.bottom());
        for (std::size_t i = 0; i < side.size(); ++i) {
            // A label that had to move keeps clear of the pie.
            const double off = centres[i] - plot.center().y();
            const double aside = std::sqrt(std::max(0.0, reach * reach - off * off));
            const double wanted = std::abs(side[i].knee.x() - plot.center().x());
            const double x = std::max(aside, wanted) * (side[i].right ? 1 : -1);
            side[i].elbow = {plot.center().x() + x, centres[i]};
            drawLabel(*painter, side[i]);
        }
    }
}

void PieChart::drawLabel(QPainter& painter, const Label& label) const {
    const double direction = label.right ? 1 : -1;
    const QPointF end = label.elbow + QPointF(direction * pieGap, 0);
    painter.setPen(QPen(categoryOutline(label.category), 1.2));
    painter.drawPolyline(QPolygonF{label.rim, label.knee, label.elbow, end});

    const QString text = shareText(m_statistics, label.category);
    const double width = fontMetrics().horizontalAdvance(text);
    const double iconLeft = label.right ? end.x() + pieGap : end.x() - pieGap - pieIconSize;
    m_icons[label.category].paint(
        &painter, QRectF(iconLeft, end.y() - pieIconSize / 2.0, pieIconSize, pieIconSize).toRect());
    const double textLeft = label.right ? iconLeft + pieIconSize + pieGap : iconLeft - pieGap - width;
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRectF(textLeft, end.y() - 50, width + 2, 100), Qt::AlignLeft | Qt::AlignVCenter, text);
}

}  // namespace stats

#include "moc_pie_chart.cpp"
