#pragma once

#include <QAbstractButton>

namespace controls {

// A label that can be clicked, in the look of a flat button: the text alone until the pointer or the focus is
// on it. A real button to the keyboard (Space, Enter) and to assistive tools.
class ClickableLabel : public QAbstractButton {
    Q_OBJECT
  public:
    explicit ClickableLabel(QWidget* parent = nullptr);
    explicit ClickableLabel(const QString& text, QWidget* parent = nullptr);

    void setAlignment(Qt::Alignment alignment);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    Qt::Alignment m_alignment = Qt::AlignCenter;
};

}  // namespace controls
