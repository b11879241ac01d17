// SPDX-License-Identifier: MIT
#pragma once

#include <wx/colour.h>
#include <wx/gdicmn.h>

#include "properties/annotation_properties.h"

/// The look of an arrow.
class FRAMENOTE_API AnnArrowProperties : public IAnnotationProperties {
public:
  /// `Arrow` has a triangular head; `Line` has none.
  enum Head : int { Arrow = 0, Line = 1 };

  AnnArrowProperties();  ///< The defaults that the document format tells.
  /// Reads `json`; what it lacks is the default.
  explicit AnnArrowProperties(wxJSONValue const &json);
  ///@{
  /// A copy shares nothing with its source.
  AnnArrowProperties(AnnArrowProperties const &other);
  AnnArrowProperties &operator=(AnnArrowProperties const &other);
  ///@}
  ~AnnArrowProperties() override;

  Head GetHead() const { return m_head; }           ///< the form of the tip
  wxColour GetColor() const { return m_color; }     ///< of body and head, with alpha
  int GetThickness() const { return m_thickness; }  ///< of the body, in picture pixels

  ///@{
  /// Sets the field and its member of the mirror.
  void SetHead(Head value);
  void SetColor(wxColour const &value);
  void SetThickness(int value);
  ///@}

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
