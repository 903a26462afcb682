#pragma once

#include <QElapsedTimer>
#include <optional>
#include <string>

#include "core/language.h"
#include "frame/frame.h"
#include "frame/pointer.h"
#include "platform/waiting.h"

namespace frame {

// Long work that the user may stop: while the object lives, the stop entry and button are enabled and
// compaction and repair are not.
class Running {
  public:
    explicit Running(Frame& frame);
    ~Running();
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

  private:
    Frame& m_frame;
};

// Work that cannot be stopped: while the object lives there is the hourglass, the window is painted, and the
// status line says what goes on and how much of it is done or, where nobody knows that, how long it has
// taken. Then the line reads as before.
class LongWork {
  public:
    LongWork(Frame& frame, const core::Bilingual& what);
    ~LongWork();
    LongWork(const LongWork&) = delete;
    LongWork& operator=(const LongWork&) = delete;

    // At once instead of after a moment: the menu that the work was chosen from would stand open until then.
    void closeMenu();

  private:
    void goOn(std::optional<double> share);

    Frame& m_frame;
    std::string m_what;
    std::string m_before;
    Hourglass m_hourglass;
    std::optional<double> m_share;  // told last
    QElapsedTimer m_begun;
    QElapsedTimer m_shown;
    platform::Waiting m_waiting;
};

}  // namespace frame
