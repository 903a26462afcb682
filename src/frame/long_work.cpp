#include "frame/long_work.h"

#include <QCoreApplication>

#include "frame/status_band.h"

namespace frame {

LongWork::LongWork(Frame& frame, const core::Bilingual& what)
    : m_frame(frame), m_before(frame.status.text().toStdString()) {
    frame.status.setText(what.in(frame.idioma));
    // Or the menu that it was chosen from would stand open all the while.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

LongWork::~LongWork() {
    m_frame.status.setText(m_before);
}

}  // namespace frame
