#pragma once

#include <QHash>
#include <QMenuBar>
#include <QString>

#include "core/language.h"

class QAction;
class QMenu;

namespace frame {

// The menu bar and the two popup menus, built from one table. Every entry is found by its name ("guardar",
// "español"); top-level menus and submenus are entries too and can be disabled the same way.
//
// A click never turns a check mark over by itself: the entry's procedure finds the mark as it was, and sets
// it.
class MenuBar : public QMenuBar {
    Q_OBJECT
  public:
    explicit MenuBar(core::Language idioma, QWidget* parent = nullptr);

    [[nodiscard]] QAction* action(const QString& name) const;  // asserts that the name is known
    [[nodiscard]] QMenu* popup() const { return m_popup; }     // of the tree
    [[nodiscard]] QMenu* popup2() const { return m_popup2; }   // of the lists
    void setEnabled(const QString& name, bool enabled);
    void setChecked(const QString& name, bool checked);
    void checkOnly(const QString& name);  // checks the entry and unchecks its siblings of the same submenu
    using QMenuBar::setEnabled;

    // Attaches the entries' icons; done each time the main window is activated.
    void attachIcons();

  private:
    QHash<QString, QAction*> m_actions;
    QMenu* m_popup = nullptr;
    QMenu* m_popup2 = nullptr;
};

}  // namespace frame
