#include "frame/toolbar.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QMenu>
#include <algorithm>

#include "controls/accessible.h"
#include "controls/value_button.h"
#include "frame/captions.h"
#include "frame/icons.h"

namespace frame {

namespace {

constexpr int iconSide = 22;
constexpr int lastOfMousePress = 10;

QString nameOf(int number) {
    return QStringLiteral("Toolbar1(%1)").arg(number);
}

}  // namespace

Toolbar::Toolbar(core::Language idioma, QWidget* parent) : QWidget(parent), m_idioma(idioma) {
    setObjectName(QStringLiteral("Toolbar1"));
    setAccessibleName(frame::caption(u"barradetareas", idioma));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->setSizeConstraint(
        QLayout::SetNoConstraint);  // the buttons adapt to the width, not the width to them
    for (int number = 1; number <= count; ++number) {
        number == Separator3 || number == Separator14 ? addSeparator(number) : addButton(number);
        row->addWidget(m_items[number].widget);
    }
    row->addStretch();
    addViewsMenu();
    showCaptions();
}

void Toolbar::addButton(int number) {
    auto* button = new controls::ValueButton(this);
    button->setObjectName(nameOf(number));
    button->setAccessibleName(toolbarToolTip(number, m_idioma));
    button->setToolTip(toolbarToolTip(number, m_idioma));
    button->setIcon(iconOf(button->objectName()));
    button->setIconSize({iconSide, iconSide});
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);
    button->installEventFilter(this);
    connect(button, &QToolButton::clicked, this, [this, number] { emit clicked(number); });
    m_items[number].widget = m_items[number].button = button;
}

void Toolbar::addSeparator(int number) {
    auto* line = new QFrame(this);
    line->setObjectName(nameOf(number));
    controls::silence(*line);
    line->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    m_items[number].widget = line;
}

void Toolbar::addViewsMenu() {
    auto* menu = new QMenu(this);
    for (int view = 1; view <= 4; ++view) {
        const QString name = QStringLiteral("%1(%2)").arg(nameOf(Views)).arg(view);
        QAction* entry = menu->addAction(iconOf(name), frame::caption(name, m_idioma));
        entry->setObjectName(name);
        connect(entry, &QAction::triggered, this, [this, view] { emit viewChosen(view); });
    }
    button(Views)->setMenu(menu);
    button(Views)->setPopupMode(QToolButton::MenuButtonPopup);
}

void Toolbar::setRecent(const QString& path) {
    QToolButton* up = button(Up);
    delete up->menu();
    up->setPopupMode(QToolButton::DelayedPopup);
    if (!path.isEmpty()) {
        auto* menu = new QMenu(this);
        QString text = path;
        QAction* entry = menu->addAction(text.replace(u'&', QStringLiteral("&&")));
        entry->setObjectName(nameOf(Up) + QStringLiteral("(1)"));
        connect(entry, &QAction::triggered, this, [this, path] { emit recentChosen(path); });
        up->setMenu(menu);
        up->setPopupMode(QToolButton::MenuButtonPopup);
    }
    chooseStyle();
}

void Toolbar::setPressed(int button, bool pressed) {
    if (pressed && button >= Import && button <= Explore)  // which of the three is in front
        releaseAll(Import, Explore);
    m_items[button].pressed = pressed;
    if (m_items[button].button) m_items[button].button->setPressed(pressed);
}

bool Toolbar::isPressed(int button) const {
    return m_items[button].pressed;
}

void Toolbar::releaseAll(int first, int last) {
    for (int button = first; button <= last; ++button) setPressed(button, false);
}

void Toolbar::setEnabled(int button, bool enabled) {
    m_items[button].enabled = enabled;
    m_items[button].widget->setEnabled(enabled);
}

bool Toolbar::isEnabled(int button) const {
    return m_items[button].enabled;
}

controls::ValueButton* Toolbar::button(int button) const {
    return m_items[button].button;
}

void Toolbar::setCaption(int button, const QString& text) {
    if (m_items[button].button) m_items[button].button->setText(text);
}

QString Toolbar::caption(int button) const {
    return m_items[button].button ? m_items[button].button->text() : QString();
}

void Toolbar::showCaptions() {
    for (int button = 1; button <= count; ++button)
        setCaption(button, frame::caption(nameOf(button), m_idioma));
    chooseStyle();
}

void Toolbar::hideCaptions() {
    for (int button = 1; button <= count; ++button) setCaption(button, QStringLiteral(" "));
    chooseStyle();
}

void Toolbar::setButtonStyle(Qt::ToolButtonStyle style, const QFont& font) {
    for (const Item& item : m_items) {
        if (!item.button) continue;
        item.button->setToolButtonStyle(style);
        item.button->setFont(font);
    }
}

bool Toolbar::fits() const {
    int needed = 0;
    for (const Item& item : m_items) needed += item.widget ? item.widget->sizeHint().width() : 0;
    return needed <= width();
}

// Captions under the icons if there is room for them, if need be in a smaller letter.
void Toolbar::chooseStyle() {
    if (!caption(New).trimmed().isEmpty()) {
        QFont smaller = font();
        smaller.setPointSizeF(font().pointSizeF() - 1);
        for (const QFont& captionFont : {font(), smaller}) {
            setButtonStyle(Qt::ToolButtonTextUnderIcon, captionFont);
            if (fits()) return;
        }
    }
    setButtonStyle(Qt::ToolButtonIconOnly, font());
}

void Toolbar::resizeEvent(QResizeEvent*) {
    chooseStyle();
}

void Toolbar::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) chooseStyle();
}

bool Toolbar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) releaseAll(1, lastOfMousePress);
    return QWidget::eventFilter(watched, event);
}

void Toolbar::mousePressEvent(QMouseEvent*) {
    releaseAll(1, lastOfMousePress);
}

}  // namespace frame

#include "moc_toolbar.cpp"
