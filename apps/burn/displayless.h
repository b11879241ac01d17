// SPDX-License-Identifier: MIT
#pragma once

/// wxWidgets without a display: pictures, bitmaps and drawing on them, and nothing on a screen. The
/// same on any machine, whatever desktop runs there, so that the same input gives the same bytes.
class DisplaylessSession {
public:
  DisplaylessSession();
  DisplaylessSession(DisplaylessSession const &) = delete;
  DisplaylessSession &operator=(DisplaylessSession const &) = delete;
  ~DisplaylessSession();

  bool IsOk() const { return m_isOk; }

private:
  bool m_isOk;
};
