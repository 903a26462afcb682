#include "controls/list_view.h"

#include <QEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QStackedLayout>
#include <algorithm>

#include "controls/list_panes.h"

namespace controls {

ListView::ListView(QWidget* parent)
    : QWidget(parent),
      m_stack(new QStackedLayout(this)),
      m_report(new ReportView(this)),
      m_icons(new IconsView(this)) {
    m_stack->addWidget(m_report);
    m_stack->addWidget(m_icons);
    setFocusProxy(m_report);
    QHeaderView* header = m_report->header();
    connect(header, &QHeaderView::sectionClicked, this,
            [this](int section) { emit columnClicked(section + 1); });
    connect(header, &QHeaderView::sectionResized, this, [this](int section, int, int width) {
        const auto& hidden = m_hiddenColumns;
        if (width > 0 && std::find(hidden.begin(), hidden.end(), section + 1) != hidden.end())
            m_report->setColumnHidden(section, true);
        else
            emit columnResized(section + 1);
    });
}

void ListView::setModel(QAbstractItemModel* model) {
    m_report->setModel(model);
    m_icons->setModel(model);
    QItemSelectionModel* replaced = m_icons->selectionModel();
    m_icons->setSelectionModel(m_report->selectionModel());
    delete replaced;
    connect(model, &QAbstractItemModel::rowsInserted, this, &ListView::fitCells);
    connect(model, &QAbstractItemModel::modelReset, this, &ListView::fitCells);
}

void ListView::setView(View view) {
    m_view = view;
    fitCells();
    const bool focused = shownView()->hasFocus() || m_stack->currentWidget()->hasFocus();
    m_stack->setCurrentWidget(shownView());
    setFocusProxy(shownView());
    if (focused) shownView()->setFocus();
    if (selectionModel() != nullptr) shownView()->scrollTo(shownView()->currentIndex());
}

void ListView::fitCells() {
    if (m_view != View::Report) m_icons->arrange(m_view);
}

void ListView::setFullRowSelect(bool on) {
    m_report->rows()->firstColumnOnly = !on;
    m_report->setAllColumnsShowFocus(on);
    m_report->viewport()->update();
}

bool ListView::fullRowSelect() const {
    return !m_report->rows()->firstColumnOnly;
}

void ListView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fitCells();
}

void ListView::setColumnWidth(int column, int pixels) {
    m_report->setColumnWidth(column - 1, pixels);
}

void ListView::setHiddenColumns(const std::vector<int>& columns) {
    m_hiddenColumns = columns;
    for (int section = 0; section < m_report->header()->count(); ++section)
        m_report->setColumnHidden(section,
                                  std::find(columns.begin(), columns.end(), section + 1) != columns.end());
}

void ListView::setSortIndicator(int column, Qt::SortOrder order) {
    m_report->header()->setSortIndicatorShown(column > 0);
    m_report->header()->setSortIndicator(column - 1, order);
}

QItemSelectionModel* ListView::selectionModel() const {
    return m_report->selectionModel();
}

int ListView::currentRow() const {
    return shownView()->currentIndex().row();
}

bool ListView::isSelected(int row) const {
    const QAbstractItemModel* model = m_report->model();
    return row >= 0 && selectionModel()->isSelected(model->index(row, 0));
}

void ListView::setCurrentRow(int row) {
    const QModelIndex place = m_report->model()->index(row, 0);
    selectionModel()->setCurrentIndex(place, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    shownView()->scrollTo(place);
}

void ListView::setListName(const QString& name) {
    setAccessibleName(name);
    m_report->setAccessibleName(name);
    m_icons->setAccessibleName(name);
}

QAbstractItemView* ListView::shownView() const {
    return m_view == View::Report ? static_cast<QAbstractItemView*>(m_report) : m_icons;
}

void ListView::repaintNow() {
    shownView()->viewport()->repaint();
}

}  // namespace controls
