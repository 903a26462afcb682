#include "shell/logo.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

namespace shell {

namespace {

// All figures are in a square of 64 by 64; assets/zarquelin.svg shows the same drawing.
constexpr QRgb cardEdge = 0xffb8c4ce;
constexpr QRgb cardTab = 0xfff2a33a;
constexpr QRgb cardLine = 0xffc9d3db;
constexpr QRgb discDark = 0xff1d5f8a;
constexpr QRgb discLight = 0xff4fb3e0;

void paintCard(QPainter& painter) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgba(cardTab));
    painter.drawRoundedRect(QRectF(10, 4, 22, 14), 3, 3);
    painter.setPen(QPen(QColor::fromRgba(cardEdge), 1.5));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(4, 11, 50, 38), 3, 3);
    painter.setPen(QPen(QColor::fromRgba(cardLine), 2.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(10, 19), QPointF(47, 19));
    painter.drawLine(QPointF(10, 27), QPointF(30, 27));
    painter.drawLine(QPointF(10, 35), QPointF(24, 35));
}

void paintDisc(QPainter& painter) {
    const QPointF centre(41, 40);
    QPainterPath ring;
    ring.addEllipse(centre, 21, 21);
    ring.addEllipse(centre, 4, 4);
    QLinearGradient shade(centre - QPointF(15, 15), centre + QPointF(15, 15));
    shade.setColorAt(0, QColor::fromRgba(discLight));
    shade.setColorAt(1, QColor::fromRgba(discDark));
    painter.setPen(QPen(Qt::white, 2));
    painter.setBrush(shade);
    painter.drawPath(ring);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 255, 255, 110), 2));
    painter.drawEllipse(centre, 9, 9);
    painter.setPen(QPen(QColor(255, 255, 255, 150), 3, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(QRectF(26, 25, 30, 30), 100 * 16, 60 * 16);
}

class LogoEngine : public QIconEngine {
  public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
        paintLogo(*painter, rect);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }
    // Window managers ask for the sizes that there are; any size can be drawn.
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
        QList<QSize> sizes;
        for (const int side : {16, 22, 24, 32, 48, 64, 128, 256}) sizes << QSize(side, side);
        return sizes;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new LogoEngine; }
};

}  // namespace

void paintLogo(QPainter& painter, const QRect& square) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(square.topLeft());
    painter.scale(square.width() / 64.0, square.height() / 64.0);
    paintCard(painter);
    paintDisc(painter);
    painter.restore();
}

QIcon logo() {
    return QIcon(new LogoEngine);
}

}  // namespace shell
