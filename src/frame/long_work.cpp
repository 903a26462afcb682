#include "frame/long_work.h"

#include "frame/status_band.h"

namespace frame {
namespace {

constexpr qint64 millisecondsBetweenSigns = 100;

}  // namespace

Running::Running(Frame& frame) : m_frame(frame) {
    if (m_frame.setRunning) m_frame.setRunning(true);
}

Running::~Running() {
    if (m_frame.setRunning) m_frame.setRunning(false);
}

LongWork::LongWork(Frame& frame, const core::Bilingual& what)
    : m_frame(frame),
      m_what(what.in(frame.idioma)),
      m_before(frame.status.text().toStdString()),
      m_waiting([this](std::optional<double> share) { goOn(share); }) {
    m_begun.start();
    m_shown.start();
    frame.status.setText(m_what);
}

LongWork::~LongWork() {
    m_frame.status.setText(m_before);
}

void LongWork::closeMenu() {
    letWindowsPaint();
}

void LongWork::goOn(std::optional<double> share) {
    if (m_shown.elapsed() < millisecondsBetweenSigns) return;
    m_shown.start();
    std::string text = m_what;
    if (share) m_share = share;
    if (const qint64 seconds = m_begun.elapsed() / 1000; m_share)
        text += ' ' + std::to_string(static_cast<int>(*m_share * 100)) + " %";
    else if (seconds > 0)
        text += ' ' + std::to_string(seconds) + " s";
    m_frame.status.setText(text);
    letWindowsPaint();
}

}  // namespace frame
