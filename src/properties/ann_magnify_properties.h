// SPDX-License-Identifier: MIT
#pragma once

#include <wx/colour.h>
#include <wx/gdicmn.h>
#include <wx/image.h>

#include "properties/ann_shape_properties.h"
#include "properties/annotation_properties.h"

/// The look of a magnifier.
class FRAMENOTE_API AnnMagnifyProperties : public IAnnotationProperties {
public:
  /// What is painted beside what the lens shows: nothing, its border, or also the outline of the
  /// enlarged area and so many lines from there to the lens.
  enum BorderType : int {
    Transparent = 0,
    ShapeOnly = 1,
    PointToZoomedArea2Lines = 2,
    PointToZoomedArea3Lines = 3,
    PointToZoomedArea4Lines = 4
  };

  AnnMagnifyProperties();  ///< The defaults that the document format tells.
  /// Reads `json`; what it lacks is the default.
  explicit AnnMagnifyProperties(wxJSONValue const &json);
  ///@{
  /// A copy shares nothing with its source.
  AnnMagnifyProperties(AnnMagnifyProperties const &other);
  AnnMagnifyProperties &operator=(AnnMagnifyProperties const &other);
  ///@}
  ~AnnMagnifyProperties() override;

  double GetZoom() const { return m_zoom; }                      ///< how many times larger
  bool GetFixedSourceSize() const { return m_fixedSourceSize; }  ///< the lens grows with the zoom
  /// How pixels between the picture's own are found.
  wxImageResizeQuality GetZoomMethod() const {
    return static_cast<wxImageResizeQuality>(m_zoomMethod);
  }
  /// The same as a document gives it, which need not be a method.
  int GetZoomMethodNumber() const { return m_zoomMethod; }
  AnnShapeProperties::Shape GetShape() const { return m_shape; }  ///< the form of the lens
  wxColour GetBorderColor() const { return m_borderColor; }       ///< of border, outline and lines
  BorderType GetBorderType() const { return m_borderType; }       ///< need not be known
  /// of border, outline and lines, in picture pixels
  int GetThickness() const { return m_thickness; }

  ///@{
  /// Sets the field and its member of the mirror.
  void SetZoom(double value);
  void SetFixedSourceSize(bool value);
  void SetZoomMethod(wxImageResizeQuality value);
  void SetShape(AnnShapeProperties::Shape value);
  void SetBorderColor(wxColour const &value);
  void SetBorderType(BorderType value);
  void SetThickness(int value);
  ///@}

  static constexpr double m_minZoom = 1.5;   ///< the least that the panel offers
  static constexpr double m_maxZoom = 8.0;   ///< the greatest
  static constexpr double m_zoomStep = 0.5;  ///< from one to the next

private:
  void initJSONVal() override;
  void initFromJSONVal() override;
  void setJSONValZoom();
  void setJSONFixedSourceSize();
  void setJSONValZoomMethod();
  void setJSONValShape();
  void setJSONValBorderColor();
  void setJSONValBorderType();
  void setJSONValThickness();

  static constexpr char const zoomKey[] = "Zoom";
  static constexpr char const fixedSourceSizeKey[] = "FixedSourceSize";
  static constexpr char const zoomMethodKey[] = "ZoomMethod";
  static constexpr char const shapeKey[] = "Shape";
  static constexpr char const borderColorKey[] = "BorderColor";
  static constexpr char const borderTypeKey[] = "BorderType";
  static constexpr char const thicknessKey[] = "Thickness";

  double m_zoom = 2.0;
  bool m_fixedSourceSize = true;
  // A wxImageResizeQuality, kept as a number: that enumeration's underlying type is not fixed, so
  // it cannot hold every number that a document may bring.
  int m_zoomMethod = wxIMAGE_QUALITY_NEAREST;
  AnnShapeProperties::Shape m_shape = AnnShapeProperties::Rectangle;
  wxColour m_borderColor = *wxRED;
  BorderType m_borderType = Transparent;
  int m_thickness = 3;
};
