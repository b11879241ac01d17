// SPDX-License-Identifier: MIT
#pragma once

#include <wx/colour.h>
#include <wx/filename.h>

#include "properties/annotation_properties.h"

/// The look of a pasted picture.
class FRAMENOTE_API AnnImageProperties : public IAnnotationProperties {
public:
  enum TransparentColor : int { None = 0, White = 1, Black = 2 };

  AnnImageProperties();
  explicit AnnImageProperties(wxJSONValue const &json);
  AnnImageProperties(AnnImageProperties const &other);
  AnnImageProperties &operator=(AnnImageProperties const &other);
  ~AnnImageProperties() override;

  wxFileName GetFileName() const { return m_fileName; }
  bool GetKeepAspectRatio() const { return m_keepAspectRatio; }
  TransparentColor GetTransparentColor() const { return m_transparentColor; }
  /// The colour that is made transparent; wxNullColour if there is none.
  wxColour GetTransparentWxColour() const;

  void SetFileName(wxFileName const &value);
  void SetKeepAspectRatio(bool value);
  void SetTransparentColor(TransparentColor value);

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
