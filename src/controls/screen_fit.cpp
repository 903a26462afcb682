#include "controls/screen_fit.h"

#include <QApplication>
#include <QEvent>
#include <QLayout>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace controls {
namespace {

// What a window manager draws around a window is known only once it has drawn it.
constexpr QMargins usualFrame(4, 36, 4, 4);

QMargins frameOf(const QWidget& window) {
    if (window.windowFlags().testFlag(Qt::FramelessWindowHint)) return {};
    const QRect inner = window.geometry(), outer = window.frameGeometry();
    if (inner == outer) return usualFrame;
    return {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
            outer.bottom() - inner.bottom()};
}

class ScreenFit : public QObject {
  public:
    explicit ScreenFit(QWidget& window) : QObject(&window), m_window(window) {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && !event->spontaneous()) fit();
        return QObject::eventFilter(watched, event);
    }

  private:
    void fit() {
        const QScreen* const wanted = screenFor(m_window);
        const bool centred = std::exchange(m_wanted, wanted) != wanted;
        const QScreen* const screen = centred ? wanted : m_window.screen();
        const QRect room = screen->availableGeometry().marginsRemoved(frameOf(m_window));
        const bool fixed = m_window.layout() && m_window.layout()->sizeConstraint() == QLayout::SetFixedSize;
        const QSize size = fixed ? m_window.sizeHint() : m_window.size().boundedTo(room.size());
        if (!fixed) {
            m_window.setMinimumSize(m_window.minimumSize().boundedTo(room.size()));
            m_window.resize(size);
        }
        QRect place({}, size);
        if (centred)
            place.moveCenter(room.center());
        else
            place.moveTopLeft(m_window.geometry().topLeft());
        place.moveLeft(std::max(room.left(), std::min(place.left(), room.right() + 1 - place.width())));
        place.moveTop(std::max(room.top(), std::min(place.top(), room.bottom() + 1 - place.height())));
        const QMargins frame = frameOf(m_window);
        m_window.move(place.topLeft() - QPoint(frame.left(), frame.top()));
    }

    QWidget& m_window;
    const QScreen* m_wanted = nullptr;  // of the last time; only compared
};

}  // namespace

QScreen* screenFor(const QWidget& window) {
    const QWidget* owner = window.parentWidget() ? window.parentWidget() : QApplication::activeWindow();
    return owner ? owner->screen() : window.screen();
}

void fitToScreen(QWidget& window) {
    new ScreenFit(window);
}

}  // namespace controls
