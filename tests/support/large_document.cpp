// SPDX-License-Identifier: MIT
#include "support/large_document.h"

#include <memory>
#include <utility>
#include <vector>

#include <wx/dcmemory.h>

#include "modes/ann_arrow_tool_mode.h"
#include "modes/ann_hide_tool_mode.h"
#include "modes/ann_magnify_tool_mode.h"
#include "modes/ann_pencil_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "modes/ann_text_tool_mode.h"
#include "objects/ann_arrow.h"
#include "objects/ann_hide.h"
#include "objects/ann_image.h"
#include "objects/ann_magnify.h"
#include "objects/ann_pencil.h"
#include "objects/ann_shape.h"
#include "objects/ann_text.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

constexpr int kWidth = 17;
constexpr int kHeight = 12;
constexpr int kKinds = 7;

/// Rows of objects that do not touch, with room to their right and below.
wxPoint PlaceOf(int index) {
  constexpr int kColumns = kLargeWidth / (kWidth + 1) - 2;
  constexpr int kRows = kLargeHeight / (kHeight + 1) - 2;
  return {1 + index % kColumns * (kWidth + 1), 1 + index / kColumns % kRows * (kHeight + 1)};
}

std::unique_ptr<IAnnotationObject> ObjectAt(ToolModes const &modes, int index) {
  wxRect const rect(PlaceOf(index), wxSize(kWidth, kHeight));
  wxPoint2DInt const from(rect.GetTopLeft());
  wxPoint2DInt const to(rect.GetBottomRight());
  switch (index % kKinds) {
    case 0:
      return std::make_unique<AnnShape>(modes.shape, rect, 0);
    case 1:
      return std::make_unique<AnnArrow>(modes.arrow, to, from, 0);
    case 2: {
      std::vector<wxPoint2DInt> const path = {from, from + wxPoint2DInt(4, 9), to};
      return std::make_unique<AnnPencil>(modes.pencil, path, 0);
    }
    case 3: {
      auto text = std::make_unique<AnnText>(modes.shape, modes.text, rect, 0);
      text->SetTextAndParse(wxString::Format("%d", index), {});
      return text;
    }
    case 4:
      return std::make_unique<AnnImage>(modes.shape, modes.image, rect, 0);
    case 5:
      return std::make_unique<AnnHide>(modes.shape, modes.hide, rect, wxNullImage, 0);
    default:
      return std::make_unique<AnnMagnify>(modes.shape, modes.magnify, rect, wxNullImage, 0);
  }
}

wxJSONValue DocumentOf(wxJSONValue objects) {
  wxJSONValue annotations(wxJSONTYPE_OBJECT);
  annotations.Set("ExtensionColor", "#FFFFFFFF");
  annotations.Set("Objects", std::move(objects));
  wxJSONValue document(wxJSONTYPE_OBJECT);
  document.Set("Annotate", std::move(annotations));
  return document;
}

wxString NewPictureFile() {
  wxString const path = wxFileName::CreateTempFileName("framenote");
  wxImage(kWidth, kHeight).SaveFile(path, wxBITMAP_TYPE_PNG);
  return path;
}

}  // namespace

wxJSONValue DocumentOfManyObjects(int count, std::int64_t frameCount, wxString const &picturePath) {
  ToolDriver driver(frameCount);
  ToolModes const &modes = driver.Tool().GetToolModes();
  modes.image->m_properties->SetFileName(wxFileName(picturePath));
  wxJSONValue objects(wxJSONTYPE_ARRAY);
  for (int i = 0; i < count; ++i) {
    std::unique_ptr<IAnnotationObject> const object = ObjectAt(modes, i);
    object->SetEndFrame(frameCount - 1);
    object->OnObjectModified();
    objects.Append(object->ToJSON());
  }
  return DocumentOf(std::move(objects));
}

wxJSONValue DocumentOfManyRuns(int runs) {
  ToolDriver driver(runs);
  ToolModes const &modes = driver.Tool().GetToolModes();
  modes.shape->m_properties->SetFillColor(*wxRED);
  AnnShape shape(modes.shape, wxRect(10, 10, 100, 60), 0);
  shape.SetEndFrame(runs - 1);
  for (int frame = 1; frame < runs; ++frame) {
    driver.GoToFrame(frame);
    shape.UpdateCoordinatesPointers(frame);
    shape.MoveFor({frame % 200, frame % 100});
  }
  shape.OnObjectModified();
  wxJSONValue objects(wxJSONTYPE_ARRAY);
  objects.Append(shape.ToJSON());
  return DocumentOf(std::move(objects));
}

