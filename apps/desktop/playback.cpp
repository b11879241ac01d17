// SPDX-License-Identifier: MIT
#include "desktop/playback.h"

#include <utility>

namespace {

/// More often than any screen shows; between two due frames a tick does nothing.
constexpr int kTickMilliseconds = 4;

}  // namespace

Playback::Playback(ShowFrame show, std::function<void()> ended)
    : m_show(std::move(show)), m_ended(std::move(ended)) {}

void Playback::Start(MediaSource const &source, std::int64_t frame, double rate) {
  m_source = &source;
  m_frame = frame;
  m_rate = rate;
  m_beginSeconds = source.Seconds(frame);
  m_begin = std::chrono::steady_clock::now();
  m_timer.Start(kTickMilliseconds);
}

void Playback::Stop() {
  m_timer.Stop();
  m_source = nullptr;
}

void Playback::tick() {
  if (!m_source) return;
  std::chrono::duration<double> const passed = std::chrono::steady_clock::now() - m_begin;
  std::int64_t const due = m_source->FrameAt(m_beginSeconds + m_rate * passed.count());
  bool const isNew = due != m_frame;
  m_frame = due;
  if (isNew) m_show(due);
  // What is shown may have stopped the playing.
  if (!m_source) return;
  std::int64_t const end = m_rate > 0.0 ? m_source->Info().frameCount - 1 : 0;
  if (m_frame != end) return;
  Stop();
  m_ended();
}
