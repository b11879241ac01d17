// SPDX-License-Identifier: MIT
#pragma once

#include <wx/colour.h>

#include "properties/ann_shape_properties.h"
#include "properties/annotation_properties.h"

/// The look of a hide region.
class FRAMENOTE_API AnnHideProperties : public IAnnotationProperties {
public:
  /// How a region is hidden.
  enum Effect : int { Blur = 0, Pixelation = 1 };

  AnnHideProperties();  ///< The defaults that the document format tells.
  /// Reads `json`; what it lacks is the default.
  explicit AnnHideProperties(wxJSONValue const &json);
  ///@{
  /// A copy shares nothing with its source.
  AnnHideProperties(AnnHideProperties const &other);
  AnnHideProperties &operator=(AnnHideProperties const &other);
  ///@}
  ~AnnHideProperties() override;

  Effect GetEffect() const { return m_effect; }  ///< how it is hidden; need not be known
  /// Whether the effect is one of the two; a document may bring any number.
  bool HasKnownEffect() const { return m_effect == Blur || m_effect == Pixelation; }
  int GetStrength() const { return m_strength; }  ///< in picture pixels; acts as 1 below 1
  AnnShapeProperties::Shape GetShape() const { return m_shape; }  ///< the form of the region
  wxColour GetBorderColor() const { return m_borderColor; }       ///< alpha 0 paints no border
  int GetThickness() const { return m_thickness; }  ///< of the border, in picture pixels

  ///@{
  /// Sets the field and its member of the mirror.
  void SetEffect(Effect value);
  void SetStrength(int value);
  void SetShape(AnnShapeProperties::Shape value);
  void SetBorderColor(wxColour const &value);
  void SetThickness(int value);
  ///@}

  static constexpr int m_maxStrength = 50;  ///< the greatest that the panel offers

private:
  void initJSONVal() override;
  void initFromJSONVal() override;
  void setJSONValEffect();
  void setJSONValStrength();
  void setJSONValShape();
  void setJSONValBorderColor();
  void setJSONValThickness();

  static constexpr char const effectKey[] = "Effect";
  static constexpr char const strengthKey[] = "Strength";
  static constexpr char const shapeKey[] = "Shape";
  static constexpr char const borderColorKey[] = "BorderColor";
  static constexpr char const borderColorTransparentKey[] = "BorderColorTransparent";
  static constexpr char const thicknessKey[] = "Thickness";

  Effect m_effect = Pixelation;
  int m_strength = 40;
  AnnShapeProperties::Shape m_shape = AnnShapeProperties::Ellipse;
  wxColour m_borderColor = wxColour(255, 0, 0, 0);
  int m_thickness = 3;
};
