#pragma once

#include <QElapsedTimer>
#include <QWidget>
#include <string_view>

#include "core/language.h"

class QLabel;
class QProgressBar;

namespace frame {

// Picture4, the band at the window's foot: the status line Text9, the size Label3 with ProgressBar1 over it,
// the unit's icon Picture16 and its kind Label2.
//
// At 8 points the controls stand at fixed places; a bigger font widens them, and a long status line moves the
// others aside, as far as the kind leaves them room. What still does not fit is cut in its middle and told
// whole by its tool tip.
class StatusBand : public QWidget {
    Q_OBJECT
  public:
    explicit StatusBand(core::Language idioma, QWidget* parent = nullptr);

    void setText(std::string_view text);  // Text9; painted also during long work, some twenty times a second
    void explainText(std::string_view explanation);  // the tool tip of Text9, until its text changes
    void setSize(std::string_view text);             // Label3
    void setKind(std::string_view text);             // Label2
    void setPicture(int picture);                    // Picture16; 0 for none
    void blank();                                    // all four
    [[nodiscard]] QString text() const;
    [[nodiscard]] QString size() const;
    [[nodiscard]] QString kind() const;
    [[nodiscard]] int picture() const { return m_picture; }

    void showProgress(int maximum);  // value 0; a maximum below 1 counts as 1
    void setProgress(int value);     // a value past the maximum is ignored
    void advanceProgress();
    void hideProgress();
    [[nodiscard]] QProgressBar& progress() { return *m_progress; }

    void applyFontSize(int points);  // of Text9, Label3 and Label2; the band's sizeHint follows
    [[nodiscard]] QSize sizeHint() const override;

  protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void arrange();
    [[nodiscard]] int lineHeight() const;

    QLabel* m_text;
    QLabel* m_size;
    QProgressBar* m_progress;
    QLabel* m_icon;
    QLabel* m_kind;
    int m_value = 0;  // of the bar, which is told of it when that shows
    int m_picture = 0;
    int m_points = 8;
    QElapsedTimer m_lastPaint;
};

}  // namespace frame
