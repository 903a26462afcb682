#include "search/criteria_pages.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>

#include "controls/accessible.h"
#include "controls/image_combo.h"
#include "controls/key_filter.h"
#include "controls/step_buttons.h"
#include "controls/tool_tip.h"
#include "core/serial_date.h"
#include "core/text.h"
#include "frame/captions.h"
#include "platform/qtext.h"
#include "search/criterion_heading.h"
#include "search/recent_combo.h"
#include "search/typed_text.h"

namespace search {
namespace {

using controls::ImageCombo;
using controls::KeyFilter;
using controls::UpDown;

constexpr int pageMargin = 6;
constexpr int narrowestField = 48;
constexpr QColor switchedOff(0x80, 0x80, 0x80);

void tint(QWidget& field, bool on) {
    const QColor color =
        on ? QApplication::palette().color(QPalette::Active, QPalette::ButtonText) : switchedOff;
    QPalette palette;
    for (const auto role : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText})
        palette.setColor(role, color);
    field.setPalette(palette);
}

QString numbered(const char* name, int index) {
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index);
}

QLabel* makeLabel(const QString& name, QWidget* buddy) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setBuddy(buddy);
    return label;
}

QString shortDateWithCentury() {
    QString format = QLocale::system().dateFormat(QLocale::ShortFormat);
    if (!format.contains(QLatin1String("yyyy"))) format.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    return format;
}

// The calendar's names belong to the interface, the week's first day to the user's country.
QLocale calendarLocale(core::Language idioma) {
    const bool spanish = idioma == core::Language::Spanish;
    return {spanish ? QLocale::Spanish : QLocale::English, QLocale::system().territory()};
}

double serialOf(const QDateEdit& picker) {
    const QDate date = picker.date();
    return core::serialOfDate(date.year(), date.month(), date.day());
}

}  // namespace

CriteriaPages::CriteriaPages(core::Language idioma, QWidget* parent) : QFrame(parent), m_idioma(idioma) {
    setObjectName(QStringLiteral("Picture15"));
    setAccessibleName(frame::caption(u"Label12", idioma));
    setFrameShape(QFrame::StyledPanel);
    auto* stack = new QGridLayout(this);
    stack->setContentsMargins({});
    makeTypePage();
    makeUnitPage();
    makeDatePage();
    makeSizePage();
    makeNotePage();
    for (int criterion = 0; criterion < count; ++criterion) {
        stack->addWidget(m_pages[criterion], 0, 0);
        switchCriterion(Criterion(criterion), false);
        connect(m_checks[criterion], &QCheckBox::toggled, this,
                [this, criterion](bool on) { switchCriterion(Criterion(criterion), on); });
    }
    showPage(0);
}

QVBoxLayout* CriteriaPages::addPage(Criterion criterion, const QString& label, const QString& shadow) {
    auto* check = new QCheckBox;
    check->setObjectName(numbered("Check1", criterion));
    check->setAccessibleName(frame::caption(label, m_idioma));
    auto* page = new QWidget(this);
    page->setObjectName(numbered("Picture11", criterion));
    page->setAccessibleName(frame::caption(numbered("TabStrip1", criterion + 1), m_idioma).trimmed());
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    column->addWidget(new CriterionHeading(check, label, shadow));
    m_pages[criterion] = page;
    m_checks[criterion] = check;
    return column;
}

ImageCombo* CriteriaPages::makeImageCombo(const QString& name, const QString& heading) {
    auto* combo = new ImageCombo;
    combo->setObjectName(name);
    controls::nameField(*combo, frame::caption(heading, m_idioma));
    combo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    KeyFilter::install(
        combo, [](char32_t) { return false; }, [this] { emit enterPressed(); });
    connect(combo, &QComboBox::currentTextChanged, combo,  // a narrow panel cuts it
            [combo](const QString& text) { combo->setToolTip(controls::toolTipOf(text)); });
    return combo;
}

void CriteriaPages::makeTypePage() {
    const QString heading = QStringLiteral("Label6");
    QVBoxLayout* column = addPage(Type, heading, QStringLiteral("Label18"));
    m_imageCombo2 = makeImageCombo(QStringLiteral("ImageCombo2"), heading);
    column->addWidget(m_imageCombo2);
    column->addStretch();
    fillTypes();
}

void CriteriaPages::fillTypes() {
    constexpr int pictureOfAll = 1;
    constexpr int pictureOfAudio = 7;  // the others follow in their order
    m_imageCombo2->clear();
    for (int item = 1; const FileType type : fileTypes) {
        const int picture = type == FileType::All ? pictureOfAll : pictureOfAudio + item - 2;
        m_imageCombo2->addItem(item++, platform::qtext(captionOf(type, core::rotulos(m_idioma))), picture);
    }
    m_imageCombo2->setSelected(1);
}

void CriteriaPages::makeUnitPage() {
    const QString heading = QStringLiteral("Label7");
    QVBoxLayout* column = addPage(Unit, heading, QStringLiteral("Label17"));
    m_imageCombo3 = makeImageCombo(QStringLiteral("ImageCombo3"), heading);
    column->addWidget(m_imageCombo3);
    column->addStretch();
}

QDateEdit* CriteriaPages::makePicker(const QString& name, const QString& label) {
    auto* picker = new QDateEdit(QDate::currentDate());
    picker->setObjectName(name);
    controls::nameField(*picker, frame::caption(label, m_idioma));
    picker->setLocale(calendarLocale(m_idioma));
    picker->setDisplayFormat(shortDateWithCentury());
    picker->setCalendarPopup(true);
    return picker;
}