LargeDocument LargeDocument::OfObjects(int count, std::int64_t frameCount) {
  wxString const path = NewPictureFile();
  return LargeDocument(path, DocumentOfManyObjects(count, frameCount, path), frameCount);
}

LargeDocument LargeDocument::OfRuns(int runs) {
  return LargeDocument(wxString(), DocumentOfManyRuns(runs), runs);
}

LargeDocument::LargeDocument(wxString const &picturePath, wxJSONValue document,
                             std::int64_t frameCount)
    : m_picturePath(picturePath),
      m_document(std::move(document)),
      m_frameCount(frameCount),
      m_picture(kLargeWidth, kLargeHeight),
      m_canvas(kLargeWidth, kLargeHeight, 24),
      m_driver(frameCount) {
  Tool().SetImage(m_picture, false);
  Load();
}

LargeDocument::~LargeDocument() {
  if (!m_picturePath.empty()) wxRemoveFile(m_picturePath);
}

void LargeDocument::deliver() {
  m_driver.Sink().Pump();
  m_driver.Sink().Clear();
}

void LargeDocument::select(std::size_t index) {
  Tool().SelectObject(index);
}

void LargeDocument::run(AnnotationCommand command) {
  wxCommandEvent event(wxEVT_MENU, static_cast<int>(command));
  Tool().onPopupClick(event);
}

void LargeDocument::Load() {
  Tool().FromJSON(m_document, m_frameCount);
  m_driver.GoToFrame(m_frame);
  Tool().SetImage(m_picture, false);
  deliver();
}

void LargeDocument::Paint() {
  wxMemoryDC dc(m_canvas);
  Tool().Draw(dc, nullptr, {0.0, 0.0}, 1.0);
}

void LargeDocument::Point() {
  m_driver.Move(kLargeWidth - 2, kLargeHeight - 2);
  m_driver.Move(kLargeWidth - 3, kLargeHeight - 3);
}

void LargeDocument::PressAtTheBack() {
  Tool().Deactivate();
  wxPoint2DInt const at = m_driver.Object(m_driver.ObjectCount() - 1)->GetPastePoint();
  m_driver.Move(at.m_x, at.m_y);
  m_driver.Press(at.m_x, at.m_y);
  m_driver.Release(at.m_x, at.m_y);
  deliver();
}

void LargeDocument::SelectEnds() {
  select(m_driver.ObjectCount() - 1);
  select(0);
  deliver();
}

void LargeDocument::Drag() {
  Tool().Deactivate();
  select(0);
  wxPoint2DInt const corner = m_driver.Object(0)->GetPastePoint();
  // The border of the rectangle, beside its corner.
  wxPoint const from(corner.m_x, corner.m_y);
  m_driver.Drag(from, from + wxPoint(m_shift, m_shift));
  m_shift = -m_shift;
  deliver();
}

void LargeDocument::ChangeLook() {
  select(0);
  m_shift = -m_shift;
  ToolModes const &modes = Tool().GetToolModes();
  modes.shape->m_properties->SetThickness(3 + m_shift);
  modes.shape->ApplyProperties();
  deliver();
}

void LargeDocument::DeleteAndPaste() {
  select(0);
  run(AnnotationCommand::Copy);
  wxPoint2DInt const at = m_driver.Object(0)->GetPastePoint();
  run(AnnotationCommand::Delete);
  m_driver.Move(at.m_x, at.m_y);
  run(AnnotationCommand::Paste);
  deliver();
}

void LargeDocument::StepFrame() {
  m_frame = (m_frame + 1) % m_frameCount;
  m_driver.GoToFrame(m_frame);
  Tool().SetImage(m_picture, false);
  deliver();
}

void LargeDocument::Save() {
  wxJSONValue annotations;
  Tool().ToJSON(annotations);
  wxJSONValue document(wxJSONTYPE_OBJECT);
  document.Set("Annotate", std::move(annotations));
  m_savedSize = JsonToUtf8(document).size();
}

void LargeDocument::Visit() {
  wxJSONValue visited(wxJSONTYPE_ARRAY);
  for (IAnnotationObject *const object : Tool().AnnotationObjects()) {
    wxJSONValue const mirror = object->ToJSON();
    wxJSONValue const runs = mirror.ItemAt(IAnnotationObject::coordinatesKey);
    for (int i = 0; i < runs.Size(); ++i) {
      visited.Append(runs.ItemAt(i).ItemAt(IAnnotationObject::coordinatesRangeKey));
    }
    if (object->GetDominantColor().IsOk()) visited.Append(mirror);
  }
  m_visited = visited.Size();
}

}  // namespace framenote::test
