#include "stats/statistics_window.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPrinter>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

#include "controls/accessible.h"
#include "controls/pictures.h"
#include "controls/screen_fit.h"
#include "frame/dialogs.h"
#include "frame/elided_label.h"
#include "platform/qtext.h"
#include "stats/bar_chart_2d.h"
#include "stats/bar_chart_3d.h"
#include "stats/pie_chart.h"
#include "stats/window_printing.h"

namespace stats {
namespace {

using platform::qtext;

constexpr core::Bilingual heading{"Estadisticas", "Statistics"};
constexpr core::Bilingual columnHeads[] = {
    {"Tipo", "Type"}, {"Porcentaje", "Percentage"}, {"Cantidad", "Quantity"}};
constexpr core::Bilingual tabTitles[] = {
    {"Torta", "Cake"}, {"Barras 3D", "3D Bars"}, {"Barras 2D", "2D Bars"}};
constexpr core::Bilingual closeCaption{"Cerrar", "Close"};
constexpr core::Bilingual printCaption{"Imprimir", "Print"};

constexpr int swatchSize = 14;
constexpr QSize usualSize(860, 480);  // for letters of 9 points
enum Column { Swatch, Icon, Name, Share, Count };

QString indexed(const char* name, std::size_t index) {
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index);
}

QPixmap swatch(std::size_t category, double ratio) {
    QPixmap pixmap(QSize(swatchSize, swatchSize) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(categoryOutline(category));
    painter.setBrush(categoryColour(category));
    painter.drawRoundedRect(QRectF(0.5, 0.5, swatchSize - 1, swatchSize - 1), 3, 3);
    return pixmap;
}

void setFontScale(QWidget& widget, double scale, bool bold) {
    QFont font = widget.font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(bold);
    widget.setFont(font);
}

}  // namespace

Form4::Form4(core::Language idioma, frame::Dialogs& dialogs, QWidget* parent)
    : QDialog(parent), m_idioma(idioma), m_dialogs(dialogs) {
    setObjectName(QStringLiteral("Form4"));
    setWindowTitle(qtext(heading.in(idioma)));
    setWindowFlag(Qt::WindowMinMaxButtonsHint);
    for (std::size_t category = 0; category < categoryCount; ++category)
        m_icons[category] = controls::picture(categories[category].picture);

    m_scopeTitle = new frame::ElidedLabel(this, Qt::ElideMiddle);  // a long name widens no window
    m_scopeTitle->setObjectName(QStringLiteral("Label13"));
    setFontScale(*m_scopeTitle, 1.1, true);
    QSizePolicy keepsRoom = m_scopeTitle->sizePolicy();
    keepsRoom.setRetainSizeWhenHidden(true);
    m_scopeTitle->setSizePolicy(keepsRoom);
    m_scopeTitle->hide();

    auto* body = new QHBoxLayout;
    body->setSpacing(18);
    body->addWidget(buildTable());
    body->addWidget(buildCharts(), 1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_scopeTitle);
    layout->addLayout(body, 1);
    layout->addWidget(buildButtons());

    m_close->setFocus();
    setTabOrder(m_close, m_print);
    setTabOrder(m_print, m_tabs);
    m_tabs->setCurrentIndex(0);
    controls::fitToScreen(*this);
}

QLabel* Form4::label(const QString& name, const QString& text) {
    auto* made = new QLabel(text, this);
    made->setObjectName(name);
    made->setTextFormat(Qt::PlainText);
    return made;
}

QWidget* Form4::buildTable() {
    auto* table = new QWidget;
    auto* grid = new QGridLayout(table);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(6);

    QLabel* title = label(QStringLiteral("Label12"), qtext(heading.in(m_idioma)));
    setFontScale(*title, 1.6, true);
    grid->addWidget(title, 0, 0, 1, Count + 1);
    for (std::size_t i = 0; i < std::size(columnHeads); ++i) {
        QLabel* head = label(indexed("Label10", i), qtext(columnHeads[i].in(m_idioma)));
        setFontScale(*head, 1, true);
        if (i == 0)
            grid->addWidget(head, 1, 0, 1, Name + 1);
        else
            grid->addWidget(head, 1, Name + static_cast<int>(i), Qt::AlignRight);
    }
    for (std::size_t category = 0; category < categoryCount; ++category) {
        const int row = 2 + static_cast<int>(category);
        auto* colour = new QLabel;
        controls::silence(*colour);
        colour->setPixmap(swatch(category, devicePixelRatioF()));
        m_iconLabels[category] = label(indexed("Picture2", category));
        m_iconLabels[category]->setPixmap(
            m_icons[category].pixmap(QSize(iconSize, iconSize), devicePixelRatioF()));
        m_names[category] = label(QStringLiteral("Label%1").arg(category + 1));
        m_counts[category] = label(indexed("Label11", category));
        m_shares[category] = label(indexed("Label11", categoryCount + category));
        grid->addWidget(colour, row, Swatch);
        grid->addWidget(m_iconLabels[category], row, Icon);
        grid->addWidget(m_names[category], row, Name);
        grid->addWidget(m_shares[category], row, Share, Qt::AlignRight);
        grid->addWidget(m_counts[category], row, Count, Qt::AlignRight);
    }
    addTotalRow(*grid);
    grid->setRowStretch(grid->rowCount(), 1);
    grid->setColumnStretch(Name, 1);
    return table;
}

void Form4::addTotalRow(QGridLayout& grid) {
    const int row = 2 + static_cast<int>(categoryCount);
    auto* line = new QFrame;
    controls::silence(*line);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    grid.addWidget(line, row, 0, 1, Count + 1);
    QLabel* caption = label(indexed("Label10", 3), QStringLiteral("Total:"));  // the word is both languages'
    m_total = label(indexed("Label10", 4));
    setFontScale(*caption, 1, true);
    setFontScale(*m_total, 1, true);
    grid.addWidget(caption, row + 1, Name);
    grid.addWidget(m_total, row + 1, Count, Qt::AlignRight);
}

QWidget* Form4::buildCharts() {
    m_pie = new PieChart(m_icons);
    m_bars3D = new BarChart3D(m_icons);
    m_bars2D = new BarChart2D(m_icons);
    QWidget* const charts[] = {m_pie, m_bars3D, m_bars2D};

    m_tabs = new QTabBar;
    m_tabs->setObjectName(QStringLiteral("TabStrip1"));
    m_tabs->setAccessibleName(qtext(heading.in(m_idioma)));
    m_pages = new QStackedWidget;
    for (std::size_t i = 0; i < std::size(charts); ++i) {
        const QString title = qtext(tabTitles[i].in(m_idioma));
        charts[i]->setObjectName(QStringLiteral("MSChart%1").arg(i + 1));
        charts[i]->setAccessibleName(title);
        charts[i]->setMinimumSize(280, 180);
        charts[i]->setFocusPolicy(Qt::NoFocus);
        auto* page = new QFrame;
        page->setObjectName(indexed("Picture1", i));
        page->setAccessibleName(title);
        page->setFrameShape(QFrame::StyledPanel);
        page->setBackgroundRole(QPalette::Base);
        page->setAutoFillBackground(true);
        auto* layout = new QVBoxLayout(page);
        layout->addWidget(charts[i]);
        m_tabs->addTab(title);
        m_pages->addWidget(page);
    }
    connect(m_tabs, &QTabBar::currentChanged, m_pages, &QStackedWidget::setCurrentIndex);

    auto* side = new QWidget;
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_tabs);
    layout->addWidget(m_pages, 1);
    return side;
}

