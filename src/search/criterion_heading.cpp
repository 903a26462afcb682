#include "search/criterion_heading.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QMouseEvent>

namespace search {
namespace {

QLabel* makeCaption(const QString& name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setWordWrap(true);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    return label;
}

}  // namespace

CriterionHeading::CriterionHeading(QCheckBox* check, const QString& label, const QString& shadow,
                                   QWidget* parent)
    : QWidget(parent), m_check(check) {
    // A shadow makes letters harder to read on a dark ground, and a screen reader tells them twice.
    makeCaption(shadow, this)->hide();
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins({});
    grid->addWidget(check, 0, 0);
    grid->addWidget(makeCaption(label, this), 0, 1);
    grid->setColumnStretch(1, 1);
}

void CriterionHeading::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) m_check->click();
}

}  // namespace search

#include "moc_criterion_heading.cpp"
