#pragma once

#include <QWidget>

class QCheckBox;

namespace search {

// A check box and its caption, embossed: one label over another that is its shadow. A click on the caption is
// a click on the box.
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
