#pragma once

#include <QTabBar>

namespace controls {

// Tabs that share the strip's width and shrink their letters rather than hide one. Blanks around a caption
// give way.
class TabStrip : public QTabBar {
    Q_OBJECT
  public:
    explicit TabStrip(QWidget* parent);

    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    [[nodiscard]] QSize tabSizeHint(int index) const override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;  // the parent's font is the one to fit
    void tabLayoutChange() override;

  private:
    [[nodiscard]] int textWidth(const QFont& font, int index) const;
    [[nodiscard]] int textsWidth(const QFont& font) const;
    void fitLetters();

    bool m_fitting = false;
};

}  // namespace controls
