// SPDX-License-Identifier: MIT
#pragma once

#include <wx/colour.h>
#include <wx/gdicmn.h>

#include "properties/annotation_properties.h"

/// The look of a freehand stroke.
class FRAMENOTE_API AnnPencilProperties : public IAnnotationProperties {
public:
  AnnPencilProperties();
  explicit AnnPencilProperties(wxJSONValue const &json);
  AnnPencilProperties(AnnPencilProperties const &other);
  AnnPencilProperties &operator=(AnnPencilProperties const &other);
  ~AnnPencilProperties() override;

  wxColour GetColor() const { return m_color; }
  int GetThickness() const { return m_thickness; }

  void SetColor(wxColour const &value);
  void SetThickness(int value);

private:
  void initJSONVal() override;
  void initFromJSONVal() override;
  void setJSONValColor();
  void setJSONValThickness();

  static constexpr char const colorKey[] = "Color";
  static constexpr char const thicknessKey[] = "Thickness";

  wxColour m_color = *wxRED;
  int m_thickness = 3;
};
