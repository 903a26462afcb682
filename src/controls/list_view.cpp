#include "controls/list_view.h"

#include <QEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QStackedLayout>
#include <QStyle>

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
    connect(header, &QHeaderView::sectionResized, this,
            [this](int section) { emit columnResized(section + 1); });
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

// The style makes room for the arrow only while it shows.
int ListView::captionWidth(int column) const {
    const QHeaderView& header = *m_report->header();
    const QString caption = header.model()->headerData(column - 1, Qt::Horizontal).toString();
    const int arrow = style()->pixelMetric(QStyle::PM_HeaderMarkSize, nullptr, &header);
    const int margin = style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &header);
    return header.fontMetrics().horizontalAdvance(caption) + arrow + 4 * margin;
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

#include "moc_list_view.cpp"
