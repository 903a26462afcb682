#include "shell/cover.h"

#include <QEvent>
#include <QWidget>
#include <algorithm>

namespace shell {

Cover::Cover(std::vector<QWidget*> panes, QWidget& covered) : m_panes(std::move(panes)) {
    for (QWidget* pane : m_panes) pane->installEventFilter(this);
    QList<QWidget*> inside = covered.findChildren<QWidget*>();
    inside.prepend(&covered);
    std::ranges::copy_if(inside, std::back_inserter(m_stops),
                         [](const QWidget* each) { return each->focusPolicy() == Qt::StrongFocus; });
    update();
}

void Cover::update() {
    const bool shown = std::ranges::any_of(m_panes, [](const QWidget* pane) { return !pane->isHidden(); });
    for (QWidget* stop : m_stops) stop->setFocusPolicy(shown ? Qt::ClickFocus : Qt::StrongFocus);
}

bool Cover::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) update();
    return QObject::eventFilter(watched, event);
}

}  // namespace shell
