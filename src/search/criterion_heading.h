#pragma once

#include <QWidget>

class QCheckBox;

namespace search {

// A check box and its caption, which wraps where a box's own would be cut. A click on the caption is a click
// on the box. The second label has the caption too and is never shown.
class CriterionHeading : public QWidget {
    Q_OBJECT
  public:
    // The names are those of the caption's two labels, whose texts come from the window's captions.
    CriterionHeading(QCheckBox* check, const QString& label, const QString& shadow,
                     QWidget* parent = nullptr);

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    QCheckBox* m_check;
};

}  // namespace search
