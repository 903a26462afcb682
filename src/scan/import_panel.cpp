#include "scan/import_panel.h"

#include <QDir>
#include <QFile>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/accessible.h"
#include "controls/image_combo.h"
#include "controls/key_filter.h"
#include "controls/pictures.h"
#include "controls/tab_strip.h"
#include "core/text.h"
#include "core/unit_kinds.h"
#include "frame/captions.h"
#include "platform/qtext.h"
#include "scan/folder.h"
#include "scan/refusal.h"

namespace scan {
namespace {

using controls::named;
using platform::qtext;

constexpr int directoryPane = 0;
constexpr int manualPane = 1;
constexpr core::Bilingual unitIsEmpty{"La unidad se encuentra vacia.", "The unit is empty."};

QPushButton* makeButton(const char* objectName, const QIcon& icon) {
    auto* button = named(new QPushButton(icon, {}), objectName);
    button->setAutoDefault(true);  // Enter clicks it
    // A click must not take the focus: a field that sends it on would undo the press.
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

// A key filter does not see what is pasted.
void dropForbidden(QLineEdit& field, bool mayEndInColon) {
    const QString text = field.text();
    QString kept;
    for (const char32_t c : text.toUcs4())
        if (core::isAllowed(c, allowedInNames)) kept += QString::fromUcs4(&c, 1);
    if (mayEndInColon && text.endsWith(':')) kept += ':';
    if (kept == text) return;
    const auto cursor = field.cursorPosition() - (text.size() - kept.size());
    field.setText(kept);
    field.setCursorPosition(static_cast<int>(std::max<qsizetype>(0, cursor)));
}

}  // namespace

ImportPanel::ImportPanel(frame::Frame& frame, ImportEvents events, QWidget* parent)
    : QWidget(parent),
      m_frame(frame),
      m_TabStrip2(named(new controls::TabStrip(this), "TabStrip2")),
      m_Text3(named(new QLineEdit, "Text3")),
      m_Text4(named(new QLineEdit, "Text4")),
      m_Text11(named(new QLineEdit, "Text11")),
      m_ImageCombo4(named(new controls::ImageCombo, "ImageCombo4")),
      m_Label19(makeButton("Label19", controls::picture(3))),
      m_Label20(makeButton("Label20", controls::picture(16))),
      m_panes{makeDirectoryPane(), makeManualPane()},
      m_job(frame, std::move(events),
            {*m_panes[directoryPane], *m_Text3, *m_Text4, *m_Text11, *m_ImageCombo4, m_directory}) {
    setObjectName("Picture2");
    arrange();
    nameControls();
    connectFields();
    m_panes[directoryPane]->show();
    m_panes[manualPane]->hide();
}

QLabel* ImportPanel::addLabel(const QString& objectName, QVBoxLayout* below) {
    auto* label = new QLabel;
    label->setObjectName(objectName);
    label->setWordWrap(true);
    below->addWidget(label);
    return label;
}

QWidget* ImportPanel::makeDirectoryPane() {
    auto* pane = named(new QWidget(this), "Picture13(0)");
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins(0, 0, 0, 0);
    addLabel("Label9(1)", column)->setBuddy(m_Text4);
    auto* row = new QHBoxLayout;
    row->addWidget(m_Text4, 1);
    row->addWidget(m_Label19);
    column->addLayout(row);
    return pane;
}

QWidget* ImportPanel::makeManualPane() {
    auto* pane = named(new QWidget(this), "Picture13(1)");
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins(0, 0, 0, 0);
    addLabel("Label9(2)", column)->setBuddy(m_ImageCombo4);
    column->addWidget(m_ImageCombo4);
    addLabel("Label9(3)", column)->setBuddy(m_Text11);
    column->addWidget(m_Text11);
    return pane;
}

void ImportPanel::arrange() {
    m_TabStrip2->addTab({});
    m_TabStrip2->addTab({});
    m_ImageCombo4->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_ImageCombo4->setMinimumContentsLength(8);
    m_Text4->setReadOnly(true);  // the directory comes from the chooser only
    setAutoFillBackground(true);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(8, 8, 8, 8);
    QLabel* title = addLabel("Label8", column);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    column->addWidget(m_TabStrip2);
    for (QWidget* pane : m_panes) column->addWidget(pane);
    addLabel("Label9(4)", column)->setBuddy(m_Text3);
    column->addWidget(m_Text3);
    column->addWidget(m_Label20, 0, Qt::AlignRight);
    column->addStretch(1);
}

void ImportPanel::nameControls() {
    frame::applyCaptions(*this, m_frame.idioma);
    const auto text = [this](const char* label) {
        QString caption = findChild<QLabel*>(label)->text().simplified();
        return caption.endsWith(':') ? caption.chopped(1) : caption;
    };
    setAccessibleName(text("Label8"));
    m_TabStrip2->setAccessibleName(text("Label8"));
    m_panes[directoryPane]->setAccessibleName(m_TabStrip2->tabText(directoryPane).trimmed());
    m_panes[manualPane]->setAccessibleName(m_TabStrip2->tabText(manualPane).trimmed());
    m_Text4->setAccessibleName(text("Label9(1)"));
    controls::nameField(*m_ImageCombo4, text("Label9(2)"));
    m_Text11->setAccessibleName(text("Label9(3)"));
    m_Text3->setAccessibleName(text("Label9(4)"));
    m_Label19->setAccessibleName(m_Label19->text());
    m_Label20->setAccessibleName(m_Label20->text());
}

void ImportPanel::connectFields() {
    using controls::KeyFilter;
    KeyFilter::install(
        m_Text3, [](char32_t c) { return core::isAllowed(c, allowedInNames); },
        [this] { m_Label20->click(); });
    KeyFilter::install(
        m_Text11, [](char32_t c) { return core::isAllowed(c, allowedInContent); },
        [this] {
            if (!m_Text11->text().isEmpty()) m_Text3->setFocus();
        });
    KeyFilter::install(
        m_Text4, [](char32_t c) { return core::isAllowed(c, allowedInDirectory); },
        [this] { m_Label19->click(); });
    // A stopped scan leaves a colon behind the name.
    connect(m_Text3, &QLineEdit::textEdited, this, [this] { dropForbidden(*m_Text3, true); });
    connect(m_Text11, &QLineEdit::textEdited, this, [this] { dropForbidden(*m_Text11, false); });
    m_Text3->installEventFilter(this);

    connect(m_TabStrip2, &QTabBar::tabBarClicked, this, &ImportPanel::showPane);
    connect(m_TabStrip2, &QTabBar::currentChanged, this, &ImportPanel::showPane);
    connect(m_Label19, &QPushButton::clicked, this, &ImportPanel::chooseDirectory);
    connect(m_Label20, &QPushButton::clicked, this, [this] { m_job.run(); });
}

void ImportPanel::fillKinds() {
    m_ImageCombo4->clear();
    int number = 0;
    for (const core::UnitKind& kind : core::unitKinds)
        m_ImageCombo4->addItem(++number, qtext(kind.caption.in(m_frame.idioma)), kind.picture);
    m_ImageCombo4->setSelected(1);  // a hand-made unit always has a kind
}

void ImportPanel::enter() {
    if (m_ImageCombo4->selectedItem() == 0) fillKinds();
    focusFirst();
    setTabOrder(m_Label19, m_Text4);
    setTabOrder(m_Text4, m_Text3);
    setTabOrder(m_Text3, m_Label20);
}

void ImportPanel::showPane(int pane) {
    if (pane != directoryPane && pane != manualPane) return;
    m_panes[1 - pane]->hide();
    m_panes[pane]->show();
    if (pane == directoryPane) {
        setTabOrder(m_Text4, m_Text3);
    } else {
        m_ImageCombo4->setSelected(m_ImageCombo4->count() > 0 ? 1 : 0);
        setTabOrder(m_ImageCombo4, m_Text11);
        setTabOrder(m_Text11, m_Text3);
    }
    focusFirst();
}

void ImportPanel::focusFirst() {
    if (m_panes[directoryPane]->isHidden())
        m_ImageCombo4->setFocus();
    else
        m_Text4->setFocus();
}

// The name's field sends the focus on to the first field of the pane, wherever the user meant it to go.
// Another window or a menu only borrows the focus.
bool ImportPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_Text3 && event->type() == QEvent::FocusOut) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
            reason != Qt::MenuBarFocusReason)
            QMetaObject::invokeMethod(
                this,
                [this] {
                    if (isVisible()) focusFirst();
                },
                Qt::QueuedConnection);
    }
    return QWidget::eventFilter(watched, event);
}

void ImportPanel::chooseDirectory() {
    const QString title = qtext(selectDirectory.in(m_frame.idioma));
    for (;;) {
        const QString chosen = m_frame.dialogs.chooseFolder(title);
        if (!chosen.isEmpty()) m_directory = QFile::encodeName(QDir::cleanPath(chosen)).toStdString();
        if (m_directory.empty() || Folder::at(m_directory).isOpen()) break;
        // A drive without its medium. It is forgotten, so that the next cancel ends here.
        m_directory.clear();
        m_Text4->clear();
        m_frame.messages.show(qtext(unitIsEmpty.in(m_frame.idioma)));
    }
    setDirectory(m_directory);
}

void ImportPanel::setDirectory(const std::string& directory) {
    m_directory = directory;
    m_Text4->setText(QFile::decodeName(QByteArray::fromStdString(m_directory)));
    m_Text3->setFocus();
    m_Text3->selectAll();  // a name that was meant for another directory
}

}  // namespace scan

#include "moc_import_panel.cpp"
