// SPDX-License-Identifier: MIT
#pragma once

#include <wx/colour.h>
#include <wx/filename.h>

#include "properties/annotation_properties.h"

/// The look of a pasted picture.
class FRAMENOTE_API AnnImageProperties : public IAnnotationProperties {
public:
  /// Which colour of the picture is see-through.
  enum TransparentColor : int { None = 0, White = 1, Black = 2 };

  AnnImageProperties();  ///< The defaults that the document format tells.
  /// Reads `json`; what it lacks is the default.
  explicit AnnImageProperties(wxJSONValue const &json);
  ///@{
  /// A copy shares nothing with its source.
  AnnImageProperties(AnnImageProperties const &other);
  AnnImageProperties &operator=(AnnImageProperties const &other);
  ///@}
  ~AnnImageProperties() override;

  wxFileName GetFileName() const { return m_fileName; }          ///< empty: no picture chosen
  bool GetKeepAspectRatio() const { return m_keepAspectRatio; }  ///< a resize keeps the proportions
  /// as chosen; need not be known
  TransparentColor GetTransparentColor() const { return m_transparentColor; }
  /// The colour that is made transparent; wxNullColour if there is none.
  wxColour GetTransparentWxColour() const;

  ///@{
  /// Sets the field and its member of the mirror.
  void SetFileName(wxFileName const &value);
  void SetKeepAspectRatio(bool value);
  void SetTransparentColor(TransparentColor value);
  ///@}

private:
  void initJSONVal() override;
  void initFromJSONVal() override;
  void setJSONValFileName();
  void setJSONValKeepAspectRatio();
  void setJSONValTransparentColor();

  static constexpr char const fileNameKey[] = "FileName";
  static constexpr char const keepAspectRatioKey[] = "KeepAspectRatio";
  static constexpr char const transparentColorKey[] = "TransparentColor";

  wxFileName m_fileName = wxFileName();
  bool m_keepAspectRatio = true;
  TransparentColor m_transparentColor = None;
};
