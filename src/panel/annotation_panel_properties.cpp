// SPDX-License-Identifier: MIT
// The property panels: for each tool its rows, with the record's getters and setters.
#include <wx/checkbox.h>
#include <wx/odcombo.h>
#include <wx/sizer.h>

#include "framenote/annotation_panel.h"
#include "framenote/annotation_tool.h"
#include "modes/ann_arrow_tool_mode.h"
#include "modes/ann_hide_tool_mode.h"
#include "modes/ann_image_tool_mode.h"
#include "modes/ann_magnify_tool_mode.h"
#include "modes/ann_pencil_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "modes/ann_text_tool_mode.h"
#include "panel/panel_layout.h"

namespace {

using LabelList = std::vector<char const *>;

// In the order of the enumerations.
LabelList const kShapeLabels = {wxTRANSLATE("Rectangle"), wxTRANSLATE("Ellipse")};
// TRANSLATORS: what an arrow ends in: a head, or nothing.
LabelList const kHeadLabels = {wxTRANSLATE("Arrow"), wxTRANSLATE("Line")};
// TRANSLATORS: where text stands in its box; "Middle" is the vertical one.
LabelList const kHorizontalAlignmentLabels = {wxTRANSLATE("Left"), wxTRANSLATE("Center"),
                                              wxTRANSLATE("Right")};
LabelList const kVerticalAlignmentLabels = {wxTRANSLATE("Top"), wxTRANSLATE("Middle"),
                                            wxTRANSLATE("Bottom")};
LabelList const kEffectLabels = {wxTRANSLATE("Blur"), wxTRANSLATE("Pixelation")};
// TRANSLATORS: methods of interpolation, as image editors call them.
LabelList const kZoomMethodLabels = {wxTRANSLATE("Nearest"), wxTRANSLATE("Bilinear"),
                                     wxTRANSLATE("Bicubic"), wxTRANSLATE("Box average")};
// TRANSLATORS: the border of a magnifier: none, about the lens alone, or also lines from the lens
// to what it enlarges.
LabelList const kBorderTypeLabels = {wxTRANSLATE("Transparent"), wxTRANSLATE("Shape only"),
                                     wxTRANSLATE("Point to zoomed area (2 lines)"),
                                     wxTRANSLATE("Point to zoomed area (3 lines)"),
                                     wxTRANSLATE("Point to zoomed area (4 lines)")};

constexpr double kMinThickness = 1.0;
constexpr double kMaxThickness = 50.0;

/// A colour that keeps its components and takes an alpha.
wxColour WithAlpha(wxColour const &colour, int alpha) {
  return {colour.Red(), colour.Green(), colour.Blue(), static_cast<unsigned char>(alpha)};
}

}  // namespace

// Records are replaced in place, never by other ones, so each getter and setter may keep its own.

wxPanel *AnnotationPanel::CreateShapePropertiesPanel() {
  auto const record = m_tool->GetToolModes().shape->m_properties;
  Page const page = startPage(Types::Shape, 0);
  addChoice(
      page, 10, wxTRANSLATE("Shape"), kShapeLabels, [record] { return record->GetShape(); },
      [record](int n) { record->SetShape(static_cast<AnnShapeProperties::Shape>(n)); });
  addColourWithCheck(
      page, 11, 12, wxTRANSLATE("Border Color"), [record] { return record->GetBorderColor(); },
      [record](wxColour const &colour) { record->SetBorderColor(colour); }, nullptr);
  addColourWithCheck(
      page, 13, 14, wxTRANSLATE("Fill Color"), [record] { return record->GetFillColor(); },
      [record](wxColour const &colour) { record->SetFillColor(colour); }, nullptr);
  addSlider(
      page, 15, wxTRANSLATE("Border Thickness"), {kMinThickness, kMaxThickness, 1.0},
      [record] { return record->GetThickness(); }, [record](int n) { record->SetThickness(n); });
  return finishPage(page);
}

wxPanel *AnnotationPanel::CreateArrowPropertiesPanel() {
  auto const record = m_tool->GetToolModes().arrow->m_properties;
  Page const page = startPage(Types::Arrow, 0);
  addChoice(
      // TRANSLATORS: the head of an arrow.
      page, 16, wxTRANSLATE("Head"), kHeadLabels, [record] { return record->GetHead(); },
      [record](int n) { record->SetHead(static_cast<AnnArrowProperties::Head>(n)); });
  addColour(
      page, 17, wxTRANSLATE("Color"), [record] { return record->GetColor(); },
      [record](wxColour const &colour) { record->SetColor(colour); });
  addSlider(
      page, 18, wxTRANSLATE("Thickness"), {kMinThickness, kMaxThickness, 1.0},
      [record] { return record->GetThickness(); }, [record](int n) { record->SetThickness(n); });
  return finishPage(page);
}

wxPanel *AnnotationPanel::CreatePencilPropertiesPanel() {
  auto const record = m_tool->GetToolModes().pencil->m_properties;
  Page const page = startPage(Types::Pencil, 0);
  addColour(
      page, 19, wxTRANSLATE("Color"), [record] { return record->GetColor(); },
      [record](wxColour const &colour) { record->SetColor(colour); });
  addSlider(
      page, 20, wxTRANSLATE("Thickness"), {kMinThickness, kMaxThickness, 1.0},
      [record] { return record->GetThickness(); }, [record](int n) { record->SetThickness(n); });
  return finishPage(page);
}

