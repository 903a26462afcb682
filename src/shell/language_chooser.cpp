#include "shell/language_chooser.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "controls/screen_fit.h"
#include "shell/logo.h"

namespace shell {

namespace {

QRadioButton* makeOption(const QString& language, const QString& name, QWidget* parent) {
    auto* option = new QRadioButton(language, parent);
    option->setObjectName(name);
    option->setAccessibleName(language);
    return option;
}

}  // namespace

Form5::Form5(QWidget* parent) : QWidget(parent, Qt::Dialog) {
    const auto question = QStringLiteral("Select your languaje  /  elige tu idioma");
    setObjectName(QStringLiteral("Form5"));
    setAccessibleName(question);
    setWindowTitle(question);
    setWindowIcon(logo());

    auto* mark = new QLabel(this);
    mark->setPixmap(logo().pixmap(64, 64));
    auto* heading = new QLabel(question, this);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    m_english = makeOption(QStringLiteral("English"), QStringLiteral("Option1(0)"), this);
    m_spanish = makeOption(QStringLiteral("Español"), QStringLiteral("Option1(1)"), this);
    m_ok = new QPushButton(QStringLiteral("OK"), this);
    m_ok->setObjectName(QStringLiteral("Command1"));
    m_ok->setAccessibleName(m_ok->text());
    m_ok->setDefault(true);
    connect(m_ok, &QPushButton::clicked, this, &Form5::confirmed);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(24, 20, 24, 16);
    grid->setHorizontalSpacing(20);
    grid->setVerticalSpacing(10);
    grid->addWidget(mark, 0, 0, 3, 1, Qt::AlignTop);
    grid->addWidget(heading, 0, 1, 1, 2);
    grid->addWidget(m_english, 1, 1, 1, 2);
    grid->addWidget(m_spanish, 2, 1, 1, 2);
    grid->setRowMinimumHeight(3, 12);
    grid->addWidget(m_ok, 4, 2, Qt::AlignRight);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    controls::fitToScreen(*this);
}

std::optional<core::Language> Form5::choice() const {
    if (m_english->isChecked()) return core::Language::English;
    if (m_spanish->isChecked()) return core::Language::Spanish;
    return std::nullopt;
}

void Form5::closeEvent(QCloseEvent* event) {
    event->accept();
    emit dismissed();
}

void Form5::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    m_ok->setFocus();
}

void Form5::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return m_ok->click();
    QWidget::keyPressEvent(event);
}

}  // namespace shell

#include "moc_language_chooser.cpp"
