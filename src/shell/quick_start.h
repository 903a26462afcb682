#pragma once

#include <QString>
#include <QWidget>

#include "core/language.h"

class QAbstractButton;
class QCheckBox;
class QLabel;

namespace shell {

// Form8, the quick start: open the most recent catalogue, open another or create one. Each of the three saves
// whether the window comes again, and hides it.
class Form8 : public QWidget {
    Q_OBJECT
  public:
    explicit Form8(core::Language idioma, QWidget* parent = nullptr);

    // The rows of the recent file, which takes the focus; an empty name hides them.
    void setRecent(const QString& lastFile);

  signals:
    void createChosen();  // Command1
    void openChosen();    // Command2
    void recentChosen();  // Command3

  protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] QLabel* addLabel(QLabel* label, const QString& name, QAbstractButton* button);
    [[nodiscard]] QAbstractButton* addButton(const QString& name, const char* icon, void (Form8::*chosen)());
    void iniciorapid();

    QAbstractButton* m_create;  // Command1
    QAbstractButton* m_open;    // Command2
    QAbstractButton* m_recent;  // Command3
    QLabel* m_recentName;       // Label1
    QLabel* m_recentHeading;    // Label2
    QCheckBox* m_notAgain;      // Check1
};

}  // namespace shell
