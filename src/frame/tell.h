#pragma once

#include "core/notice.h"
#include "frame/messages.h"
#include "platform/qtext.h"

namespace frame {

// Shows the messages of a procedure that knows no windows as message boxes.
[[nodiscard]] inline core::Tell tellThrough(Messages& messages) {
    return [&messages](const core::Notice& notice) {
        const bool information = notice.style == core::Notice::Style::Information;
        messages.show(platform::qtext(notice.text), platform::qtext(notice.title),
                      information ? MessageStyle::Information : MessageStyle::Exclamation);
    };
}

}  // namespace frame
