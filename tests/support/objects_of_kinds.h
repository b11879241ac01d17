// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <ostream>

#include <wx/filename.h>

#include "modes/ann_image_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_text.h"
#include "support/tool_driver.h"

namespace framenote::test {

/// A kind of object with its name, for tables of tests.
struct Kind {
  Types type;
  char const *name;
};

inline std::ostream &operator<<(std::ostream &stream, Kind const &kind) {
  return stream << kind.name;
}

inline constexpr std::array<Kind, 7> kKinds = {{{Types::Shape, "Shape"},
                                                {Types::Arrow, "Arrow"},
                                                {Types::Pencil, "Pencil"},
                                                {Types::Text, "Text"},
                                                {Types::Image, "Image"},
                                                {Types::Hide, "Hide"},
                                                {Types::Magnify, "Magnify"}}};

/// A picture file of 30 by 20 pixels that the image mode pastes, as long as it lives.
class PictureToPaste {
public:
  explicit PictureToPaste(AnnImageToolMode &mode)
      : m_name(wxFileName::CreateTempFileName("framenote")), m_path(m_name + ".png") {
    wxImage(30, 20).SaveFile(m_path, wxBITMAP_TYPE_PNG);
    mode.m_properties->SetKeepAspectRatio(false);
    mode.m_properties->SetFileName(wxFileName(m_path));
    mode.SetPicture(m_path);
  }
  PictureToPaste(PictureToPaste const &) = delete;
  PictureToPaste &operator=(PictureToPaste const &) = delete;
  ~PictureToPaste() {
    wxRemoveFile(m_path);
    wxRemoveFile(m_name);
  }

private:
  wxString m_name;
  wxString m_path;
};

/// Drags out an object of a kind from one corner to the other, so that the point half way is on it.
/// A shape is filled, a text says "abc", and a picture has 30 by 20 pixels. It stays selected.
inline IAnnotationObject &DrawOfKind(ToolDriver &driver, Types type, wxPoint const &from,
                                     wxPoint const &to) {
  ToolModes const &modes = driver.Tool().GetToolModes();
  modes.shape->m_properties->SetFillColor(*wxRED);
  PictureToPaste const picture(*modes.image);
  driver.UseTool(type);
  if (type == Types::Pencil) {
    wxPoint const quarter((to.x - from.x) / 4, (to.y - from.y) / 4);
    driver.DrawStroke({from, from + quarter, from + quarter * 2, to - quarter, to});
  } else {
    driver.Drag(from, to);
  }
  IAnnotationObject &object = *driver.Object();
  if (auto *const text = dynamic_cast<AnnText *>(&object)) {
    driver.UseTool(Types::Idle);  // an editor that a window has is closed
    text->SetTextAndParse(wxString("abc"), {});
  }
  return object;
}

}  // namespace framenote::test
