#include "frame/message_boxes.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPushButton>

#include "controls/shown_text.h"
#include "controls/tool_tip.h"
#include "frame/dialog_owner.h"

namespace frame {

namespace {

// While a box waits for its answer nothing is busy, whatever work stands behind it.
class ArrowPointer {
  public:
    ArrowPointer() { QGuiApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~ArrowPointer() { QGuiApplication::restoreOverrideCursor(); }
    ArrowPointer(const ArrowPointer&) = delete;
    ArrowPointer& operator=(const ArrowPointer&) = delete;
};

QMessageBox::StandardButton run(QMessageBox& box) {
    box.setTextFormat(Qt::PlainText);
    box.setText(controls::breakable(controls::shortened(box.text())));
    const ArrowPointer arrow;
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

}  // namespace

void MessageBoxes::show(const QString& text, const QString& title, MessageStyle style) {
    const auto icon = style == MessageStyle::Information ? QMessageBox::Information : QMessageBox::Warning;
    QMessageBox box(icon, title, text, QMessageBox::Ok, dialogOwner());
    if (m_idioma == core::Language::Spanish) box.button(QMessageBox::Ok)->setText(QStringLiteral("Aceptar"));
    run(box);
}

// Every question asks leave to delete, so the key that is hit without reading answers No.
bool MessageBoxes::askYesNo(const QString& text, const QString& title) {
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No, dialogOwner());
    const bool spanish = m_idioma == core::Language::Spanish;
    box.button(QMessageBox::Yes)->setText(spanish ? QStringLiteral("Sí") : QStringLiteral("Yes"));
    box.button(QMessageBox::No)->setText(QStringLiteral("No"));
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return run(box) == QMessageBox::Yes;
}

}  // namespace frame
