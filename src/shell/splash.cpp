#include "shell/splash.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include "controls/screen_fit.h"
#include "frame/captions.h"
#include "platform/qtext.h"
#include "shell/links.h"
#include "shell/logo.h"

namespace shell {

namespace {

using namespace std::chrono_literals;

constexpr auto tickLength = 50ms;
constexpr int lastTick = 21;

constexpr core::Bilingual version = {"Versión: ", "Version: "};
constexpr core::Bilingual purpose = {"Catálogo de discos y carpetas", "A catalog of discs and folders"};
constexpr core::Bilingual writeToUs = {"Escríbenos", "Write to us"};

void centre(QWidget& window) {
    window.adjustSize();
    const QRect area = controls::screenFor(window)->availableGeometry();
    window.move(area.center() - window.rect().center());
}

}  // namespace

Form2::Form2(core::Language idioma, QWidget* parent) : QWidget(parent), m_idioma(idioma) {
    setObjectName(QStringLiteral("Form2"));
    setWindowTitle(frame::caption(u"acerca", idioma));
    setAccessibleName(windowTitle());
    setWindowIcon(logo());
    buildContents();
    m_timer.setInterval(tickLength);
    connect(&m_timer, &QTimer::timeout, this, &Form2::tick);
}

void Form2::buildContents() {
    m_picture = new QLabel(this);
    m_picture->setObjectName(QStringLiteral("Picture1"));
    m_picture->setAccessibleName(QStringLiteral("Zarquelin"));
    m_picture->setPixmap(logo().pixmap(128, 128));
    m_picture->setAlignment(Qt::AlignCenter);
    m_picture->installEventFilter(this);

    auto* name = new QLabel(QStringLiteral("Zarquelin"), this);
    name->setObjectName(QStringLiteral("Label1"));
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 2.4);
    large.setBold(true);
    name->setFont(large);
    auto* line = new QLabel(platform::qtext(purpose.in(m_idioma)), this);
    line->setObjectName(QStringLiteral("Label3"));
    auto* number =
        new QLabel(platform::qtext(version.in(m_idioma)) + QStringLiteral(ZARQUELIN_VERSION), this);
    number->setObjectName(QStringLiteral("Label2"));
    auto* mail = new QLabel(this);
    mail->setObjectName(QStringLiteral("Label4"));
    mail->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    // With the first text screen readers learn what it is.
    mail->setText(QStringLiteral("<a href=\"mail\">%1</a>").arg(platform::qtext(writeToUs.in(m_idioma))));
    mail->setAccessibleName(platform::qtext(writeToUs.in(m_idioma)));
    connect(mail, &QLabel::linkActivated, this, [] { openAuthorMail(); });

    auto* words = new QVBoxLayout;
    words->setSpacing(6);
    words->addStretch();
    words->addWidget(name);
    words->addWidget(line);
    words->addSpacing(10);
    words->addWidget(number);
    words->addWidget(mail, 0, Qt::AlignLeft);
    words->addStretch();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(28, 24, 36, 24);
    row->setSpacing(28);
    row->addWidget(m_picture);
    row->addLayout(words);
}

void Form2::showAsSplash() {
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    centre(*this);
    show();
    m_timer.start();
}

void Form2::showAsAbout() {
    setWindowFlags(Qt::Dialog);
    centre(*this);
    show();
    activateWindow();
}

void Form2::tick() {
    if (++m_ticks < lastTick) return;
    m_timer.stop();
    hide();
    emit finished();
}

bool Form2::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_picture && event->type() == QEvent::MouseButtonRelease) hide();
    return QWidget::eventFilter(watched, event);
}

void Form2::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && !m_timer.isActive()) return hide();
    QWidget::keyPressEvent(event);
}

}  // namespace shell

#include "moc_splash.cpp"
