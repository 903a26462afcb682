#pragma once

#include <QObject>
#include <vector>

class QWidget;

namespace shell {

// Panes that lie over another one. While any of them is shown, the Tab key passes the covered one by.
class Cover : public QObject {
  public:
    Cover(std::vector<QWidget*> panes, QWidget& covered);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void update();

    std::vector<QWidget*> m_panes;
    std::vector<QWidget*> m_stops;  // where the Tab key stops in the covered pane
};

}  // namespace shell
