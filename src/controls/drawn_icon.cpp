#include "controls/drawn_icon.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace controls {
namespace {

// Everything is drawn on a grid of 16 by 16.
constexpr qreal grid = 16;

const QColor paper(0xfc, 0xfc, 0xfc);
const QColor outline(0x5f, 0x65, 0x6b);

void drawPage(QPainter& painter) {
    painter.setPen(QPen(outline, 0.8));
    painter.setBrush(paper);
    painter.drawPolygon(QPolygonF{{2.5, 0.9}, {10, 0.9}, {13.5, 4.4}, {13.5, 15.1}, {2.5, 15.1}});
    painter.drawPolyline(QPolygonF{{10, 0.9}, {10, 4.4}, {13.5, 4.4}});
}

void drawFolder(QPainter& painter, const QColor& colour, bool open) {
    painter.setPen(QPen(colour.darker(150), 0.8));
    painter.setBrush(colour.darker(115));
    painter.drawPolygon(QPolygonF{{1, 2.5}, {6, 2.5}, {7.5, 4.2}, {14, 4.2}, {14, 13.5}, {1, 13.5}});
    painter.setBrush(colour);
    if (open)
        painter.drawPolygon(QPolygonF{{3.5, 6.8}, {15.4, 6.8}, {13.6, 13.5}, {1, 13.5}});
    else
        painter.drawRect(QRectF(1, 5.8, 13, 7.7));
}

void drawDisc(QPainter& painter, const QColor& colour) {
    painter.setPen(QPen(outline, 0.8));
    painter.setBrush(colour.lighter(150));
    painter.drawEllipse(QPointF(8, 8), 7, 7);
    painter.setBrush(paper);
    painter.drawEllipse(QPointF(8, 8), 2.2, 2.2);
}

void drawDrive(QPainter& painter, const QColor& colour) {
    painter.setPen(QPen(outline, 0.8));
    painter.setBrush(colour.lighter(140));
    painter.drawRoundedRect(QRectF(1, 4, 14, 8.5), 1.2, 1.2);
    painter.setBrush(colour);
    painter.drawRect(QRectF(3, 9, 7, 1.2));
    painter.drawEllipse(QPointF(12.5, 9.6), 0.8, 0.8);
}

void drawStack(QPainter& painter, const QColor& colour) {
    painter.setPen(QPen(outline, 0.8));
    for (int layer = 2; layer >= 0; --layer) {
        painter.setBrush(layer == 0 ? colour : colour.lighter(130));
        painter.drawEllipse(QRectF(1.5, 2.5 + 3.2 * layer, 13, 5));
    }
}

void drawShape(QPainter& painter, DrawnIcon::Shape shape, const QColor& colour) {
    using Shape = DrawnIcon::Shape;
    switch (shape) {
        case Shape::Page:
            return drawPage(painter);
        case Shape::ClosedFolder:
            return drawFolder(painter, colour, false);
        case Shape::OpenFolder:
            return drawFolder(painter, colour, true);
        case Shape::Disc:
            return drawDisc(painter, colour);
        case Shape::Drive:
            return drawDrive(painter, colour);
        case Shape::Stack:
            return drawStack(painter, colour);
        case Shape::Button:
            painter.setPen(QPen(outline, 0.8));
            painter.setBrush(colour);
            painter.drawRoundedRect(QRectF(2, 2, 12, 12), 2, 2);
            return;
    }
}

void drawGlobe(QPainter& painter, const QColor& colour) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, 0.9));
    painter.drawEllipse(QPointF(8, 9.5), 3.8, 3.8);
    painter.drawEllipse(QPointF(8, 9.5), 1.7, 3.8);
    painter.drawLine(QPointF(4.2, 9.5), QPointF(11.8, 9.5));
}

void drawNote(QPainter& painter) {
    painter.drawEllipse(QPointF(6, 12), 1.7, 1.3);
    painter.drawRect(QRectF(7.1, 6, 0.7, 6));
    painter.drawPolygon(QPolygonF{{7.1, 6}, {10.8, 7.2}, {10.8, 9}, {7.1, 7.8}});
}

void drawWindow(QPainter& painter) {
    painter.drawRect(QRectF(4.2, 6, 7.6, 2));
    painter.setPen(QPen(painter.brush().color(), 0.8));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(4.2, 6, 7.6, 6.8));
}

void drawPad(QPainter& painter) {
    painter.drawRoundedRect(QRectF(1, 5, 14, 7), 3.4, 3.4);
    painter.setBrush(paper);
    painter.drawRect(QRectF(3.2, 8, 3, 1));
    painter.drawRect(QRectF(4.2, 7, 1, 3));
    painter.drawEllipse(QPointF(10.6, 9.2), 0.8, 0.8);
    painter.drawEllipse(QPointF(12.3, 7.7), 0.8, 0.8);
}

void drawEmblem(QPainter& painter, DrawnIcon::Emblem emblem, const QColor& colour) {
    using Emblem = DrawnIcon::Emblem;
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    switch (emblem) {
        case Emblem::None:
            return;
        case Emblem::Note:
            return drawNote(painter);
        case Emblem::Hills:
            painter.drawPolygon(QPolygonF{{4, 13}, {6.8, 8.5}, {8.6, 11}, {9.8, 9.6}, {12, 13}});
            painter.drawEllipse(QPointF(10.3, 6.9), 1, 1);
            return;
        case Emblem::Play:
            painter.drawPolygon(QPolygonF{{5.5, 6}, {11.5, 9.6}, {5.5, 13.2}});
            return;
        case Emblem::Window:
            return drawWindow(painter);
        case Emblem::Lines:
            for (const qreal y : {6.2, 8.2, 10.2, 12.2})
                painter.drawRect(QRectF(4.5, y, y > 12 ? 4 : 7, 0.9));
            return;
        case Emblem::Globe:
            return drawGlobe(painter, colour);
        case Emblem::Zipper:
            for (int tooth = 0; tooth < 6; ++tooth)
                painter.drawRect(QRectF(tooth % 2 == 0 ? 6.4 : 8, 2 + 1.6 * tooth, 1.6, 1.2));
            return;
        case Emblem::Dots:
            for (const qreal x : {5.2, 8.0, 10.8}) painter.drawEllipse(QPointF(x, 9.5), 0.9, 0.9);
            return;
        case Emblem::Pad:
            return drawPad(painter);
    }
}

}  // namespace

DrawnIcon::DrawnIcon(Shape shape, Emblem emblem, QColor colour)
    : m_shape(shape), m_emblem(emblem), m_colour(colour) {}

void DrawnIcon::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) {
    const qreal side = std::min(rect.width(), rect.height());
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2);
    painter->scale(side / grid, side / grid);
    if (mode == QIcon::Disabled) painter->setOpacity(0.4);
    drawShape(*painter, m_shape, m_colour);
    drawEmblem(*painter, m_emblem, m_colour);
    painter->restore();
}

QPixmap DrawnIcon::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) {
    QPixmap result(size);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return result;
}

QIconEngine* DrawnIcon::clone() const {
    return new DrawnIcon(*this);
}

}  // namespace controls
