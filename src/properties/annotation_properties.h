// SPDX-License-Identifier: MIT
#pragma once

#include "framenote/export.h"
#include "talbase/json_value.h"

/// The look of an object or, in a mode, of the next object: typed fields and the JSON object that
/// mirrors them. Each setter writes both, so ToJSON is current at every moment.
///
/// Nothing is checked or clamped, neither in setters nor on load: whoever uses a value keeps it
/// within bounds. Used on the GUI thread only.
class FRAMENOTE_API IAnnotationProperties {
public:
  virtual ~IAnnotationProperties();
  wxJSONValue const &ToJSON() const { return m_jsonVal; }  ///< the mirror, current at every moment

protected:
  IAnnotationProperties();
  /// Takes `json` as the mirror; unknown members stay in it.
  explicit IAnnotationProperties(wxJSONValue const &json);
  ///@{
  /// A copy shares nothing with its source.
  IAnnotationProperties(IAnnotationProperties const &other);
  IAnnotationProperties &operator=(IAnnotationProperties const &other);
  ///@}

  wxJSONValue m_jsonVal;  ///< the mirror

private:
  /// Writes every key from the fields.
  virtual void initJSONVal() = 0;
  /// Reads the fields; a missing key leaves the default in force.
  virtual void initFromJSONVal() = 0;
};
