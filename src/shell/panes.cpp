#include "shell/panes.h"

#include <algorithm>

#include "controls/twips.h"

namespace shell {
namespace {

using controls::pixels;
using controls::twips;

QRect inPixels(const frame::Rect& rect) {
    return {pixels(rect.left), pixels(rect.top), pixels(rect.width), pixels(rect.height)};
}

}  // namespace

void Panes::medidas() {
    frame::LayoutInput input;
    input.width = twips(m_controls.client->width());
    input.height = twips(m_controls.client->height());
    input.divider = frame::releasedDivider(m_divider, input.width);
    input.toolbarHeight = twips(m_controls.toolbar->sizeHint().height());
    input.comboHeight = twips(m_controls.imageCombo1->sizeHint().height());
    input.pathLabelWidth = twips(m_controls.label4->sizeHint().width());
    input.statusHeight = twips(m_controls.status->sizeHint().height());
    m_layout = frame::computeLayout(input, m_layout);

    m_controls.frame1->setGeometry(inPixels(m_layout.frame));
    m_controls.toolbar->setGeometry(inPixels(m_layout.toolbar));
    m_controls.label4->setGeometry(inPixels(m_layout.pathLabel));
    m_controls.imageCombo1->setGeometry(inPixels(m_layout.pathCombo));
    m_controls.tree->setGeometry(inPixels(m_layout.tree));
    for (QWidget* panel : m_controls.panels) panel->setGeometry(inPixels(m_layout.tree));
    m_controls.splitter->setGeometry(inPixels(m_layout.splitter));
    m_controls.status->setGeometry(inPixels(m_layout.status));
    setListsPushedDown(m_pushedDown);
    m_controls.listsPlaced(listArea());
}

void Panes::sizeControls(int position) {
    m_divider = frame::releasedDivider(twips(position), twips(m_controls.client->width()));
    medidas();
}

void Panes::showBrowsing(bool shown) {
    for (QWidget* pane : {m_controls.tree, m_controls.lists.front(), m_controls.splitter})
        pane->setVisible(shown);
}

QRect Panes::listArea() const {
    return inPixels(m_layout.list);
}

void Panes::setListsPushedDown(int pushed) {
    m_pushedDown = pushed;
    QRect area = listArea();
    area.setTop(std::min(area.top() + pushed, area.bottom()));
    for (QWidget* list : m_controls.lists) list->setGeometry(area);
}

}  // namespace shell
