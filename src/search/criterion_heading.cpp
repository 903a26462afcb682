#include "search/criterion_heading.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QMouseEvent>

namespace search {
namespace {

QLabel* makeCaption(const QString& name, QMargins margins) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setWordWrap(true);
    label->setContentsMargins(margins);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    return label;
}

QColor shadowColor(const QPalette& palette) {
    const bool darkLetters = palette.color(QPalette::WindowText).lightness() < 128;
    return darkLetters ? palette.color(QPalette::Light) : palette.color(QPalette::Shadow);
}

}  // namespace

CriterionHeading::CriterionHeading(QCheckBox* check, const QString& label, const QString& shadow,
                                   QWidget* parent)
    : QWidget(parent), m_check(check) {
    QLabel* below = makeCaption(shadow, {1, 1, 0, 0});
    QPalette palette = below->palette();
    palette.setColor(QPalette::WindowText, shadowColor(palette));
    below->setPalette(palette);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins({});
    grid->addWidget(check, 0, 0);
    grid->addWidget(below, 0, 1);
    grid->addWidget(makeCaption(label, {0, 0, 1, 1}), 0, 1);
    grid->setColumnStretch(1, 1);
}

void CriterionHeading::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) m_check->click();
}

}  // namespace search
