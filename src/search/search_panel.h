#pragma once

#include <QTimer>
#include <QWidget>
#include <span>

#include "core/units.h"
#include "engine/error.h"
#include "engine/search_memory.h"
#include "frame/frame.h"
#include "search/refusal.h"
#include "search/result_row.h"
#include "search/search_run.h"

class QComboBox;
class QPushButton;

namespace lists {
class ItemList;
}
namespace controls {
class ImageCombo;
class TabStrip;
}  // namespace controls

namespace search {

class CriteriaPages;

// Picture1: what to look for, and the button that looks for it. It takes the place of the tree while it is
// shown; whoever shows it also gives it the focus and the tab order.
class SearchPanel : public QWidget {
    Q_OBJECT
  public:
    // All but the parent are borrowed and outlive the panel.
    SearchPanel(const frame::Frame& frame, lists::ItemList& listView2, lists::RowMemory& memory,
                QWidget* parent = nullptr);

    void setTabOrder();  // Combo2, Label5, TabStrip1 and its pages, the results
    void focusCombo2();

    // ImageCombo2: the eight types anew, the first selected.
    void fillTypes();
    // ImageCombo3: the whole catalogue, selected, and behind it these units.
    void setUnits(std::span<const core::UnitItem> units);
    void addUnit(const core::UnitItem& unit);  // unless it is there
    void removeUnit(const std::string& disco);

    [[nodiscard]] SearchRequest request() const;
    [[nodiscard]] const FoundCounts& counters() const { return m_counters; }

    // True from the first search on until the names are in memory that later ones look in.
    [[nodiscard]] bool isFillingMemory() const { return m_idle.isActive(); }

    void clickLabel5();
    void busquedaconfecha();

  private:
    void makeControls();
    [[nodiscard]] controls::ImageCombo& imageCombo3();
    void appendItem(const core::UnitItem& unit);
    [[nodiscard]] int itemOf(const std::string& disco);  // 0 when it has none
    void showTab(int tab);
    void enterInField();
    void enterInNote();
    void search(Road road);
    void run(const SearchRequest& request);
    void fillMemory();
    void fail(const engine::Error& error);
    void showCounters();
    void warn(core::Bilingual message);

    const frame::Frame& m_frame;
    lists::ItemList& m_listView2;
    lists::RowMemory& m_memory;
    FoundCounts m_counters;
    engine::SearchMemory m_searchMemory;
    QTimer m_idle;  // runs while there is more to remember
    QComboBox* m_combo2;
    QPushButton* m_label5;
    controls::TabStrip* m_tabStrip1;
    CriteriaPages* m_picture15;
};

}  // namespace search
