#pragma once

#include <QChartView>

#include "stats/chart_palette.h"

class QPieSeries;

namespace stats {

// The eight counts as a pie. Each slice carries its count and share beside it, joined by a line; categories
// without files, and a negative Resto, have no slice.
class PieChart : public QChartView {
    Q_OBJECT
  public:
    explicit PieChart(CategoryIcons icons, QWidget* parent = nullptr);
    void setStatistics(const Statistics& statistics);

  protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void drawForeground(QPainter* painter, const QRectF& rect) override;

  private:
    struct Label;
    void fitPie();
    void drawLabel(QPainter& painter, const Label& label) const;

    CategoryIcons m_icons;
    Statistics m_statistics;
    QPieSeries* m_series;
};

}  // namespace stats
