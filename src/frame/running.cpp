#include "frame/running.h"

namespace frame {

Running::Running(Frame& frame) : m_frame(frame) {
    if (m_frame.setRunning) m_frame.setRunning(true);
}

Running::~Running() {
    if (m_frame.setRunning) m_frame.setRunning(false);
}

}  // namespace frame
