// SPDX-License-Identifier: MIT
#pragma once

#include <wx/colour.h>
#include <wx/font.h>
#include <wx/gdicmn.h>

#include "properties/annotation_properties.h"

/// The look of a text box.
class FRAMENOTE_API AnnTextProperties : public IAnnotationProperties {
public:
  /// Where the lines stand in the box.
  enum HorizontalAlignment : int { Left = 0, Center = 1, Right = 2 };
  /// Where the block of lines stands in the box.
  enum VerticalAlignment : int { Top = 0, Middle = 1, Bottom = 2 };

  AnnTextProperties();  ///< The defaults that the document format tells.
  /// Reads `json`; what it lacks is the default.
  explicit AnnTextProperties(wxJSONValue const &json);
  ///@{
  /// A copy shares nothing with its source.
  AnnTextProperties(AnnTextProperties const &other);
  AnnTextProperties &operator=(AnnTextProperties const &other);
  ///@}
  ~AnnTextProperties() override;

  wxFont GetFont() const { return m_font; }  ///< one that is not Ok is painted as the stock font
  wxColour GetFontColor() const { return m_fontColor; }              ///< with alpha
  wxColour GetBackgroundColor() const { return m_backgroundColor; }  ///< alpha 0 paints none
  /// need not be known
  HorizontalAlignment GetHorizontalAlignment() const { return m_horizontalAlignment; }
  /// need not be known
  VerticalAlignment GetVerticalAlignment() const { return m_verticalAlignment; }
  /// The toolkit's alignment flag; wxALIGN_CENTER_HORIZONTAL for any other stored value.
  long GetHorizontalAlignmentFlag() const;

  ///@{
  /// Sets the field and its member of the mirror.
  void SetFont(wxFont const &value);
  void SetFontColor(wxColour const &value);
  void SetBackgroundColor(wxColour const &value);
  void SetHorizontalAlignment(HorizontalAlignment value);
  void SetVerticalAlignment(VerticalAlignment value);
  ///@}

private:
  void initJSONVal() override;
  void initFromJSONVal() override;
  void setJSONValFont();
  void setJSONValFontColor();
  void setJSONValBackgroundColor();
  void setJSONValHorizontalAlignment();
  void setJSONValVerticalAlignment();

  static constexpr char const fontKey[] = "Font";
  static constexpr char const fontColorKey[] = "FontColor";
  static constexpr char const backgroundColorKey[] = "BackgroundColor";
  static constexpr char const backgroundColorTransparentKey[] = "BackgroundColorTransparent";
  static constexpr char const horizontalAlignmentKey[] = "HorizontalAlignment";
  static constexpr char const verticalAlignmentKey[] = "VerticalAlignment";

  wxFont m_font = *wxNORMAL_FONT;
  wxColour m_fontColor = wxColour(0, 0, 0, 255);
  wxColour m_backgroundColor = wxColour(255, 255, 255, 0);
  HorizontalAlignment m_horizontalAlignment = Center;
  VerticalAlignment m_verticalAlignment = Middle;
};
