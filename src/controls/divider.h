#pragma once

#include <QWidget>
#include <functional>

namespace controls {

// The upright handle between two panes. While it is dragged a bar (`picSplitter`) moves over the panes and
// nothing else; the owner lays the panes out when it is released. Positions are those of the handle's left
// edge within the parent, in pixels.
class Divider : public QWidget {
    Q_OBJECT
  public:
    struct Bounds {
        int low;
        int high;
    };
    using BoundsNow = std::function<Bounds()>;

    // The bar is a child of the parent, which must not be null.
    Divider(QWidget* parent, BoundsNow bounds);

  signals:
    void pressed();
    void moved(int x);     // within the bounds
    void released(int x);  // also for each step by keyboard

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] int bounded(int x) const;

    QWidget* m_bar;
    BoundsNow m_bounds;
    int m_grip = 0;  // where within the handle the mouse took it
    bool m_dragging = false;
};

}  // namespace controls
