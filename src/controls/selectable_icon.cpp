#include "controls/selectable_icon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace controls {
namespace {

constexpr double shareOfTextColour = 0.7;

class SelectableIcon : public QIconEngine {
  public:
    explicit SelectableIcon(QIcon icon) : m_icon(std::move(icon)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const qreal ratio = painter->device()->devicePixelRatioF();
        QPixmap drawn = pixmap(rect.size() * ratio, mode, state);
        drawn.setDevicePixelRatio(ratio);
        const QSizeF size = drawn.deviceIndependentSize();
        painter->drawPixmap(QRectF(rect).center() - QPointF(size.width(), size.height()) / 2, drawn);
    }
    // The size is in the device's pixels.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        if (mode != QIcon::Selected) return m_icon.pixmap(size, 1.0, mode, state);
        QPixmap drawn = m_icon.pixmap(size, 1.0, QIcon::Normal, state);
        QColor towards = QGuiApplication::palette().color(QPalette::HighlightedText);
        towards.setAlphaF(float(shareOfTextColour));
        QPainter painter(&drawn);
        painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        painter.fillRect(drawn.rect(), towards);
        return drawn;
    }
    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State state) override {
        return m_icon.actualSize(size, QIcon::Normal, state);
    }
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State state) override {
        return m_icon.availableSizes(QIcon::Normal, state);
    }
    QString iconName() override { return m_icon.name(); }
    bool isNull() override { return m_icon.isNull(); }
    [[nodiscard]] QIconEngine* clone() const override { return new SelectableIcon(m_icon); }

  private:
    QIcon m_icon;
};

}  // namespace

QIcon selectableIcon(const QIcon& icon) {
    return QIcon(new SelectableIcon(icon));
}

}  // namespace controls
