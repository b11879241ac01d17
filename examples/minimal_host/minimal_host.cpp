// SPDX-License-Identifier: MIT
// The smallest host: shows a picture, lets the user annotate it, and keeps the document.
//   minimal_host PICTURE [DOCUMENT [ZOOM]]    ZOOM in percent; Ctrl+S saves to DOCUMENT
#include <memory>

#include <wx/ffile.h>
#include <wx/filename.h>
#include <wx/wx.h>

#include "framenote/annotation_events.h"
#include "framenote/annotation_panel.h"
#include "framenote/annotation_tool.h"
#include "talbase/json_text.h"

/// A picture point p is shown at (p + offset) * scale. The wheel scrolls, and zooms with Ctrl.
class Canvas : public wxWindow {
public:
  Canvas(wxWindow *parent, wxImage const &picture, std::shared_ptr<AnnotationTool> tool)
      : wxWindow(parent, wxID_ANY), m_picture(picture), m_tool(std::move(tool)) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Bind(wxEVT_PAINT, &Canvas::OnPaint, this);
    for (auto const &type :
         {wxEVT_LEFT_DOWN, wxEVT_LEFT_UP, wxEVT_MOTION, wxEVT_RIGHT_UP, wxEVT_LEFT_DCLICK})
      Bind(type, &Canvas::OnMouse, this);
    Bind(wxEVT_MOUSEWHEEL, &Canvas::OnWheel, this);
    Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent &event) {  // without a position, by key
      if (event.GetPosition() == wxDefaultPosition) m_tool->PopupMenuByKey();
    });
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent &) { m_tool->Deactivate(); });
  }

  void ZoomBy(double factor) {
    m_scale = std::min(std::max(m_scale * factor, 0.1), 16.0);
    Refresh();
  }

private:
  // The tool paints on the window itself, over the picture: a plain paint DC, not a buffered one.
  void OnPaint(wxPaintEvent &) {
    wxPaintDC dc(this);
    dc.SetBackground(*wxGREY_BRUSH);
    dc.Clear();
    dc.SetUserScale(m_scale, m_scale);
    dc.DrawBitmap(m_picture, m_offset);
    dc.SetUserScale(1.0, 1.0);
    m_tool->Draw(dc, this, m_offset, m_scale);
  }

  void OnMouse(wxMouseEvent &event) {
    if (event.LeftDown() && !HasCapture()) CaptureMouse();
    if (event.LeftUp() && HasCapture()) ReleaseMouse();
    wxPoint const pixel(wxRound(event.GetX() / m_scale), wxRound(event.GetY() / m_scale));
    SetCursor(m_tool->ProcessMouseEvent(pixel - m_offset, event, m_scale, m_offset));
    Refresh();
    // The second of two quick presses comes as a double click. It opens a text, or is a press.
    if (event.LeftDClick() && m_tool->GetState() != ToolState::Editing) {
      event.SetEventType(wxEVT_LEFT_DOWN);
      OnMouse(event);
    }
  }

  void OnWheel(wxMouseEvent &event) {
    int const step = event.GetWheelRotation() > 0 ? -40 : 40;
    if (event.ControlDown()) return ZoomBy(step < 0 ? 1.25 : 0.8);
    int &offset = event.ShiftDown() ? m_offset.x : m_offset.y;
    offset = std::min(0, offset - step);  // by whole picture pixels, as the picture is painted
    Refresh();
  }

  wxBitmap m_picture;
  std::shared_ptr<AnnotationTool> m_tool;
  double m_scale = 1.0;
  wxPoint m_offset;
};

class Frame : public wxFrame {
public:
  Frame(wxString const &name, wxImage const &picture, wxString const &document, double zoom)
      : wxFrame(nullptr, wxID_ANY, "Framenote", wxDefaultPosition, wxSize(1000, 760)),
        m_document(document),
        m_tool(std::make_shared<AnnotationTool>(
            AnnotationToolConfig(false, false, true, true, false, {}))) {
    AnnotationPanel *const panel = m_tool->InitGui(this, this, m_tool);
    m_tool->SetImage(picture, true);
    wxString text;
    if (wxFileExists(document) && wxFFile(document).ReadAll(&text))
      m_tool->FromJSON(JsonFromText(text), 1);
    m_tool->UpdateMediaInfo({0, 1, false});  // the first frame of one: a still picture
    m_tool->UpdateTextMacrosMap({{"%FILE%", wxFileName(name).GetFullName()}});
    auto *const canvas = new Canvas(this, picture, m_tool);  // owned by this frame
    canvas->ZoomBy(zoom);
    auto *const sizer = new wxBoxSizer(wxHORIZONTAL);  // owned by this frame
    sizer->Add(canvas, 1, wxEXPAND);
    sizer->Add(panel, 0, wxEXPAND);
    SetSizer(sizer);
    auto *const menu = new wxMenu;  // owned by the menu bar
    menu->Append(wxID_SAVE);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent &) { Save(); }, wxID_SAVE);
    SetMenuBar(new wxMenuBar);  // owned by this frame
    GetMenuBar()->Append(menu, "Document");
  }
  ~Frame() override { m_tool->UnlinkGui(); }

private:
  void Save() {
    m_tool->DeactivateToolAndControls();  // whatever is being edited ends, and the document is up
                                          // to date
    wxJSONValue annotations(wxJSONTYPE_OBJECT);
    annotations.Set(AnnotationJsonChangedEvent::m_annotateKey, m_tool->GetJSON());
    wxFFile file(m_document, "w");
    if (!file.IsOpened() || !file.Write(JsonToText(annotations))) wxLogError("Not saved.");
  }

  wxString m_document;
  std::shared_ptr<AnnotationTool> m_tool;
};

class App : public wxApp {
public:
  bool OnInit() override {
    wxInitAllImageHandlers();
    wxImage::SetDefaultLoadFlags(0);  // no message box about a picture's colour profile
    wxImage const picture(argc > 1 ? argv[1] : wxString());
    if (!picture.IsOk()) return false;
    wxString const document = argc > 2 ? argv[2] : wxString("annotations.json");
    int const zoom = argc > 3 ? wxAtoi(argv[3]) : 100;
    return (new Frame(argv[1], picture, document, zoom / 100.0))->Show();  // owned by itself
  }
};

wxIMPLEMENT_APP(App);