wxPanel *AnnotationPanel::CreateTextPropertiesPanel() {
  constexpr int kRows = 16;
  auto const record = m_tool->GetToolModes().text->m_properties;
  auto const hideRecord = m_tool->GetToolModes().hide->m_properties;
  Page const page = startPage(Types::Text, kRows);
  addFontRows(page);
  addColourWithCheck(
      page, 29, 30, wxTRANSLATE("Background Color"),
      [record] { return record->GetBackgroundColor(); },
      [record](wxColour const &colour) { record->SetBackgroundColor(colour); },
      // The interface has it so: the border of the next hide region follows.
      [this, hideRecord](int alpha) {
        hideRecord->SetBorderColor(WithAlpha(hideRecord->GetBorderColor(), alpha));
        apply(Types::Hide);
      });
  addChoice(
      page, 27, wxTRANSLATE("Horizontal Alignment"), kHorizontalAlignmentLabels,
      [record] { return record->GetHorizontalAlignment(); },
      [record](int n) {
        record->SetHorizontalAlignment(static_cast<AnnTextProperties::HorizontalAlignment>(n));
      });
  addChoice(
      page, 28, wxTRANSLATE("Vertical Alignment"), kVerticalAlignmentLabels,
      [record] { return record->GetVerticalAlignment(); },
      [record](int n) {
        record->SetVerticalAlignment(static_cast<AnnTextProperties::VerticalAlignment>(n));
      });
  addMacroRow(page);
  return finishPage(page);
}

wxPanel *AnnotationPanel::CreateHidePropertiesPanel() {
  auto const record = m_tool->GetToolModes().hide->m_properties;
  Page const page = startPage(Types::Hide, 0);
  addChoice(
      page, 34, wxTRANSLATE("Effect"), kEffectLabels, [record] { return record->GetEffect(); },
      [record](int n) { record->SetEffect(static_cast<AnnHideProperties::Effect>(n)); });
  addSlider(
      // TRANSLATORS: of blur or pixelation.
      page, 35, wxTRANSLATE("Strength"), {1.0, AnnHideProperties::m_maxStrength, 1.0},
      [record] { return record->GetStrength(); }, [record](int n) { record->SetStrength(n); });
  addChoice(
      page, 36, wxTRANSLATE("Shape"), kShapeLabels, [record] { return record->GetShape(); },
      [record](int n) { record->SetShape(static_cast<AnnShapeProperties::Shape>(n)); });
  addColourWithCheck(
      page, 37, 38, wxTRANSLATE("Border Color"), [record] { return record->GetBorderColor(); },
      [record](wxColour const &colour) { record->SetBorderColor(colour); }, nullptr);
  addSlider(
      page, 39, wxTRANSLATE("Border Thickness"), {kMinThickness, kMaxThickness, 1.0},
      [record] { return record->GetThickness(); }, [record](int n) { record->SetThickness(n); });
  return finishPage(page);
}

wxPanel *AnnotationPanel::CreateMagnifyPropertiesPanel() {
  // Positions of the slider are halves of the zoom.
  constexpr double kZoomPerPosition = 0.5;
  auto const record = m_tool->GetToolModes().magnify->m_properties;
  Page const page = startPage(Types::Magnify, 0);
  auto *const zoom = new wxBoxSizer(wxVERTICAL);  // owned by the grid
  zoom->Add(makeSlider(
                page, 40,
                {AnnMagnifyProperties::m_minZoom, AnnMagnifyProperties::m_maxZoom,
                 AnnMagnifyProperties::m_zoomStep},
                [record] { return record->GetZoom(); },
                [record](int n) { record->SetZoom(n * kZoomPerPosition); }),
            0, wxEXPAND, 0);
  wxCheckBox *const fixed = makeCheck(
      // TRANSLATORS: the part of the picture that a magnifier enlarges keeps its size.
      page, 41, wxTRANSLATE("Fixed source size"), [record] { return record->GetFixedSourceSize(); },
      [record](bool isFixed) { record->SetFixedSourceSize(isFixed); });
  zoom->Add(fixed, 0, framenote::CheckFlags(*fixed), framenote::kRowGap);
  addRow(page, wxTRANSLATE("Zoom"), zoom);
  if (m_config.showZoomMethod) {
    addChoice(
        page, 42, wxTRANSLATE("Zoom Method"), kZoomMethodLabels,
        [record] { return record->GetZoomMethodNumber(); },
        [record](int n) { record->SetZoomMethod(static_cast<wxImageResizeQuality>(n)); });
  }
  addChoice(
      page, 43, wxTRANSLATE("Shape"), kShapeLabels, [record] { return record->GetShape(); },
      [record](int n) { record->SetShape(static_cast<AnnShapeProperties::Shape>(n)); });
  addColour(
      page, 44, wxTRANSLATE("Border Color"), [record] { return record->GetBorderColor(); },
      [record](wxColour const &colour) { record->SetBorderColor(colour); });
  addChoice(
      page, 45, wxTRANSLATE("Border Type"), kBorderTypeLabels,
      [record] { return record->GetBorderType(); },
      [record](int n) { record->SetBorderType(static_cast<AnnMagnifyProperties::BorderType>(n)); });
  addSlider(
      page, 46, wxTRANSLATE("Border Thickness"), {kMinThickness, kMaxThickness, 1.0},
      [record] { return record->GetThickness(); }, [record](int n) { record->SetThickness(n); });
  return finishPage(page);
}
