#include "frame/status_band.h"

#include <QEvent>
#include <QLabel>
#include <QProgressBar>
#include <algorithm>

#include "controls/pictures.h"
#include "controls/twips.h"
#include "frame/captions.h"
#include "frame/elided_label.h"
#include "platform/qtext.h"

namespace frame {

namespace {

using controls::pixels;

constexpr int bandHeight = 380;
constexpr int lineTop = 40;
constexpr int lineHeightTwips = 310;
constexpr int textLeft = 0, textWidth = 5000;
constexpr int sizeLeft = 5020, sizeWidth = 2000;
constexpr int iconLeft = 7050, iconWidth = 400;
constexpr int kindLeft = 7480;
constexpr int textMargin = 8, kindMargin = 8;  // pixels
constexpr int narrowestSize = 60, narrowestKind = 100;
constexpr qint64 millisecondsBetweenPaints = 50;
constexpr int visibleSteps = 500;  // of the bar

constexpr core::Bilingual statusName{"Estado", "Status"};
constexpr core::Bilingual sizeName{"Tamaño", "Size"};
constexpr core::Bilingual progressName{"Progreso", "Progress"};
constexpr core::Bilingual unitName{"Unidad", "Unit"};
constexpr core::Bilingual kindName{"Tipo de unidad", "Unit kind"};

// Its text is its accessible name, so that a screen reader tells what it says.
QLabel* makeLabel(QWidget* parent, const QString& name, const QString& purpose) {
    auto* label = new ElidedLabel(parent, Qt::ElideMiddle);
    label->setObjectName(name);
    label->setAccessibleDescription(purpose);
    label->setAlignment(Qt::AlignVCenter | Qt::AlignLeft);
    return label;
}

}  // namespace

StatusBand::StatusBand(core::Language idioma, QWidget* parent) : QWidget(parent) {
    const auto in = [idioma](core::Bilingual words) { return platform::qtext(words.in(idioma)); };
    setObjectName(QStringLiteral("Picture4"));
    setAccessibleName(in(statusName));
    m_text = makeLabel(this, QStringLiteral("Text9"), in(statusName));
    m_size = makeLabel(this, QStringLiteral("Label3"), in(sizeName));
    m_progress = new QProgressBar(this);
    m_progress->setObjectName(QStringLiteral("ProgressBar1"));
    m_progress->setAccessibleName(in(progressName));
    m_progress->setTextVisible(false);
    m_progress->hide();
    m_icon = new QLabel(this);
    m_icon->setObjectName(QStringLiteral("Picture16"));
    m_icon->setAccessibleName(in(unitName));
    m_icon->setAlignment(Qt::AlignCenter);
    m_kind = makeLabel(this, QStringLiteral("Label2"), in(kindName));
    applyFontSize(m_points);
}

// A scan writes this line once for every file: the text is kept each time, but painting it costs more than
// the file does, so long work shows it only as often as an eye can follow.
void StatusBand::setText(std::string_view text) {
    m_text->setText(platform::qtext(text));
    m_text->setToolTip({});
    if (m_lastPaint.isValid() && m_lastPaint.elapsed() < millisecondsBetweenPaints) return;
    arrange();
    m_text->repaint();
    m_lastPaint.start();
}

void StatusBand::explainText(std::string_view explanation) {
    m_text->setToolTip(platform::qtext(explanation));
}

void StatusBand::setSize(std::string_view text) {
    m_size->setText(platform::qtext(text));
    arrange();
}

void StatusBand::setKind(std::string_view text) {
    m_kind->setText(platform::qtext(text));
    arrange();
}

void StatusBand::setPicture(int picture) {
    m_picture = picture;
    if (picture == 0) return m_icon->clear();
    const int side = std::max(16, lineHeight() - 4);
    m_icon->setPixmap(controls::picture(picture).pixmap(side, side));
}

void StatusBand::blank() {
    for (QLabel* label : {m_text, m_size, m_kind}) label->clear();
    setPicture(0);
}

QString StatusBand::text() const {
    return m_text->text();
}
QString StatusBand::size() const {
    return m_size->text();
}
QString StatusBand::kind() const {
    return m_kind->text();
}

void StatusBand::showProgress(int maximum) {
    m_progress->setRange(0, std::max(1, maximum));
    m_progress->setValue(0);
    m_value = 0;
    m_progress->show();
    m_progress->raise();
}

void StatusBand::setProgress(int value) {
    const int maximum = m_progress->maximum();
    if (value > maximum) return;
    m_value = value;
    const auto step = [&](int at) { return std::int64_t{at} * visibleSteps / maximum; };
    if (step(value) != step(m_progress->value())) m_progress->setValue(value);
}

void StatusBand::advanceProgress() {
    setProgress(m_value + 1);
}

void StatusBand::hideProgress() {
    m_progress->hide();
}

void StatusBand::applyFontSize(int points) {
    m_points = points;
    for (QLabel* label : {m_text, m_size, m_kind}) {
        QFont font = label->font();
        font.setPointSize(points);
        label->setFont(font);
    }
    if (m_picture != 0) setPicture(m_picture);
    updateGeometry();
    arrange();
}

int StatusBand::lineHeight() const {
    return std::max(pixels(lineHeightTwips), m_text->fontMetrics().height() + 2);
}

QSize StatusBand::sizeHint() const {
    return {pixels(kindLeft + sizeWidth), std::max(pixels(bandHeight), pixels(lineTop) + lineHeight() + 1)};
}

void StatusBand::resizeEvent(QResizeEvent*) {
    arrange();
}

// A label whose text has changed asks for this, once for as many changes as came together.
bool StatusBand::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) arrange();
    return QWidget::event(event);
}

// The status line says most: at last the size keeps only what its text needs, and the kind is cut.
void StatusBand::arrange() {
    const double wanted = std::max(1.0, m_points / 8.0);
    const int kind = m_kind->sizeHint().width() + kindMargin;
    const double stretch = std::clamp(double(width() - kind) / pixels(kindLeft), 1.0, wanted);
    const auto stretched = [stretch](int twips) { return int(pixels(twips) * stretch); };
    const int missing = std::max(0, m_text->sizeHint().width() + textMargin - stretched(textWidth));
    const int shift = std::min(missing, std::max(0, width() - kind - stretched(kindLeft)));
    const int needed = std::max(m_size->sizeHint().width() + kindMargin, narrowestSize);
    const int squeeze = std::clamp(missing - shift, 0, std::max(0, stretched(sizeWidth) - needed));
    const int left = stretched(kindLeft) + shift;
    const int yielded = std::clamp(missing - shift - squeeze, 0, std::max(0, width() - left - narrowestKind));
    const int aside = shift + yielded;
    const auto place = [&](QWidget* control, int x, int wide) {
        control->setGeometry(x, pixels(lineTop), wide, lineHeight());
    };
    place(m_text, textLeft, stretched(textWidth) + aside + squeeze);
    for (QWidget* control : {static_cast<QWidget*>(m_size), static_cast<QWidget*>(m_progress)})
        place(control, stretched(sizeLeft) + aside + squeeze, stretched(sizeWidth) - squeeze);
    place(m_icon, stretched(iconLeft) + aside, stretched(iconWidth));
    // A band too narrow for the kind leaves it as it was.
    if (width() > left + yielded) place(m_kind, left + yielded, width() - left - yielded);
}

}  // namespace frame

#include "moc_status_band.cpp"
