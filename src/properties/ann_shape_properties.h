// SPDX-License-Identifier: MIT
#pragma once

#include <wx/colour.h>
#include <wx/gdicmn.h>

#include "properties/annotation_properties.h"

/// The look of a rectangle or ellipse.
class FRAMENOTE_API AnnShapeProperties : public IAnnotationProperties {
public:
  enum Shape : int { Rectangle = 0, Ellipse = 1 };

  AnnShapeProperties();
  explicit AnnShapeProperties(wxJSONValue const &json);
  AnnShapeProperties(AnnShapeProperties const &other);
  AnnShapeProperties &operator=(AnnShapeProperties const &other);
  ~AnnShapeProperties() override;

  Shape GetShape() const { return m_shape; }
  wxColour GetBorderColor() const { return m_borderColor; }
  wxColour GetFillColor() const { return m_fillColor; }
  int GetThickness() const { return m_thickness; }

  void SetShape(Shape value);
  void SetBorderColor(wxColour const &value);
  void SetFillColor(wxColour const &value);
  void SetThickness(int value);

private:
  void initJSONVal() override;
  void initFromJSONVal() override;
  void setJSONValShape();
  void setJSONValBorderColor();
  void setJSONValFillColor();
  void setJSONValThickness();

  static constexpr char const shapeKey[] = "Shape";
  static constexpr char const borderColorKey[] = "BorderColor";
  static constexpr char const borderColorTransparentKey[] = "BorderColorTransparent";
  static constexpr char const fillColorKey[] = "FillColor";
  static constexpr char const fillColorTransparentKey[] = "FillColorTransparent";
  static constexpr char const thicknessKey[] = "Thickness";

  Shape m_shape = Rectangle;
  wxColour m_borderColor = *wxRED;
  wxColour m_fillColor = wxColour(255, 255, 255, 0);
  int m_thickness = 5;
};