QWidget* Form4::buildButtons() {
    m_close = new QPushButton(qtext(closeCaption.in(m_idioma)));
    m_close->setObjectName(QStringLiteral("Command1"));
    m_close->setDefault(true);
    m_print = new QPushButton(qtext(printCaption.in(m_idioma)));
    m_print->setObjectName(QStringLiteral("Command2"));
    connect(m_close, &QPushButton::clicked, this, &QWidget::hide);
    connect(m_print, &QPushButton::clicked, this, &Form4::print);

    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch();
    layout->addWidget(m_print);
    layout->addWidget(m_close);
    return row;
}

void Form4::setScopeTitle(std::string_view title) {
    setWindowTitle(qtext(title));
    m_scopeTitle->setText(qtext(title));
}

void Form4::setStatistics(const Statistics& statistics, const Scope& scope) {
    m_pie->setStatistics(statistics);
    m_bars3D->setStatistics(statistics);
    m_bars2D->setStatistics(statistics);
    QString spoken;
    for (std::size_t category = 0; category < categoryCount; ++category) {
        m_names[category]->setText(qtext(categoryName(m_idioma, scope, category)));
        m_counts[category]->setText(QString::number(statistics.cantidadcategoria[category]));
        m_shares[category]->setText(QString::number(statistics.percentage(category)) + QStringLiteral(" %"));
        m_iconLabels[category]->setAccessibleName(m_names[category]->text());
        spoken += m_names[category]->text() + u' ' + shareText(statistics, category) + u'\n';
    }
    m_total->setText(QString::number(statistics.totalarchivos));
    for (QWidget* chart :
         {static_cast<QWidget*>(m_pie), static_cast<QWidget*>(m_bars3D), static_cast<QWidget*>(m_bars2D)})
        chart->setAccessibleDescription(spoken);
    // Only now are the words there that it must hold; those beside the pie need more room than a hint asks
    // for.
    if (testAttribute(Qt::WA_Resized)) return;
    resize(sizeHint().expandedTo(usualSize * (fontInfo().pointSizeF() / 9)));
}

void Form4::print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(windowTitle().trimmed());
    const auto copies = m_dialogs.print(printer);
    if (!copies) return;
    m_scopeTitle->show();
    if (printImage(*this, printer, *copies)) m_scopeTitle->hide();
}

}  // namespace stats

#include "moc_statistics_window.cpp"
