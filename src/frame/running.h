#pragma once

#include "frame/frame.h"

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

}  // namespace frame
