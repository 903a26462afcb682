#include "shell/properties.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStyle>

#include "controls/pictures.h"
#include "controls/screen_fit.h"
#include "controls/separator.h"
#include "controls/tool_tip.h"
#include "frame/captions.h"
#include "platform/qtext.h"
#include "shell/logo.h"

namespace shell {

namespace {

constexpr int pictureSide = 32;
constexpr int textLetters = 40;

struct Line {
    const char* label;
    core::Bilingual caption;
};

// From the top, beside Text1 to Text4.
constexpr std::array<Line, 4> lines{{
    {"Label5", {"Tipo:", "Type:"}},
    {"Label6", {"Nombre:", "Name:"}},
    {"Label7", {"Tamaño:", "Size:"}},
    {"Label8", {"Contiene:", "Contents:"}},
}};
constexpr core::Bilingual accept = {"Aceptar", "OK"};

// A text that can be read and copied. Too long for its place it is cut in its middle, until somebody goes
// through it with the keys; the tool tip has it whole.
class ReadOnlyText : public QLineEdit {
  public:
    explicit ReadOnlyText(QWidget* parent) : QLineEdit(parent) {
        setReadOnly(true);
        setFrame(false);
        setMinimumWidth(textLetters * fontMetrics().averageCharWidth());
        // What can only be read stands on the window's own ground, not in a box that asks for typing.
        QPalette palette;
        palette.setColor(QPalette::Base, Qt::transparent);
        setPalette(palette);
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        if (fits() || hasFocus()) return QLineEdit::paintEvent(event);
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, room().width());
        style()->drawItemText(&painter, room(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                              shown, QPalette::Text);
    }
    bool event(QEvent* event) override {
        if (event->type() == QEvent::ToolTip) setToolTip(fits() ? QString() : controls::toolTipOf(text()));
        return QLineEdit::event(event);
    }

  private:
    [[nodiscard]] QRect room() const { return rect().adjusted(2, 0, -2, 0); }
    [[nodiscard]] bool fits() const { return fontMetrics().horizontalAdvance(text()) <= room().width(); }
};

QLineEdit* makeText(int number, QWidget* parent) {
    auto* text = new ReadOnlyText(parent);
    text->setObjectName(QStringLiteral("Text%1").arg(number));
    return text;
}

}  // namespace

Form3::Form3(core::Language idioma, QWidget* parent) : QWidget(parent, Qt::Dialog) {
    setObjectName(QStringLiteral("Form3"));
    setWindowTitle(frame::caption(u"Propiedades", idioma));
    setAccessibleName(windowTitle());
    setWindowIcon(logo());

    m_picture = new QLabel(this);
    m_picture->setObjectName(QStringLiteral("Picture1"));
    m_picture->setAccessibleName(windowTitle());
    m_picture->setFixedSize(pictureSide, pictureSide);
    for (int number = 1; number <= 5; ++number) m_texts[number - 1] = makeText(number, this);
    QLineEdit* heading = m_texts[4];
    heading->setAccessibleName(windowTitle());
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(20, 16, 20, 14);
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(1, 1);
    grid->addWidget(m_picture, 0, 0);
    grid->addWidget(heading, 0, 1);
    grid->addWidget(controls::makeSeparator(this), 1, 0, 1, 2);
    for (int i = 0; i < int(lines.size()); ++i) {
        auto* label = new QLabel(platform::qtext(lines[i].caption.in(idioma)), this);
        label->setObjectName(QLatin1String(lines[i].label));
        label->setAccessibleName(label->text());
        label->setBuddy(m_texts[i]);
        m_texts[i]->setAccessibleName(label->text());
        grid->addWidget(label, i + 2, 0);
        grid->addWidget(m_texts[i], i + 2, 1);
    }
    auto* command = new QPushButton(platform::qtext(accept.in(idioma)), this);
    command->setObjectName(QStringLiteral("Command1"));
    command->setAccessibleName(command->text());
    command->setDefault(true);
    connect(command, &QPushButton::clicked, this, &QWidget::hide);
    grid->addWidget(controls::makeSeparator(this), 6, 0, 1, 2);
    grid->addWidget(command, 7, 0, 1, 2, Qt::AlignRight);
    command->setFocus();
    controls::fitToScreen(*this);
}

void Form3::showProperties(const browse::Properties& properties) {
    const std::string* texts[] = {&properties.type, &properties.name, &properties.size, &properties.contents,
                                  &properties.name};
    for (size_t i = 0; i < m_texts.size(); ++i) {
        m_texts[i]->setText(platform::qtext(*texts[i]));
        m_texts[i]->setCursorPosition(0);
    }
    m_picture->setPixmap(controls::picture(properties.picture).pixmap(pictureSide, pictureSide));
    show();
    activateWindow();
}

void Form3::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter) return hide();
    QWidget::keyPressEvent(event);
}

}  // namespace shell

#include "moc_properties.cpp"
