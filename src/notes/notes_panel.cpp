#include "notes/notes_panel.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextDocument>
#include <QTimer>
#include <algorithm>

#include "controls/accessible.h"
#include "controls/twips.h"
#include "core/failure.h"
#include "core/text.h"
#include "engine/text/folding.h"
#include "frame/captions.h"
#include "frame/catalogue.h"
#include "frame/status_band.h"
#include "platform/qtext.h"

namespace notes {
namespace {

using controls::named;

// The slide in twips, in the standard layout, where the uncovered lists begin at 1200.
constexpr int listsTop = 1200;
constexpr int panelHeight = 1600;
constexpr int lowerStop = 1150;
constexpr int upperStop = -400;
constexpr int step = 100;
constexpr int leftOfLists = 20;
constexpr int buttonHeight = 270;
constexpr int belowText = 20;
constexpr int tickMilliseconds = 50;
constexpr int ticksOfContest = 2 * panelHeight / step;

constexpr core::Bilingual noNote{"No existen notas en este item.", "There aren´t notes in this item."};
constexpr core::Bilingual restricted{"Ha introducido un caracter no permitido.",
                                     "Yo have inserted a restricted character."};
constexpr core::Bilingual notStored{
    "  La nota no se ha guardado: no se encuentra ese elemento en el catálogo.",
    "  The note was not stored: that item is not found in the catalogue."};
constexpr core::Bilingual panelName{"Notas", "Notes"};

QTimer* makeTimer(QObject* parent, const char* name) {
    QTimer* timer = named(new QTimer(parent), name);
    timer->setInterval(tickMilliseconds);
    return timer;
}

}  // namespace

NotesPanel::NotesPanel(frame::Frame& frame, lists::Lists& lists, const lists::ClickedRow& clic,
                       QWidget* parent)
    : QWidget(parent),
      m_frame(frame),
      m_lists(lists),
      m_clic(clic),
      m_Text10(named(new QPlainTextEdit(this), "Text10")),
      m_Command4(named(new QPushButton(this), "Command4")),
      m_Command6(named(new QPushButton(this), "Command6")),
      m_Timer1(makeTimer(this, "Timer1")),
      m_Timer2(makeTimer(this, "Timer2")),
      m_top(upperStop) {
    setObjectName(QStringLiteral("Picture12"));
    setAutoFillBackground(true);
    m_Text10->setTabChangesFocus(true);
    const QString name = platform::qtext(panelName.in(frame.idioma));
    setAccessibleName(name);
    m_Text10->setAccessibleName(name);
    for (QPushButton* button : {m_Command4, m_Command6}) {
        button->setText(frame::caption(button->objectName(), frame.idioma));
        button->setAccessibleName(button->text());
        button->setAutoDefault(true);  // Enter clicks it
    }
    connect(m_Command4, &QPushButton::clicked, this, [this] { begin(*m_Timer2); });
    connect(m_Command6, &QPushButton::clicked, this, &NotesPanel::storeNote);
    connect(m_Timer1, &QTimer::timeout, this, &NotesPanel::tickTimer1);
    connect(m_Timer2, &QTimer::timeout, this, &NotesPanel::tickTimer2);
    lower();  // it comes from behind the toolbar
    hide();
}

void NotesPanel::insertarcomentario() {
    m_Text10->clear();
    m_Text10->setReadOnly(false);
    m_buttons = Buttons::StoreAndClose;
    begin(*m_Timer1);
    m_Text10->setFocus();
}

void NotesPanel::vercomentarios() {
    m_Text10->clear();
    m_Text10->setReadOnly(true);
    m_buttons = Buttons::CloseOnly;
    layOut();
    auto database = engine::OpenDatabase(m_frame.catalogue.path());
    const core::Language idioma = m_frame.idioma;
    const auto read = database ? readNote(*database, target(), idioma) : std::unexpected(database.error());
    if (!read) return tell(read.error());
    if (read->end == ReadEnd::NoRow) return;
    m_Text10->setPlainText(platform::qtext(read->end == ReadEnd::Note ? read->note : noNote.in(idioma)));
    begin(*m_Timer1);
}

void NotesPanel::storeNote() {
    const QString text = noteText();
    const auto stored = [&]() -> engine::Result<StoreEnd> {
        auto database = TRY(engine::OpenDatabase(m_frame.catalogue.path()));
        return notes::storeNote(database, target(), text.toStdString());
    }();
    begin(*m_Timer2);
    if (stored && *stored == StoreEnd::Stored) showInLists(text);
    if (stored && *stored == StoreEnd::NotFound)
        m_frame.status.setText(std::string(notStored.in(m_frame.idioma)));
    if (stored) return;
    if (stored.error().number == engine::error::syntaxInExpression)
        m_frame.messages.show(platform::qtext(restricted.in(m_frame.idioma)));
    else
        tell(stored.error());
}

void NotesPanel::tell(const engine::Error& error) {
    m_frame.status.setText(core::failureLine(m_frame.catalogue.path(), error, m_frame.idioma));
}

// The text as it stands: toPlainText() would turn hard blanks into ordinary ones.
QString NotesPanel::noteText() const {
    QString text = m_Text10->document()->toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
    return text;
}

NoteTarget NotesPanel::target() const {
    const bool results = m_lists.searchShown();
    return {.list = results ? ListKind::Results : ListKind::Browse,
            .indicefila = m_clic.indicefila,
            .disco = results ? m_clic.discofila2 : m_clic.discofila1,
            .ruta = results ? m_clic.rutafila2 : m_clic.rutafila1,
            .name = m_clic.nodoactual,
            .type = m_clic.tipofilaelegida};
}

// In every row that the statement has reached: it takes no notice of case, and its folder alternative means
// all files of the folder of that name too.
void NotesPanel::showInLists(const QString& note) {
    const NoteTarget row = target();
    const bool folders = row.list == ListKind::Browse;
    const bool wholeFolder = folders && engine::equalFolded(core::lastComponent(row.ruta), row.name);
    for (lists::ItemList* list : {&m_lists.listView1, &m_lists.listView2}) {
        const lists::ItemStore& items = list->store();
        for (std::size_t at = 0; at < items.size(); ++at) {
            const auto hasName = [&] {
                return engine::equalFolded(items.text(at), row.name) &&
                       (folders || !items.subItem(at, lists::SubItem::SizeKey).empty());
            };
            if ((wholeFolder || hasName()) &&
                engine::equalFolded(items.subItem(at, lists::SubItem::Ruta), row.ruta) &&
                engine::equalFolded(items.subItem(at, lists::SubItem::Disco), row.disco))
                list->setNotes(static_cast<int>(at), note);
        }
    }
}

void NotesPanel::begin(QTimer& slide) {
    setEnabled(true);
    layOut();
    show();
    m_begunLast = &slide;
    m_contestedTicks = 0;
    slide.start();
}

void NotesPanel::tickTimer1() {
    if (m_top < lowerStop && !isContested(*m_Timer1)) {
        slide(step);
        return;
    }
    m_Timer1->stop();
    if (m_top >= lowerStop) m_Text10->setFocus();
}

void NotesPanel::tickTimer2() {
    if (m_top > upperStop && !isContested(*m_Timer2)) {
        slide(-step);
        return;
    }
    m_Timer2->stop();
    if (m_top > upperStop) return;
    // Out of sight, not hidden; but nobody is to type into it.
    const bool hadFocus = isAncestorOf(focusWidget()) || hasFocus();
    setEnabled(false);
    if (hadFocus) m_lists.shown().setFocus();
}

// True when the slide of this timer has to give in.
bool NotesPanel::isContested(const QTimer& ticking) {
    if (!m_Timer1->isActive() || !m_Timer2->isActive()) return false;
    return ++m_contestedTicks > ticksOfContest && &ticking != m_begunLast;
}

void NotesPanel::slide(int twips) {
    m_top += twips;
    emit slid(controls::pixels(m_top + panelHeight - listsTop));
    layOut();
}

void NotesPanel::closeAtOnce() {
    m_Timer1->stop();
    m_Timer2->stop();
    m_top = upperStop;
    emit slid(0);
    hide();
}

void NotesPanel::setListArea(const QRect& area) {
    m_listArea = area;
    layOut();
}

void NotesPanel::layOut() {
    using controls::pixels;
    const QRect& area = m_listArea;
    const int height = pixels(panelHeight);
    setGeometry(area.left() + pixels(leftOfLists), area.top() - pixels(listsTop - m_top), area.width(),
                height);
    // What has not come out from behind the toolbar yet is not to show through it.
    const int hiddenPart = area.top() - y();
    setMask(QRect(0, hiddenPart, width(), height - hiddenPart + 1));

    layOutButtons();
    const int row = m_Command4->height();
    m_Text10->setGeometry(0, row, width(), pixels(panelHeight - belowText) - row);
}

// The row of buttons grows with the font.
void NotesPanel::layOutButtons() {
    constexpr int frameAroundText = 4;
    const int row = std::max(controls::pixels(buttonHeight), fontMetrics().height() + frameAroundText);
    if (m_buttons == Buttons::CloseOnly) {
        m_Command4->setGeometry(0, 0, width(), row);
        m_Command6->setGeometry(0, 0, 0, 0);
        m_Command6->hide();
        return;
    }
    const int half = width() / 2;
    m_Command4->setGeometry(0, 0, half, row);
    m_Command6->setGeometry(half, 0, half, row);
    m_Command6->show();
}

void NotesPanel::applyFontSize(int points) {
    QFont enlarged = font();
    enlarged.setPointSize(points);
    setFont(enlarged);
    layOut();
}

}  // namespace notes

#include "moc_notes_panel.cpp"
