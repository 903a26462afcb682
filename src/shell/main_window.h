#pragma once

#include <QMainWindow>
#include <memory>

#include "browse/surface.h"
#include "core/language.h"

namespace shell {

class Dialogs;
class Messages;
struct MainWindowParts;

// The main window. Owns the controls, the panels and the actions, and wires each menu entry, button and
// control event to the procedure that runs for it; the procedures stand in the rooms.
class Form1 : public QMainWindow {
    Q_OBJECT
  public:
    // The seams are borrowed and outlive the window.
    Form1(core::Language idioma, Messages& messages, Dialogs& dialogs);
    ~Form1() override;

    // A catalogue's native path from the command line; opened when the window is shown.
    void openFromCommandLine(const std::string& path);
    // The quick start's three buttons.
    void nuevo1();
    void abrir1();
    void reciente1();
    void setRecentMissing();  // there is no last file to open again

    [[nodiscard]] browse::Surface& surface();

  signals:
    void closed();          // the whole program ends with the main window
    void aboutRequested();  // `acerca`

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void connectMenus();
    void connectToolbar();
    void connectControls();
    void runToolbarButton(int button);

    void nuevoClicked();
    void abrirClicked();
    void stop();
    void refresh(bool fromMenu);
    void copyFiles();
    void setFontSize(int points);
    void showToolbarTexts(bool shown);
    void toggleQuickStart();
    void toggleNode();
    void showProperties();
    void treePressed(Qt::MouseButton button, const QPoint& place);
    void listPressed();
    void listReleased(Qt::MouseButton button, const QPoint& place);

    std::unique_ptr<MainWindowParts> m_parts;
};

}  // namespace shell
