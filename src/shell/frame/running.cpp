#include "shell/frame/running.h"

#include "shell/frame/menus.h"
#include "shell/frame/toolbar.h"

namespace shell {
namespace {

void setRunning(Frame& frame, bool running) {
    frame.toolbar.setEnabled(Toolbar::Stop, running);
    frame.menus.setEnabled(QStringLiteral("Parar1"), running);
    frame.menus.setEnabled(QStringLiteral("compactar"), !running);
    frame.menus.setEnabled(QStringLiteral("reparar"), !running);
}

}  // namespace

Running::Running(Frame& frame) : m_frame(frame) {
    setRunning(m_frame, true);
}

Running::~Running() {
    setRunning(m_frame, false);
}

}  // namespace shell
