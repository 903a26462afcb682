#pragma once

#include <QString>

#include "core/notice.h"
#include "platform/qtext.h"

namespace frame {

enum class MessageStyle { Exclamation = 48, Information = 64 };

// The title of every box that has none of its own.
[[nodiscard]] inline QString boxTitle() {
    return platform::qtext(core::boxTitle);
}

// Message boxes stand behind this seam; tests put in a recorder that answers by itself.
class Messages {
  public:
    virtual ~Messages() = default;
    virtual void show(const QString& text, const QString& title = boxTitle(),
                      MessageStyle style = MessageStyle::Exclamation) = 0;
    [[nodiscard]] virtual bool askYesNo(const QString& text, const QString& title = boxTitle()) = 0;
};

// Shows the messages of a procedure that knows no windows as message boxes.
[[nodiscard]] inline core::Tell tellThrough(Messages& messages) {
    return [&messages](const core::Notice& notice) {
        const bool information = notice.style == core::Notice::Style::Information;
        messages.show(platform::qtext(notice.text), platform::qtext(notice.title),
                      information ? MessageStyle::Information : MessageStyle::Exclamation);
    };
}

}  // namespace frame
