#pragma once

#include <QColor>
#include <QIconEngine>

namespace controls {

// Icons of our own, painted at whatever size is asked for.
class DrawnIcon : public QIconEngine {
  public:
    enum class Shape { Page, ClosedFolder, OpenFolder, Disc, Drive, Stack, Button };
    enum class Emblem { None, Note, Hills, Play, Window, Lines, Globe, Zipper, Dots, Pad };

    DrawnIcon(Shape shape, Emblem emblem, QColor colour);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    [[nodiscard]] QIconEngine* clone() const override;

  private:
    Shape m_shape;
    Emblem m_emblem;
    QColor m_colour;
};

}  // namespace controls
