#pragma once

#include <QWidget>
#include <optional>

#include "core/language.h"

class QPushButton;
class QRadioButton;

namespace shell {

// Form5, the language chooser of a first start. It speaks both languages at once.
class Form5 : public QWidget {
    Q_OBJECT
  public:
    explicit Form5(QWidget* parent = nullptr);

    [[nodiscard]] std::optional<core::Language> choice() const;  // nothing while neither option is set

  signals:
    void confirmed();  // Command1
    void dismissed();  // closed without an answer

  protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QRadioButton* m_english;
    QRadioButton* m_spanish;
    QPushButton* m_ok;
};

}  // namespace shell
