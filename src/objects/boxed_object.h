// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "framenote/export.h"
#include "objects/ann_shape.h"

namespace framenote {

/// What the kinds that show something in a rectangle have in common: the mode they came from, the
/// record of their look beside the rectangle's own, and a mirror in which the rectangle's lies.
///
/// `Kind` is the concrete class, `Mode` its tool mode and `Properties` its look. The bodies are in
/// boxed_object_impl.h, which only the sources of the concrete kinds include.
template <class Kind, class Mode, class Properties>
class FRAMENOTE_API BoxedObject : public AnnShape {
public:
  /// Whether a rectangle can be made from what `json` holds.
  static bool IsJSONValid(wxJSONValue const &json);

  void OnSelection(bool isNew) override;       ///< gives the kind's look, too
  void SetCopiedObject() const override;       ///< of the whole kind
  void Paste() const override;                 ///< of the whole kind
  void OnObjectModified() override;            ///< brings "Rectangle" up to date
  wxJSONValue const &ToJSON() const override;  ///< the mirror in which the rectangle's lies

  /// the mirror's member for the rectangle
  static constexpr char const *rectangleKey = "Rectangle";

protected:
  /// A new object with the look of the mode's record.
  BoxedObject(std::shared_ptr<AnnShapeToolMode> const &shapeMode, std::shared_ptr<Mode> const &mode,
              wxRect const &rect, std::int64_t frame);
  /// A restored object; without "Properties" it takes the look of the mode's record.
  BoxedObject(std::shared_ptr<AnnShapeToolMode> const &shapeMode, std::shared_ptr<Mode> const &mode,
              wxJSONValue const &json);
  /// A copy shares nothing with `other` but its modes.
  BoxedObject(BoxedObject const &other);
  ~BoxedObject() override;

  /// Gives the rectangle the look that it is hit and outlined by.
  void setRectangleLook(AnnShapeProperties::Shape shape, wxColour const &border,
                        wxColour const &fill, int thickness);
  /// Completes the mirror of a new object.
  void initMirrorOfNewObject();
  void setJSONValLook();       ///< brings "Properties" of the mirror up to date
  void setJSONValRectangle();  ///< brings "Rectangle" of the mirror up to date

  std::shared_ptr<Mode> m_kindMode;  ///< never null
  Properties m_look;                 ///< the kind's own; the rectangle has one beside it
  wxJSONValue
      m_outerJsonVal;  ///< the whole object; the base's value, the rectangle, lies inside it
};

}  // namespace framenote
