#pragma once

#include <QRect>
#include <QWidget>

#include "browse/surface.h"
#include "notes/note_store.h"

class QPlainTextEdit;
class QPushButton;
class QTimer;

namespace notes {

// What the notes panel asks of the main window around it.
class NotesHost {
  public:
    virtual ~NotesHost() = default;
    // The lists' place when nothing covers them, in the coordinates of the panel's parent.
    [[nodiscard]] virtual QRect listArea() const = 0;
    // Both lists give way at their upper edge; 0 when the panel is out of sight.
    virtual void setListsPushedDown(int pixels) = 0;
};

// Picture12, where the note of the clicked row is written and read. It slides down above the lists and back
// up out of sight, one step every 50 milliseconds.
class NotesPanel : public QWidget {
    Q_OBJECT
  public:
    NotesPanel(browse::Surface& surface, NotesHost& host, QWidget* parent);

    void insertarcomentario();  // opens it empty, for writing
    void vercomentarios();      // opens it with the stored note
    void closeAtOnce();         // hides it without a slide, as the catalogue closes

    void layOut();  // the lists' place has changed
    void applyFontSize(int points);

    // One step of the opening and of the closing slide. Both slides may be under way at once, and then work
    // against each other; when neither wins, the one begun last goes on alone.
    void tickTimer1();
    void tickTimer2();
    [[nodiscard]] int topInTwips() const { return m_top; }

  private:
    void storeNote();
    void showInList(const QString& note);
    [[nodiscard]] NoteTarget target() const;
    [[nodiscard]] QString noteText() const;

    enum class Buttons { CloseOnly, StoreAndClose };
    void layOutButtons();
    void begin(QTimer& slide);
    void slide(int twips);
    [[nodiscard]] bool isContested(const QTimer& ticking);

    browse::Surface& m_surface;
    NotesHost& m_host;
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
