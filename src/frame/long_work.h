#pragma once

#include <string>

#include "core/language.h"
#include "frame/frame.h"
#include "frame/pointer.h"

namespace frame {

// Work that cannot be stopped and tells nothing of how far it is: while the object lives there is the
// hourglass, and the status line says what goes on. Then the line reads as before.
class LongWork {
  public:
    LongWork(Frame& frame, const core::Bilingual& what);
    ~LongWork();
    LongWork(const LongWork&) = delete;
    LongWork& operator=(const LongWork&) = delete;

  private:
    Frame& m_frame;
    std::string m_before;
    Hourglass m_hourglass;
};

}  // namespace frame
