// SPDX-License-Identifier: MIT
#include "support/written_object.h"

#include <wx/filename.h>

#include "framenote/annotation_types.h"
#include "objects/annotation_object.h"
#include "objects/shape_geometry.h"
#include "talbase/json_conversions.h"

namespace framenote::test {

namespace {

bool HasCollapsedBox(wxJSONValue const &run) {
  AnnShapePoints const record = BoxOf(run);
  return IsPoint(record) || IsXLine(record) || IsYLine(record);
}

bool IsTransparent(wxJSONValue const &properties) {
  return properties.ItemAt("BorderColorTransparent").AsBool() &&
         properties.ItemAt("FillColorTransparent").AsBool();
}

}  // namespace

wxJSONValue RunsOf(wxJSONValue const &element) {
  wxJSONValue const rectangle = element.ItemAt("Rectangle");
  return (rectangle.IsValid() ? rectangle : element).ItemAt(IAnnotationObject::coordinatesKey);
}

AnnShapePoints BoxOf(wxJSONValue const &run) {
  AnnShapePoints record;
  record.m_topLeft = FromJson<wxPoint2DDouble>(run.ItemAt("TopLeft"));
  record.m_topRight = FromJson<wxPoint2DDouble>(run.ItemAt("TopRight"));
  record.m_bottomRight = FromJson<wxPoint2DDouble>(run.ItemAt("BottomRight"));
  record.m_bottomLeft = FromJson<wxPoint2DDouble>(run.ItemAt("BottomLeft"));
  return record;
}

bool MayBeLeftOut(wxJSONValue const &element) {
  wxJSONValue const runs = RunsOf(element);
  if (runs.Size() == 0) return false;
  wxJSONValue const last = runs.ItemAt(runs.Size() - 1);
  switch (static_cast<Types>(element.ItemAt(IAnnotationObject::idKey).AsInt())) {
    case Types::Shape:
      return HasCollapsedBox(last) || IsTransparent(element.ItemAt("Properties"));
    case Types::Arrow:
      return last.ItemAt("Head").IsSameAs(last.ItemAt("Tail"));
    case Types::Text:
      return element.ItemAt("TextLines").AsString() == "[\"\"]";
    case Types::Image:
      return HasCollapsedBox(last) || !element.ItemAt("Properties").ItemAt("FileName").IsValid() ||
             !wxFileExists(element.ItemAt("Properties").ItemAt("FileName").AsString());
    case Types::Hide:
    case Types::Magnify:
      return HasCollapsedBox(last);
    default:
      return false;
  }
}

}  // namespace framenote::test
