// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

#include <wx/timer.h>

#include "media/media_source.h"

/// The clock of a playing video. It asks for the frame that is due by the video's own time stamps;
/// frames whose time has passed are left out, so that playing never lags.
class Playback {
public:
  using ShowFrame = std::function<void(std::int64_t)>;

  /// `show` is called on the GUI thread with each frame that is due, `ended` when the end (or,
  /// going backward, the beginning) is reached.
  Playback(ShowFrame show, std::function<void()> ended);

  /// From a frame on; a rate of 1 is the video's own speed, a negative one goes backward.
  /// `source` outlives the playing.
  void Start(MediaSource const &source, std::int64_t frame, double rate);
  void Stop();
  bool IsPlaying() const { return m_source != nullptr; }
  double Rate() const { return IsPlaying() ? m_rate : 0.0; }

private:
  class Timer : public wxTimer {
  public:
    explicit Timer(Playback &playback) : m_playback(playback) {}
    void Notify() override { m_playback.tick(); }

  private:
    Playback &m_playback;
  };

  void tick();

  ShowFrame m_show;
  std::function<void()> m_ended;
  Timer m_timer{*this};
  MediaSource const *m_source = nullptr;  // not owned
  std::chrono::steady_clock::time_point m_begin;
  double m_beginSeconds = 0.0;
  double m_rate = 1.0;
  std::int64_t m_frame = 0;
};
