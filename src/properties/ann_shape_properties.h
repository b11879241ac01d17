// SPDX-License-Identifier: MIT
#pragma once

#include <wx/colour.h>
#include <wx/gdicmn.h>

#include "properties/annotation_properties.h"

/// The look of a rectangle or ellipse.
class FRAMENOTE_API AnnShapeProperties : public IAnnotationProperties {
public:
  /// What is drawn in the box.
  enum Shape : int { Rectangle = 0, Ellipse = 1 };

  AnnShapeProperties();  ///< The defaults that the document format tells.
  /// Reads `json`; what it lacks is the default.
  explicit AnnShapeProperties(wxJSONValue const &json);
  ///@{
  /// A copy shares nothing with its source.
  AnnShapeProperties(AnnShapeProperties const &other);
  AnnShapeProperties &operator=(AnnShapeProperties const &other);
  ///@}
  ~AnnShapeProperties() override;

  Shape GetShape() const { return m_shape; }                 ///< need not be known
  wxColour GetBorderColor() const { return m_borderColor; }  ///< alpha 0 paints no border
  wxColour GetFillColor() const { return m_fillColor; }      ///< alpha 0 paints no fill
  int GetThickness() const { return m_thickness; }           ///< of the border, in picture pixels

  ///@{
  /// Sets the field and its member of the mirror.
  void SetShape(Shape value);
  void SetBorderColor(wxColour const &value);
  void SetFillColor(wxColour const &value);
  void SetThickness(int value);
  ///@}

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
