#pragma once

#include <QObject>

class QComboBox;

namespace controls {

// Keeps a combo from changing by the way: while its list is closed the wheel passes over it, and the keys
// that move through the items open the list, where Enter or a click chooses. Owned by the combo.
class ClosedCombo : public QObject {
    Q_OBJECT
  public:
    explicit ClosedCombo(QComboBox* combo);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QComboBox* m_combo;
};

}  // namespace controls
