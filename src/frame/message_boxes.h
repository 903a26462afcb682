#pragma once

#include "core/language.h"
#include "frame/messages.h"

class QWidget;

namespace frame {

// The desktop's message boxes, over whichever window is active. Texts are shown as they stand, never as
// markup.
class MessageBoxes : public Messages {
  public:
    explicit MessageBoxes(core::Language idioma) : m_idioma(idioma) {}

    void show(const QString& text, const QString& title, MessageStyle style) override;
    [[nodiscard]] bool askYesNo(const QString& text, const QString& title) override;

  private:
    core::Language m_idioma;
};

}  // namespace frame