void CriteriaPages::makeDatePage() {
    QVBoxLayout* column = addPage(Date, QStringLiteral("Label10(0)"), QStringLiteral("Label10(5)"));
    const QString from = QStringLiteral("Label13"), until = QStringLiteral("Label14");
    m_dtPicker1 = makePicker(QStringLiteral("DTPicker1"), from);
    m_dtPicker2 = makePicker(QStringLiteral("DTPicker2"), until);
    auto* grid = new QGridLayout;
    grid->addWidget(makeLabel(from, m_dtPicker1), 0, 0);
    grid->addWidget(m_dtPicker1, 0, 1);
    grid->addWidget(makeLabel(until, m_dtPicker2), 1, 0);
    grid->addWidget(m_dtPicker2, 1, 1);
    grid->setColumnStretch(2, 1);
    column->addLayout(grid);
    column->addStretch();
}

QLineEdit* CriteriaPages::makeSizeField(const QString& name, const QString& label, UpDown* steps) {
    auto* field = new QLineEdit(QStringLiteral("0"));
    field->setObjectName(name);
    field->setAccessibleName(frame::caption(label, m_idioma));
    field->setMinimumWidth(narrowestField);
    KeyFilter::install(
        field, [](char32_t typed) { return core::isAllowed(typed, sizeCharacters); },
        [this] { emit enterPressed(); });
    const auto stepBy = [field](double step) {
        field->setText(platform::qtext(steppedSize(field->text().toStdString(), step)));
    };
    connect(steps, &UpDown::up, field, [stepBy] { stepBy(sizeStep); });
    connect(steps, &UpDown::down, field, [stepBy] { stepBy(-sizeStep); });
    return field;
}

void CriteriaPages::makeSizePage() {
    QVBoxLayout* column = addPage(Size, QStringLiteral("Label10(1)"), QStringLiteral("Label10(4)"));
    auto* grid = new QGridLayout;
    const auto addRow = [&](int row, const QString& label, QLineEdit* field, UpDown* steps,
                            const QString& name) {
        steps->setObjectName(name);
        steps->setAccessibleName(field->accessibleName());
        steps->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);  // as high as the field
        QLabel* unit = makeLabel(numbered("Label11", row), field);
        unit->setText(QStringLiteral("KB"));
        grid->addWidget(makeLabel(label, field), row, 0);
        grid->addWidget(field, row, 1);
        grid->addWidget(steps, row, 2);
        grid->addWidget(unit, row, 3);
    };
    const QString from = QStringLiteral("Label16"), to = QStringLiteral("Label15");
    m_upDown1 = new UpDown;
    m_upDown2 = new UpDown;
    m_text6 = makeSizeField(QStringLiteral("Text6"), from, m_upDown1);
    m_text7 = makeSizeField(QStringLiteral("Text7"), to, m_upDown2);
    addRow(0, from, m_text6, m_upDown1, QStringLiteral("UpDown1"));
    addRow(1, to, m_text7, m_upDown2, QStringLiteral("UpDown2"));
    column->addLayout(grid);
    column->addStretch();
}

void CriteriaPages::makeNotePage() {
    const QString heading = QStringLiteral("Label10(2)");
    QVBoxLayout* column = addPage(Note, heading, QStringLiteral("Label10(3)"));
    m_combo1 = makeRecentCombo(QStringLiteral("Combo1"), frame::caption(heading, m_idioma),
                               [this] { emit noteEnterPressed(); });
    column->addWidget(m_combo1);
    column->addStretch();
}

void CriteriaPages::showPage(int page) {
    for (QWidget* each : m_pages) each->hide();
    m_pages[std::size_t(page)]->show();
    m_pages[std::size_t(page)]->raise();
    raise();
}

void CriteriaPages::switchCriterion(Criterion criterion, bool on) {
    const auto switchCombo = [on](ImageCombo& combo) {
        combo.setEnabled(on);
        tint(combo, on);
        if (!on && combo.count() > 0) combo.setSelected(1);
    };
    switch (criterion) {
        case Type:
            switchCombo(*m_imageCombo2);
            break;
        case Unit:
            switchCombo(*m_imageCombo3);
            break;
        case Date:
            for (QWidget* picker : {m_dtPicker1, m_dtPicker2}) picker->setEnabled(on);
            break;
        case Size:
            for (QWidget* field : {m_text6, m_text7}) {
                field->setEnabled(on);
                tint(*field, on);
            }
            for (QWidget* steps : {m_upDown1, m_upDown2}) steps->setEnabled(on);
            break;
        case Note:
            m_combo1->setEnabled(on);
            break;
    }
}

void CriteriaPages::changeEvent(QEvent* event) {
    QFrame::changeEvent(event);
    const bool whole = m_pages[Note] != nullptr;
    if (event->type() != QEvent::PaletteChange || !whole) return;
    tint(*m_imageCombo2, isOn(Type));
    tint(*m_imageCombo3, isOn(Unit));
    for (QLineEdit* field : {m_text6, m_text7}) tint(*field, isOn(Size));
}

bool CriteriaPages::isOn(Criterion criterion) const {
    return m_checks[criterion]->isChecked();
}

void CriteriaPages::readInto(SearchRequest& request) const {
    request.type = m_imageCombo2->text().toStdString();
    request.unit = m_imageCombo3->text().toStdString();
    request.date = isOn(Date);
    request.from = serialOf(*m_dtPicker1);
    request.until = serialOf(*m_dtPicker2);
    request.size = isOn(Size);
    request.minimum = m_text6->text().toStdString();
    request.maximum = m_text7->text().toStdString();
    request.note = isOn(Note);
    request.noteText = m_combo1->currentText().toStdString();
}

}  // namespace search

#include "moc_criteria_pages.cpp"
