#pragma once

#include <QTabBar>

namespace controls {

// A row of tabs that never hides one: blanks around a caption give way first, then the letters get smaller,
// down to a size that can still be read. Otherwise in the font of its parent.
class TabStrip : public QTabBar {
    Q_OBJECT
  public:
    explicit TabStrip(QWidget* parent);

    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    [[nodiscard]] QSize minimumTabSizeHint(int index) const override;
    void resizeEvent(QResizeEvent* event) override;
    void tabInserted(int index) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void fit();
    [[nodiscard]] int narrowestWidth(const QFont& font) const;
};

}  // namespace controls
