#pragma once

#include <QMainWindow>
#include <QPointer>
#include <memory>

#include "browse/surface.h"
#include "core/language.h"
#include "shell/startup.h"

namespace frame {
class Dialogs;
class Messages;
}  // namespace frame

namespace shell {

class Form3;
struct MainWindowParts;

// The main window. Owns the controls, the panels and the actions, and wires each menu entry, button and
// control event to the procedure that runs for it; the procedures stand in the rooms.
class Form1 : public QMainWindow, public MainEntry {
    Q_OBJECT
  public:
    // The seams are borrowed and outlive the window.
    Form1(core::Language idioma, frame::Messages& messages, frame::Dialogs& dialogs);
    ~Form1() override;

    void begin(const std::string& catalogue) override;
    void importFolder(const std::string& folder) override;
    void recentIsMissing() override;
    void nuevo1() override;
    void abrir1() override;
    void reciente1() override;

    [[nodiscard]] browse::Surface& surface();

  signals:
    void aboutRequested();  // `acerca`

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
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
    void showStatistics();
    void setFontSize(int points);
    void showToolbarTexts(bool shown);
    void toggleQuickStart();
    void showQuickStart();
    void toggleNode();
    void renameUnit(browse::Node unit, const QString& text);
    void showProperties();
    void layOut();
    void treePressed(Qt::MouseButton button, const QPoint& place);
    void listPressed();
    void listReleased(Qt::MouseButton button, const QPoint& place);

    std::unique_ptr<MainWindowParts> m_parts;
    QPointer<Form3> m_properties;
};

}  // namespace shell
