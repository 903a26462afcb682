#pragma once

#include <QTabBar>

namespace search {

// Tabs that share the strip's width and shrink their letters rather than hide one.
class TabStrip : public QTabBar {
    Q_OBJECT
  public:
    explicit TabStrip(QWidget* parent = nullptr);

    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    [[nodiscard]] QSize tabSizeHint(int index) const override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void tabLayoutChange() override;

  private:
    [[nodiscard]] int textWidth(const QFont& font, int index) const;
    [[nodiscard]] int textsWidth(const QFont& font) const;
    void fitLetters();

    bool m_fitting = false;
};

}  // namespace search
