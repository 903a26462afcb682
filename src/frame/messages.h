#pragma once

#include <QString>

namespace frame {

enum class MessageStyle { Exclamation = 48, Information = 64 };

// Message boxes stand behind this seam; tests put in a recorder that answers by itself.
class Messages {
  public:
    virtual ~Messages() = default;
    virtual void show(const QString& text, const QString& title,
                      MessageStyle style = MessageStyle::Exclamation) = 0;
    [[nodiscard]] virtual bool askYesNo(const QString& text, const QString& title) = 0;
};

}  // namespace frame
