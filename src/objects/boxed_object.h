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

  void OnSelection(bool isNew) override;
  void SetCopiedObject() const override;
  void Paste() const override;
  void OnObjectModified() override;
  wxJSONValue const &ToJSON() const override;

  static constexpr char const *rectangleKey = "Rectangle";

protected:
  /// A new object with the look of the mode's record.
  BoxedObject(std::shared_ptr<AnnShapeToolMode> const &shapeMode, std::shared_ptr<Mode> const &mode,
              wxRect const &rect, std::int64_t frame);
  /// A restored object; without "Properties" it takes the look of the mode's record.
  BoxedObject(std::shared_ptr<AnnShapeToolMode> const &shapeMode, std::shared_ptr<Mode> const &mode,
              wxJSONValue const &json);
  BoxedObject(BoxedObject const &other);
  ~BoxedObject() override;

  /// Gives the rectangle the look that it is hit and outlined by.
  void setRectangleLook(AnnShapeProperties::Shape shape, wxColour const &border,
                        wxColour const &fill, int thickness);
  /// Completes the mirror of a new object.
  void initMirrorOfNewObject();
  void setJSONValLook();
  void setJSONValRectangle();

  std::shared_ptr<Mode> m_kindMode;
  Properties m_look;
  wxJSONValue
      m_outerJsonVal;  ///< the whole object; the base's value, the rectangle, lies inside it
};

}  // namespace framenote
