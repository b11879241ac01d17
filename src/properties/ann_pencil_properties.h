// SPDX-License-Identifier: MIT
#pragma once

#include <wx/colour.h>
#include <wx/gdicmn.h>

#include "properties/annotation_properties.h"

/// The look of a freehand stroke.
class FRAMENOTE_API AnnPencilProperties : public IAnnotationProperties {
public:
  AnnPencilProperties();  ///< The defaults that the document format tells.
  /// Reads `json`; what it lacks is the default.
  explicit AnnPencilProperties(wxJSONValue const &json);
  ///@{
  /// A copy shares nothing with its source.
  AnnPencilProperties(AnnPencilProperties const &other);
  AnnPencilProperties &operator=(AnnPencilProperties const &other);
  ///@}
  ~AnnPencilProperties() override;

  wxColour GetColor() const { return m_color; }     ///< of the line, with alpha
  int GetThickness() const { return m_thickness; }  ///< of the line, in picture pixels

  ///@{
  /// Sets the field and its member of the mirror.
  void SetColor(wxColour const &value);
  void SetThickness(int value);
  ///@}

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
