#pragma once

#include <QRect>
#include <QWidget>

#include "frame/frame.h"
#include "lists/clicked_row.h"
#include "lists/item_list.h"
#include "notes/note_store.h"

class QPlainTextEdit;
class QPushButton;
class QTimer;

namespace notes {

// Picture12, where the note of the clicked row is written and read. It slides down above the lists and back
// up out of sight, one step every 50 milliseconds.
class NotesPanel : public QWidget {
    Q_OBJECT
  public:
    // All but the parent are borrowed and outlive the panel.
    NotesPanel(frame::Frame& frame, lists::Lists& lists, const lists::ClickedRow& clic, QWidget* parent);

    void insertarcomentario();  // opens it empty, for writing
    void vercomentarios();      // opens it with the stored note
    void closeAtOnce();         // hides it without a slide, as the catalogue closes

    // The lists' place when nothing covers them, in the coordinates of the panel's parent.
    void setListArea(const QRect& area);
    void applyFontSize(int points);

    // One step of the opening and of the closing slide. Both slides may be under way at once, and then work
    // against each other; when neither wins, the one begun last goes on alone.
    void tickTimer1();
    void tickTimer2();
    [[nodiscard]] int topInTwips() const { return m_top; }

  signals:
    void slid(int pixels);  // the lists give way at their upper edge; 0 when the panel is out of sight

  private:
    void layOut();
    void storeNote();
    void tell(const engine::Error& error);
    void showInLists(const QString& note);
    [[nodiscard]] NoteTarget target() const;
    [[nodiscard]] QString noteText() const;

    enum class Buttons { CloseOnly, StoreAndClose };
    void layOutButtons();
    void begin(QTimer& slide);
    void slide(int twips);
    [[nodiscard]] bool isContested(const QTimer& ticking);

    frame::Frame& m_frame;
    lists::Lists& m_lists;
    const lists::ClickedRow& m_clic;
    QRect m_listArea;
    QPlainTextEdit* m_Text10;
    QPushButton* m_Command4;
    QPushButton* m_Command6;
    QTimer* m_Timer1;
    QTimer* m_Timer2;
    QTimer* m_begunLast = nullptr;
    int m_contestedTicks = 0;
    Buttons m_buttons = Buttons::StoreAndClose;
    int m_top;  // in twips, as in the standard layout
};

}  // namespace notes
