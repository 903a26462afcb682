#pragma once

#include <QDialog>
#include <array>
#include <string_view>

#include "core/language.h"
#include "stats/chart_palette.h"

class QGridLayout;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTabBar;

namespace frame {
class Dialogs;
}

namespace stats {

class BarChart2D;
class BarChart3D;
class PieChart;

// The statistics window: a table of the eight categories and the same counts as three charts, one to a tab.
// It is shown beside the main window, hidden when closed, and filled anew by every run.
class Form4 : public QDialog {
    Q_OBJECT
  public:
    Form4(core::Language idioma, frame::Dialogs& dialogs, QWidget* parent = nullptr);

    void setScopeTitle(std::string_view title);
    void setStatistics(const Statistics& statistics, const Scope& scope);

    // Prints the window's image with the scope title over it, once per copy. Nothing happens on a cancel;
    // when the printer fails the title stays.
    void print();

  private:
    [[nodiscard]] QWidget* buildTable();
    void addTotalRow(QGridLayout& grid);
    [[nodiscard]] QWidget* buildCharts();
    [[nodiscard]] QWidget* buildButtons();
    QLabel* label(const QString& name, const QString& text = {});

    core::Language m_idioma;
    frame::Dialogs& m_dialogs;
    CategoryIcons m_icons;
    QLabel* m_scopeTitle = nullptr;                     // Label13
    std::array<QLabel*, categoryCount> m_iconLabels{};  // Picture2(0) to (7)
    std::array<QLabel*, categoryCount> m_names{};       // Label1 to Label8
    std::array<QLabel*, categoryCount> m_counts{};      // Label11(0) to (7)
    std::array<QLabel*, categoryCount> m_shares{};      // Label11(8) to (15)
    QLabel* m_total = nullptr;                          // Label10(4)
    QTabBar* m_tabs = nullptr;                          // TabStrip1
    QStackedWidget* m_pages = nullptr;
    PieChart* m_pie = nullptr;       // MSChart1
    BarChart3D* m_bars3D = nullptr;  // MSChart2
    BarChart2D* m_bars2D = nullptr;  // MSChart3
    QPushButton* m_close = nullptr;  // Command1
    QPushButton* m_print = nullptr;  // Command2
};

}  // namespace stats
