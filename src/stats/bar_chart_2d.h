#pragma once

#include <QBarSet>
#include <QChartView>
#include <array>

#include "stats/chart_palette.h"

class QStackedBarSeries;
class QValueAxis;

namespace stats {

// The eight counts as upright bars, each with its count at its end and its icon at its foot.
class BarChart2D : public QChartView {
    Q_OBJECT
  public:
    explicit BarChart2D(CategoryIcons icons, QWidget* parent = nullptr);
    void setStatistics(const Statistics& statistics);

  protected:
    void changeEvent(QEvent* event) override;
    void drawForeground(QPainter* painter, const QRectF& rect) override;

  private:
    CategoryIcons m_icons;
    Statistics m_statistics;
    QStackedBarSeries* m_series;
    QValueAxis* m_values;
    std::array<QBarSet*, categoryCount> m_bars{};
};

}  // namespace stats
