#pragma once

#include <QLabel>

namespace frame {

// A line of plain text that ends in an ellipsis where it does not fit, and then tells the whole as its tool
// tip.
class ElidedLabel : public QLabel {
  public:
    explicit ElidedLabel(QWidget* parent = nullptr, Qt::TextElideMode mode = Qt::ElideRight);
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    [[nodiscard]] bool fits() const;

    Qt::TextElideMode m_mode;
};

}  // namespace frame
