// SPDX-License-Identifier: MIT
// The records of the modes, as a panel or a host writes them: any value that the types hold.
#include <climits>
#include <limits>

#include <wx/filename.h>
#include <wx/font.h>

#include "host/host_calls.h"
#include "host/host_session.h"
#include "modes/ann_arrow_tool_mode.h"
#include "modes/ann_hide_tool_mode.h"
#include "modes/ann_image_tool_mode.h"
#include "modes/ann_magnify_tool_mode.h"
#include "modes/ann_pencil_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "modes/ann_text_tool_mode.h"

namespace framenote::fuzz {

namespace {

constexpr int kThicknesses[] = {3, 0, 1, 8, 50, -1, 5000, INT_MAX, INT_MIN};
constexpr int kStrengths[] = {40, 1, 5, 50, 51, 0, -1, 1000, INT_MAX, INT_MIN};
constexpr double kZooms[] = {2.0,
                             1.5,
                             8.0,
                             1.0,
                             0.5,
                             0.0,
                             -3.0,
                             100.0,
                             1e300,
                             std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity()};
constexpr double kFontSizes[] = {10.0, 1.0, 0.25, 72.5, 2000.0, 1e5};

wxColour ReadColour(ByteReader &bytes) {
  switch (bytes.Below(8)) {
    case 0:
      return {255, 0, 0};
    case 1:
      return {255, 255, 255, 0};
    case 2:
      return {0, 0, 0};
    case 3:
      return {0, 0, 0, 0};
    case 4:
      return {10, 200, 30, 128};
    case 5:
      return {128, 128, 128};
    case 6:
      return {255, 255, 255};
    default:
      return wxNullColour;
  }
}

/// Numbers on both sides of what the enumeration names.
template <class Enum>
Enum ReadEnum(ByteReader &bytes) {
  return static_cast<Enum>(bytes.Below(8) - 1);
}

template <class Mode>
void ApplyIfAsked(Mode &mode, ByteReader &bytes) {
  if (bytes.Flag()) mode.ApplyProperties();
}

}  // namespace

void CallSetShapeLook(HostSession &session, ByteReader &bytes) {
  AnnShapeToolMode &mode = *session.Tool().GetToolModes().shape;
  mode.m_properties->SetShape(ReadEnum<AnnShapeProperties::Shape>(bytes));
  mode.m_properties->SetThickness(bytes.Pick(kThicknesses));
  mode.m_properties->SetBorderColor(ReadColour(bytes));
  mode.m_properties->SetFillColor(ReadColour(bytes));
  ApplyIfAsked(mode, bytes);
}

void CallSetArrowLook(HostSession &session, ByteReader &bytes) {
  AnnArrowToolMode &mode = *session.Tool().GetToolModes().arrow;
  mode.m_properties->SetHead(ReadEnum<AnnArrowProperties::Head>(bytes));
  mode.m_properties->SetThickness(bytes.Pick(kThicknesses));
  mode.m_properties->SetColor(ReadColour(bytes));
  ApplyIfAsked(mode, bytes);
}

void CallSetPencilLook(HostSession &session, ByteReader &bytes) {
  AnnPencilToolMode &mode = *session.Tool().GetToolModes().pencil;
  mode.m_properties->SetThickness(bytes.Pick(kThicknesses));
  mode.m_properties->SetColor(ReadColour(bytes));
  ApplyIfAsked(mode, bytes);
}

void CallSetTextLook(HostSession &session, ByteReader &bytes) {
  AnnTextToolMode &mode = *session.Tool().GetToolModes().text;
  int const size = bytes.Byte();
  constexpr int kSizes = sizeof(kFontSizes) / sizeof(kFontSizes[0]);
  mode.m_properties->SetFont(size < kSizes ? wxFont(wxFontInfo(kFontSizes[size]).FaceName("Sans"))
                                           : wxNullFont);
  mode.m_properties->SetFontColor(ReadColour(bytes));
  mode.m_properties->SetBackgroundColor(ReadColour(bytes));
  int const alignments = bytes.Byte();
  mode.m_properties->SetHorizontalAlignment(
      static_cast<AnnTextProperties::HorizontalAlignment>(alignments % 4));
  mode.m_properties->SetVerticalAlignment(
      static_cast<AnnTextProperties::VerticalAlignment>(alignments / 4 % 4));
  ApplyIfAsked(mode, bytes);
}

void CallSetImageLook(HostSession &session, ByteReader &bytes) {
  AnnImageToolMode &mode = *session.Tool().GetToolModes().image;
  mode.m_properties->SetKeepAspectRatio(bytes.Flag());
  mode.m_properties->SetTransparentColor(ReadEnum<AnnImageProperties::TransparentColor>(bytes));
  mode.UpdatePictureBitmap();
  ApplyIfAsked(mode, bytes);
}

void CallSetHideLook(HostSession &session, ByteReader &bytes) {
  AnnHideToolMode &mode = *session.Tool().GetToolModes().hide;
  int const kinds = bytes.Byte();
  mode.m_properties->SetEffect(static_cast<AnnHideProperties::Effect>(kinds % 4 - 1));
  mode.m_properties->SetShape(static_cast<AnnShapeProperties::Shape>(kinds / 4 % 4 - 1));
  mode.m_properties->SetStrength(bytes.Pick(kStrengths));
  mode.m_properties->SetThickness(bytes.Pick(kThicknesses));
  mode.m_properties->SetBorderColor(ReadColour(bytes));
  ApplyIfAsked(mode, bytes);
}

void CallSetMagnifyLook(HostSession &session, ByteReader &bytes) {
  AnnMagnifyToolMode &mode = *session.Tool().GetToolModes().magnify;
  int const kinds = bytes.Byte();
  mode.m_properties->SetBorderType(static_cast<AnnMagnifyProperties::BorderType>(kinds % 8 - 1));
  mode.m_properties->SetShape(static_cast<AnnShapeProperties::Shape>(kinds / 8 % 4 - 1));
  mode.m_properties->SetFixedSourceSize(kinds >= 128);
  mode.m_properties->SetZoom(bytes.Pick(kZooms));
  constexpr wxImageResizeQuality kMethods[] = {wxIMAGE_QUALITY_NEAREST, wxIMAGE_QUALITY_BILINEAR,
                                               wxIMAGE_QUALITY_BICUBIC, wxIMAGE_QUALITY_BOX_AVERAGE,
                                               wxIMAGE_QUALITY_HIGH};
  mode.m_properties->SetZoomMethod(bytes.Pick(kMethods));
  mode.m_properties->SetBorderColor(ReadColour(bytes));
  ApplyIfAsked(mode, bytes);
}

void CallSetPastedPicture(HostSession &session, ByteReader &bytes) {
  AnnImageToolMode &mode = *session.Tool().GetToolModes().image;
  wxString const path = PastedPicturePath(bytes.Below(3));
  mode.m_properties->SetFileName(wxFileName(path));
  mode.SetPicture(path);
}

}  // namespace framenote::fuzz
