#include "shell/quick_start.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QToolButton>

#include "controls/pictures.h"
#include "controls/screen_fit.h"
#include "controls/separator.h"
#include "frame/captions.h"
#include "frame/elided_label.h"
#include "platform/qtext.h"
#include "shell/kept_choices.h"
#include "shell/logo.h"

namespace shell {

namespace {

constexpr int iconSide = 32;
constexpr int nameWidth = 340;

constexpr core::Bilingual recentFile = {"Archivo reciente:", "Recent file:"};
constexpr core::Bilingual openFile = {"Abrir un archivo", "Open a file"};
constexpr core::Bilingual createFile = {"Crear un archivo", "Create a file"};
constexpr core::Bilingual notAgain = {"No volver a mostrar esta ventana.", "Don´t show this window again."};

}  // namespace

Form8::Form8(core::Language idioma, QWidget* parent) : QWidget(parent, Qt::Dialog) {
    setObjectName(QStringLiteral("Form8"));
    setWindowTitle(QStringLiteral("Zarquelin - ") + frame::caption(u"iniciomenu", idioma));
    setAccessibleName(windowTitle());
    setWindowIcon(logo());

    m_recent = addButton(QStringLiteral("Command3"), "document-open-recent", &Form8::recentChosen);
    m_open = addButton(QStringLiteral("Command2"), "document-open", &Form8::openChosen);
    m_create = addButton(QStringLiteral("Command1"), "document-new", &Form8::createChosen);
    m_recentHeading = addLabel(new QLabel(platform::qtext(recentFile.in(idioma)), this),
                               QStringLiteral("Label2"), m_recent);
    m_recentName =
        addLabel(new frame::ElidedLabel(this, Qt::ElideMiddle), QStringLiteral("Label1"), m_recent);
    m_recentName->setFixedWidth(nameWidth);
    auto* open =
        addLabel(new QLabel(platform::qtext(openFile.in(idioma)), this), QStringLiteral("Label3"), m_open);
    auto* create = addLabel(new QLabel(platform::qtext(createFile.in(idioma)), this),
                            QStringLiteral("Label4"), m_create);
    m_notAgain = new QCheckBox(platform::qtext(notAgain.in(idioma)), this);
    m_notAgain->setObjectName(QStringLiteral("Check1"));
    m_notAgain->setAccessibleName(m_notAgain->text());

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(20, 18, 20, 14);
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(4);
    grid->setColumnMinimumWidth(1, nameWidth);
    grid->setColumnStretch(1, 1);
    grid->addWidget(m_recent, 0, 0, 2, 1);
    grid->addWidget(m_recentHeading, 0, 1, Qt::AlignBottom);
    grid->addWidget(m_recentName, 1, 1, Qt::AlignTop);
    grid->addWidget(m_open, 2, 0);
    grid->addWidget(open, 2, 1);
    grid->addWidget(m_create, 3, 0);
    grid->addWidget(create, 3, 1);
    grid->setRowMinimumHeight(4, 14);
    grid->addWidget(controls::makeSeparator(this), 4, 0, 1, 2);
    grid->addWidget(m_notAgain, 5, 0, 1, 2);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    controls::fitToScreen(*this);
    setRecent({});
}

QAbstractButton* Form8::addButton(const QString& name, const char* icon, void (Form8::*chosen)()) {
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setIcon(controls::actionIcon(QLatin1String(icon)));
    button->setIconSize({iconSide, iconSide});
    button->setFocusPolicy(Qt::StrongFocus);
    connect(button, &QAbstractButton::clicked, this, [this, chosen] {
        iniciorapid();
        hide();
        emit(this->*chosen)();
    });
    return button;
}

// A label belongs to its button: it names it to assistive tools, and a click on it is a click on the button.
QLabel* Form8::addLabel(QLabel* label, const QString& name, QAbstractButton* button) {
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(button);
    label->installEventFilter(this);
    label->setAccessibleName(label->text());
    button->setAccessibleName(label->text());
    return label;
}

void Form8::setRecent(const QString& lastFile) {
    m_recentName->setText(lastFile);
    m_recent->setAccessibleName(m_recentHeading->text() + u' ' + lastFile);
    for (QWidget* control : {static_cast<QWidget*>(m_recent), static_cast<QWidget*>(m_recentHeading),
                             static_cast<QWidget*>(m_recentName)})
        control->setVisible(!lastFile.isEmpty());
}

void Form8::iniciorapid() {
    saveQuickStart(!m_notAgain->isChecked());
}

void Form8::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    (m_recent->isHidden() ? m_create : m_recent)->setFocus();
}

void Form8::keyPressEvent(QKeyEvent* event) {
    auto* focused = qobject_cast<QAbstractButton*>(focusWidget());
    if (event->key() == Qt::Key_Escape) return hide();
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && focused && focused != m_notAgain)
        return focused->click();
    QWidget::keyPressEvent(event);
}

bool Form8::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease) {
        if (auto* label = qobject_cast<QLabel*>(watched))
            static_cast<QAbstractButton*>(label->buddy())->click();
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace shell

#include "moc_quick_start.cpp"
