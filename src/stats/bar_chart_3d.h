#pragma once

#include <QWidget>

#include "stats/chart_palette.h"
#include "stats/chart_scale.h"

namespace stats {

// The eight counts as solid bars on a floor, seen from above at an angle, each with its count over it and its
// icon before it. Painted without a 3D engine, so that it looks the same on every machine and on paper.
class BarChart3D : public QWidget {
    Q_OBJECT
  public:
    explicit BarChart3D(CategoryIcons icons, QWidget* parent = nullptr);
    void setStatistics(const Statistics& statistics);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    class Projection;
    void drawRoom(QPainter& painter, const Projection& space) const;
    void drawFloor(QPainter& painter, const Projection& space) const;
    void drawBar(QPainter& painter, const Projection& space, std::size_t category) const;
    void drawTexts(QPainter& painter, const Projection& space) const;

    CategoryIcons m_icons;
    Statistics m_statistics;
    ChartScale m_scale;
};

}  // namespace stats
