#pragma once

#include "browse/opening.h"
#include "scan/import_host.h"
#include "shell/catalogue_actions.h"

namespace shell {

struct MainWindowParts;

// What opening and closing a catalogue ask of the window.
class OpeningWindow : public browse::OpeningHost, public CatalogueWindow {
  public:
    explicit OpeningWindow(MainWindowParts& parts) : m_parts(parts) {}

    void resetPanels() override;
    void layOutPanes() override;
    void selectFirstType() override;

    void setCatalogueOpen(bool open) override;
    void showBrowseSurface(bool shown) override;
    void hidePanels() override;
    void showSearchPanel() override;
    void setCaption(const QString& caption) override;

  private:
    MainWindowParts& m_parts;
};

// What the import panel asks of the window.
class ImportWindow : public scan::ImportHost {
  public:
    explicit ImportWindow(MainWindowParts& parts) : m_parts(parts) {}

    void placeOverTree(QWidget& panel) override;
    void hidePicture1() override;
    void hideListView2() override;
    void clearListView1() override;
    void clearListView2() override;
    void clearTreeView1() override;
    void clearImageCombos() override;
    void addUnit(const QString& text, int picture, const QString& key) override;
    [[nodiscard]] int imageCombo1Count() const override;
    void actualizar() override;
    void explorar1() override;
    void reciente1() override;

  private:
    MainWindowParts& m_parts;
};

}  // namespace shell
