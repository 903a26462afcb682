#pragma once

#include <QWidget>
#include <string>

#include "frame/frame.h"
#include "scan/import_job.h"

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabBar;
class QVBoxLayout;

namespace controls {
class ImageCombo;
}  // namespace controls

namespace scan {

// Picture2, the panel where a unit is entered: from a directory (pane 0) or by hand (pane 1).
class ImportPanel : public QWidget {
    Q_OBJECT
  public:
    ImportPanel(frame::Frame& frame, ImportEvents events, QWidget* parent = nullptr);

    // The keyboard's way through the fields, from the first one; once the panel is in front.
    void enter();
    void setDirectory(const std::string& directory);  // the chosen one, by its native path
    // The five kinds of ImageCombo4, the first selected; part of opening a catalogue.
    void fillKinds();

    void Parar() { m_job.Parar(); }      // the stop entry and button
    void abandon() { m_job.abandon(); }  // the window or the catalogue closes

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void arrange();
    [[nodiscard]] QWidget* makeDirectoryPane();
    [[nodiscard]] QWidget* makeManualPane();
    QLabel* addLabel(const QString& objectName, QVBoxLayout* below);
    void connectFields();
    void nameControls();

    void showPane(int pane);
    void focusFirst();  // of the pane in front
    void chooseDirectory();

    frame::Frame& m_frame;
    std::string m_directory;  // the chosen one, by its native path

    QTabBar* m_TabStrip2;
    QLineEdit* m_Text3;
    QLineEdit* m_Text4;
    QLineEdit* m_Text11;
    controls::ImageCombo* m_ImageCombo4;
    QPushButton* m_Label19;
    QPushButton* m_Label20;
    QWidget* m_panes[2];  // Picture13
    ImportJob m_job;
};

}  // namespace scan
