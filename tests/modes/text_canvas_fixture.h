// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <wx/textctrl.h>

#include "framenote/annotation_events.h"
#include "modes/ann_text_tool_mode.h"
#include "modes/canvas_fixture.h"
#include "objects/ann_text.h"
#include "painters/pixel_matchers.h"

namespace framenote::test {

/// A canvas with the text tool, whose letters are red on nothing.
class TextCanvasTest : public CanvasTest {
protected:
  explicit TextCanvasTest(std::int64_t frameCount = 1, bool withDeviceContext = false)
      : CanvasTest(frameCount, withDeviceContext) {
    Look().SetFont(wxFont(wxFontInfo(10).FaceName("DejaVu Sans")));
    Look().SetFontColor(*wxRED);
    m_driver.UseTool(Types::Text);
  }

  AnnTextToolMode &Mode() { return *m_driver.Tool().GetToolModes().text; }
  AnnTextProperties &Look() { return *Mode().m_properties; }
  AnnText &Box() { return *m_driver.ObjectAs<AnnText>(); }
  AnnShapePoints const &Record() { return Box().GetCoordinates().Coords(); }
  wxTextCtrl *Editor() { return Mode().GetTextCtrl(); }
  std::string Text() { return Box().GetText().utf8_string(); }

  /// Drags out a box; the editor is open then.
  void DrawBox(wxPoint const &from, wxPoint const &to) {
    Drag({from, {(from.x + to.x) / 2, (from.y + to.y) / 2}, to});
    ASSERT_EQ(m_driver.State(), ToolState::Editing);
    ASSERT_NE(Editor(), nullptr);
  }

  /// Types letters, digits and blanks at the keyboard.
  void Type(std::string const &text) {
    std::string const expected = Editor()->GetValue().utf8_string() + text;
    m_mouse.Text(text.c_str());
    Settle([&] { return Editor()->GetValue().utf8_string() == expected; });
    ASSERT_EQ(Editor()->GetValue().utf8_string(), expected);
  }

  void TypeReturn() {
    int const lines = Editor()->GetNumberOfLines();
    m_mouse.Char(WXK_RETURN);
    Settle([&] { return Editor()->GetNumberOfLines() > lines; });
    ASSERT_GT(Editor()->GetNumberOfLines(), lines);
  }

  /// Where letters are seen, in pixels of the window; without the editor's caret.
  wxRect Ink() {
    if (Editor() != nullptr) m_canvas->SetFocus();
    // The toolkit scrolls softly: what it shows counts once it stays for a while.
    constexpr int kStill = 6;
    wxRect ink;
    for (int i = 0, still = 0; i < 60 && still < kStill; ++i) {
      wxMilliSleep(25);
      wxYield();
      wxRect const now = pixels::BoundsWhere(Screenshot(), IsLetter);
      still = now == ink ? still + 1 : 0;
      ink = now;
    }
    if (Editor() != nullptr) Editor()->SetFocus();
    return ink;
  }

  /// Red, or red on its way to white.
  static bool IsLetter(pixels::Rgb const &colour) {
    return colour.red > 200 && colour.red - colour.green > 60 && colour.green == colour.blue;
  }

  std::size_t Started() { return m_driver.Sink().Count(wxEVT_ANN_TEXT_EDITION_STARTED); }
  std::size_t Finished() { return m_driver.Sink().Count(wxEVT_ANN_TEXT_EDITION_FINISHED); }
};

/// Whether two rectangles have their edges within so many pixels.
inline testing::AssertionResult Covers(wxRect const &a, wxRect const &b, int tolerance) {
  bool const same = std::abs(a.GetLeft() - b.GetLeft()) <= tolerance &&
                    std::abs(a.GetTop() - b.GetTop()) <= tolerance &&
                    std::abs(a.GetRight() - b.GetRight()) <= tolerance &&
                    std::abs(a.GetBottom() - b.GetBottom()) <= tolerance;
  if (same && !a.IsEmpty()) return testing::AssertionSuccess();
  return testing::AssertionFailure()
         << "(" << a.x << ", " << a.y << ", " << a.width << ", " << a.height << ") and (" << b.x
         << ", " << b.y << ", " << b.width << ", " << b.height << ")";
}

}  // namespace framenote::test
