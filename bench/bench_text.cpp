// SPDX-License-Identifier: MIT
#include <memory>

#include <wx/app.h>
#include <wx/bitmap.h>
#include <wx/dcclient.h>
#include <wx/frame.h>
#include <wx/gdicmn.h>
#include <wx/image.h>
#include <wx/textctrl.h>

#include "framenote/annotation_tool.h"
#include "modes/ann_text_tool_mode.h"
#include "side_by_side.h"

/// What a key press costs in a long text, beside one paint of the canvas.
namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr int kLetters = 2000;
constexpr int kLineLength = 50;

/// A host's canvas, on the screen, with a text box whose text is being edited.
class Editing {
public:
  Editing()
      : m_tool(std::make_shared<AnnotationTool>(
            AnnotationToolConfig(false, false, true, true, false, {}))),
        m_frame(new wxFrame(nullptr, wxID_ANY, "", wxPoint(0, 0), wxDefaultSize,
                            wxBORDER_NONE)),        // destroyed by the destructor
        m_canvas(new wxWindow(m_frame, wxID_ANY)),  // owned by the frame
        m_picture(wxImage(kWidth, kHeight)) {
    m_canvas->SetBackgroundStyle(wxBG_STYLE_PAINT);
    m_canvas->Bind(wxEVT_PAINT, [this](wxPaintEvent &) {
      wxPaintDC dc(m_canvas);
      dc.DrawBitmap(m_picture, 0, 0);
      m_tool->Draw(dc, m_canvas, wxPoint2DDouble(0.0, 0.0), 1.0);
    });
    m_frame->SetClientSize(kWidth, kHeight);
    m_frame->Show();
    wxYield();
    m_tool->UpdateMediaInfo({0, 1, false});
    Paint();
    m_tool->SetActiveTool(Types::Text);
    Mouse(wxEVT_LEFT_DOWN, 100, 100);
    Mouse(wxEVT_MOTION, 700, 900);
    Mouse(wxEVT_LEFT_UP, 700, 900);
    Editor().SetValue(Letters());
    wxYield();
  }
  ~Editing() {
    m_tool->Deactivate();
    m_frame->Destroy();
    wxYield();
  }
  Editing(Editing const &) = delete;
  Editing &operator=(Editing const &) = delete;

  /// The picture and the annotations, as a host paints them.
  void Paint() {
    m_canvas->Refresh();
    m_canvas->Update();
  }

  wxTextCtrl &Editor() { return *m_tool->GetToolModes().text->GetTextCtrl(); }

private:
  static wxString Letters() {
    wxString letters;
    for (int i = 0; i < kLetters; ++i) {
      letters += i % kLineLength == kLineLength - 1 ? '\n' : static_cast<char>('a' + i % 26);
    }
    return letters;
  }

  void Mouse(wxEventType type, int x, int y) {
    m_tool->ProcessMouseEvent(wxPoint(x, y), wxMouseEvent(type), 1.0, wxPoint2DDouble(0.0, 0.0));
  }

  std::shared_ptr<AnnotationTool> m_tool;
  wxFrame *m_frame;
  wxWindow *m_canvas;
  wxBitmap m_picture;
};

void KeyPressInALongText(benchmark::State &state) {
  if (wxGetDisplaySize().x < kWidth || wxGetDisplaySize().y < kHeight) {
    state.SkipWithError("wants a screen of 1920x1080");
    return;
  }
  Editing editing;
  bool isWritten = false;
  framenote::bench::SideBySide(
      state,
      [&] {
        // In turn a letter more and one less, so that the text keeps its length.
        isWritten = !isWritten;
        long const end = editing.Editor().GetLastPosition();
        if (isWritten) {
          editing.Editor().WriteText("x");
        } else {
          editing.Editor().Remove(end - 1, end);
        }
      },
      [&] { editing.Paint(); });
}

BENCHMARK(KeyPressInALongText)->UseManualTime()->Iterations(101);

}  // namespace
