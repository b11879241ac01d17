// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <wx/gdicmn.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include "framenote/annotation_types.h"
#include "support/host_process.h"
#include "support/window_ping.h"
#include "talbase/json_value.h"

class wxFrame;

namespace framenote::test {

constexpr std::chrono::milliseconds kHostPatience(30000);

/// Asks again and again; false if it does not come true in time.
bool WaitUntil(std::function<bool()> const &isReached,
               std::chrono::milliseconds patience = kHostPatience);

/// A host in a process of its own, with one window, used as people do: the mouse and the keys go
/// through the X server. Points are on the screen.
class HostOnScreen : public testing::Test {
protected:
  void SetUp() override;
  void TearDown() override;

  /// A file in a folder of the test's own.
  std::string In(std::string const &name) const { return (m_folder / name).string(); }
  /// Writes a picture of one shade of grey there, 400 x 300 pixels; returns its path.
  std::string SavePicture(std::string const &name, unsigned char shade) const;

  /// Ends the host that there was, starts this one, and waits for its window.
  void StartHost(HostProcess::Arguments const &command);
  void EndHost();

  void MoveTo(wxPoint const &place);
  void Click(wxPoint const &place) { Drag({place}); }
  void Drag(std::vector<wxPoint> const &places);
  void Key(int key, int modifiers = wxMOD_NONE);
  /// The same without waiting for the host, which may not be there yet.
  void SendKey(int key, int modifiers) { m_mouse.Char(key, modifiers); }

  bool IsRunning() { return m_host != nullptr && m_host->IsRunning(); }
  /// Of the host, on the screen.
  wxRect Window() const { return m_window; }

private:
  /// Until the host has acted on all events, however busy the machine is.
  void waitForHost();

  std::filesystem::path m_folder;
  std::unique_ptr<HostProcess> m_host;
  std::unique_ptr<WindowPing> m_ping;  ///< of the host's window
  wxRect m_window;
  wxFrame *m_frame =
      nullptr;  ///< what the mouse simulator asks for its scale; destroyed in TearDown
  wxUIActionSimulator m_mouse;
};

/// A host with the palette at the right, which saves its document by Ctrl+S. Points are in pixels
/// of the picture, whose place is learnt from a first run.
class EditingHost : public HostOnScreen {
protected:
  /// The identifier of the palette's list of shapes.
  static constexpr int kShapeList = 10;

  /// `windowSize` is that of the host's window; a pixel of the picture is `zoom` pixels wide.
  EditingHost(wxSize const &windowSize, int zoom) : m_windowSize(windowSize), m_zoom(zoom) {}

  void SetUp() override;

  /// How the host is started on the test's pictures and a document.
  virtual HostProcess::Arguments Command(std::string const &document) const = 0;

  /// Starts the host on a document, and waits until it answers.
  void Start(std::string const &document = "document.json");
  /// Saves with the keyboard and returns the document's text.
  std::string Save() { return trySave(kHostPatience); }
  wxJSONValue SavedObjects();
  std::string Document() const { return m_document; }

  /// Presses the button of a tool in the palette.
  void UseTool(Types tool) { ClickControl(static_cast<int>(tool), 0.5); }
  /// Clicks on a control of the palette, at a share of its width.
  void ClickControl(int id, double share);

  void DragInPicture(std::vector<wxPoint> points);
  void ClickInPicture(wxPoint const &point) { DragInPicture({point}); }
  /// A point of the picture on the screen.
  wxPoint OnScreen(wxPoint const &point) const { return m_origin + point * m_zoom; }

private:
  std::string trySave(std::chrono::milliseconds patience);
  void findControls();
  void findPicture();

  wxSize m_windowSize;
  int m_zoom;
  std::string m_document;
  std::map<int, wxRect> m_controls;  ///< of the palette, from the corner of the window
  wxPoint m_origin;                  ///< of the picture, on the screen
};

/// Expects a point of a document there.
void ExpectPoint(wxJSONValue const &point, int x, int y);

}  // namespace framenote::test
