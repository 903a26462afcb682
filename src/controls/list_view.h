#pragma once

#include <QWidget>

class QAbstractItemModel;
class QAbstractItemView;
class QItemSelectionModel;
class QModelIndex;
class QStackedLayout;

namespace controls {

class IconsView;
class ReportView;

// One model of rows in four views: with columns, or as icons. The views share the selection. Made for a
// million rows: all rows have one height, all icons one cell. Columns count from 1; rows from 0.
class ListView : public QWidget {
    Q_OBJECT
  public:
    enum class View { LargeIcons = 0, SmallIcons = 1, List = 2, Report = 3 };

    // A model may give under this role the icon of column 1 for the view of large icons.
    static constexpr int LargeIconRole = Qt::UserRole + 1;

    explicit ListView(QWidget* parent = nullptr);
    void setModel(QAbstractItemModel* model);  // not owned; once

    void setView(View view);
    [[nodiscard]] View view() const { return m_view; }
    // Off: only the first column of the report shows the selection and can be clicked.
    void setFullRowSelect(bool on);
    [[nodiscard]] bool fullRowSelect() const;

    void setColumnWidth(int column, int pixels);
    [[nodiscard]] int captionWidth(int column) const;        // that the caption and a sort arrow need
    void setSortIndicator(int column, Qt::SortOrder order);  // column 0: no indicator

    [[nodiscard]] QItemSelectionModel* selectionModel() const;
    [[nodiscard]] int currentRow() const;  // -1 for none; not always a selected one
    [[nodiscard]] bool isSelected(int row) const;
    void setCurrentRow(int row);  // selects it alone and shows it; not a click

    // What a screen reader calls the list.
    void setListName(const QString& name);
    [[nodiscard]] QAbstractItemView* shownView() const;
    void repaintNow();

  signals:
    void rowClicked(int row);    // pressed with any button, or reached by a key
    void rowActivated(int row);  // double click or Enter
    void mousePressed(Qt::MouseButton button, const QPoint& globalPosition);  // after the selection changed
    void mouseReleased(Qt::MouseButton button, const QPoint& globalPosition);
    void columnClicked(int column);
    void columnResized(int column);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void fitCells();

    QStackedLayout* m_stack;
    ReportView* m_report;
    IconsView* m_icons;
    View m_view = View::Report;
};

}  // namespace controls
