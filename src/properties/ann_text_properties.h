// SPDX-License-Identifier: MIT
#pragma once

#include <wx/colour.h>
#include <wx/font.h>
#include <wx/gdicmn.h>

#include "properties/annotation_properties.h"

/// The look of a text box.
class FRAMENOTE_API AnnTextProperties : public IAnnotationProperties {
public:
  enum HorizontalAlignment : int { Left = 0, Center = 1, Right = 2 };
  enum VerticalAlignment : int { Top = 0, Middle = 1, Bottom = 2 };

  AnnTextProperties();
  explicit AnnTextProperties(wxJSONValue const &json);
  AnnTextProperties(AnnTextProperties const &other);
  AnnTextProperties &operator=(AnnTextProperties const &other);
  ~AnnTextProperties() override;

  wxFont GetFont() const { return m_font; }
  wxColour GetFontColor() const { return m_fontColor; }
  wxColour GetBackgroundColor() const { return m_backgroundColor; }
  HorizontalAlignment GetHorizontalAlignment() const { return m_horizontalAlignment; }
  VerticalAlignment GetVerticalAlignment() const { return m_verticalAlignment; }
  /// The toolkit's alignment flag; wxALIGN_CENTER_HORIZONTAL for any other stored value.
  long GetHorizontalAlignmentFlag() const;

  void SetFont(wxFont const &value);
  void SetFontColor(wxColour const &value);
  void SetBackgroundColor(wxColour const &value);
  void SetHorizontalAlignment(HorizontalAlignment value);
  void SetVerticalAlignment(VerticalAlignment value);

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
