// SPDX-License-Identifier: MIT
#pragma once

#include <wx/colour.h>
#include <wx/gdicmn.h>

#include "properties/annotation_properties.h"

/// The look of an arrow.
class FRAMENOTE_API AnnArrowProperties : public IAnnotationProperties {
public:
  enum Head : int { Arrow = 0, Line = 1 };

  AnnArrowProperties();
  explicit AnnArrowProperties(wxJSONValue const &json);
  AnnArrowProperties(AnnArrowProperties const &other);
  AnnArrowProperties &operator=(AnnArrowProperties const &other);
  ~AnnArrowProperties() override;

  Head GetHead() const { return m_head; }
  wxColour GetColor() const { return m_color; }
  int GetThickness() const { return m_thickness; }

  void SetHead(Head value);
  void SetColor(wxColour const &value);
  void SetThickness(int value);

private:
  void initJSONVal() override;
  void initFromJSONVal() override;
  void setJSONValHead();
  void setJSONValColor();
  void setJSONValThickness();

  static constexpr char const headKey[] = "Head";
  static constexpr char const colorKey[] = "Color";
  static constexpr char const thicknessKey[] = "Thickness";

  Head m_head = Arrow;
  wxColour m_color = *wxRED;
  int m_thickness = 3;
};
