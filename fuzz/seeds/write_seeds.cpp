// SPDX-License-Identifier: MIT
// Writes the seeds of the fuzzers, as the library itself stores what is drawn on three frames.
//
//   framenote_fuzz_seeds DOCUMENTS PROJECTS    the two folders

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include <wx/image.h>

#include "modes/ann_arrow_tool_mode.h"
#include "modes/ann_hide_tool_mode.h"
#include "modes/ann_image_tool_mode.h"
#include "modes/ann_magnify_tool_mode.h"
#include "modes/ann_pencil_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "modes/ann_text_tool_mode.h"
#include "objects/ann_text.h"
#include "project/project_file.h"
#include "support/document_grammar.h"
#include "support/session.h"
#include "support/tool_driver.h"
#include "talbase/json_text.h"

namespace {

namespace fs = std::filesystem;
using framenote::test::ToolDriver;

constexpr std::int64_t kFrameCount = 4;
constexpr int kThickness = 3;
wxColour const kHalfRed(255, 0, 0, 128);

struct Kind {
  Types type;
  char const *name;
  void (*setLook)(ToolModes const &modes);  ///< other than what a new tool has
};

void SetShapeLook(ToolModes const &modes) {
  AnnShapeProperties &look = *modes.shape->m_properties;
  look.SetShape(AnnShapeProperties::Ellipse);
  look.SetBorderColor(*wxBLUE);
  look.SetFillColor(kHalfRed);
  look.SetThickness(kThickness);
}

void SetArrowLook(ToolModes const &modes) {
  AnnArrowProperties &look = *modes.arrow->m_properties;
  look.SetHead(AnnArrowProperties::Line);
  look.SetColor(kHalfRed);
  look.SetThickness(kThickness);
}

void SetPencilLook(ToolModes const &modes) {
  modes.pencil->m_properties->SetColor(kHalfRed);
  modes.pencil->m_properties->SetThickness(kThickness);
}

void SetTextLook(ToolModes const &modes) {
  AnnTextProperties &look = *modes.text->m_properties;
  look.SetFont(wxFont(wxFontInfo(9.5).FaceName("DejaVu Sans").Italic().Bold().Underlined()));
  look.SetFontColor(*wxBLUE);
  look.SetBackgroundColor(*wxWHITE);
  look.SetHorizontalAlignment(AnnTextProperties::Right);
  look.SetVerticalAlignment(AnnTextProperties::Bottom);
}

void SetImageLook(ToolModes const &modes) {
  modes.image->m_properties->SetKeepAspectRatio(false);
  modes.image->m_properties->SetTransparentColor(AnnImageProperties::Black);
}

void SetHideLook(ToolModes const &modes) {
  AnnHideProperties &look = *modes.hide->m_properties;
  look.SetEffect(AnnHideProperties::Pixelation);
  look.SetStrength(8);
  look.SetShape(AnnShapeProperties::Ellipse);
  look.SetBorderColor(*wxBLUE);
  look.SetThickness(kThickness);
}

void SetMagnifyLook(ToolModes const &modes) {
  AnnMagnifyProperties &look = *modes.magnify->m_properties;
  look.SetZoom(3.5);
  look.SetFixedSourceSize(true);
  look.SetZoomMethod(wxIMAGE_QUALITY_BICUBIC);
  look.SetShape(AnnShapeProperties::Ellipse);
  look.SetBorderColor(*wxBLUE);
  look.SetBorderType(AnnMagnifyProperties::PointToZoomedArea2Lines);
  look.SetThickness(kThickness);
}

constexpr Kind kKinds[] = {
    {Types::Shape, "shape", SetShapeLook},       {Types::Arrow, "arrow", SetArrowLook},
    {Types::Pencil, "pencil", SetPencilLook},    {Types::Text, "text", SetTextLook},
    {Types::Image, "image", SetImageLook},       {Types::Hide, "hide", SetHideLook},
    {Types::Magnify, "magnify", SetMagnifyLook},
};

void TakePicture(ToolDriver &driver) {
  wxImage picture(64, 48);
  driver.Tool().SetImage(picture, false);
  AnnImageToolMode &mode = *driver.Tool().GetToolModes().image;
  wxString const path = wxString::FromUTF8(FRAMENOTE_FUZZ_PICTURES) + "/picture.png";
  mode.m_properties->SetFileName(wxFileName(path));
  mode.SetPicture(path);
}

/// Draws an object that is there from the first frame to the third, and has two forms.
void Draw(ToolDriver &driver, Types type) {
  driver.GoToFrame(0);
  if (type == Types::Pencil) {
    driver.DrawStroke({{8, 8}, {14, 10}, {20, 12}, {26, 20}, {30, 30}, {40, 25}, {50, 20}});
  } else {
    driver.UseTool(type);
    driver.Drag({8, 8}, {48, 32});
  }
  if (auto *const text = dynamic_cast<AnnText *>(driver.Selected())) {
    text->SetTextAndParse(wxString("first line\n%TIME%"), {});
  }
  driver.Tool().SetSelectedsAnnotationEnd(2);
  driver.GoToFrame(1);
  driver.Tool().MoveSelected({4, 3});
  driver.GoToFrame(0);
  driver.Tool().SetActiveTool(Types::Idle);
}

std::string Written(wxJSONValue const &json) {
  std::string text = JsonToUtf8(json);
  std::string const folder = FRAMENOTE_FUZZ_PICTURES;
  for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder)) {
    text.replace(at, folder.size(), framenote::fuzz::kPictureFolder);
  }
  return text;
}

void Write(fs::path const &path, std::string const &text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) framenote::fuzz::Fail("cannot write " + path.string());
}

/// The project, and the recovery file of a session that had it open.
void WriteProjects(fs::path const &folder, std::string const &name, wxJSONValue const &document) {
  Project project;
  project.document = document;
  project.media.path = "/evidence/film.avi";
  project.media.facts = {123456, std::string(64, 'a'), kFrameCount};
  std::string const text = Written(JsonOfProject(project, "/evidence/case/film.framenote"));
  Write(folder / (name + kProjectExtension), text + "\n");
  Write(folder / (name + ".recovery"),
        R"({"format":"framenote recovery","time":1700000000,"projectPath":"/evidence/case/film)"
        R"(.framenote","mediaPath":"/evidence/film.avi"})" +
            std::string("\n") + text + "\n");
}

/// The object as the document holds it.
wxJSONValue DrawnObject(Kind const &kind, bool hasOwnLook) {
  ToolDriver driver(kFrameCount);
  TakePicture(driver);
  if (hasOwnLook) kind.setLook(driver.Tool().GetToolModes());
  Draw(driver, kind.type);
  if (driver.ObjectCount() != 1) framenote::fuzz::Fail(std::string("not drawn: ") + kind.name);
  return driver.Object()->ToJSON();
}

wxJSONValue DocumentWith(wxJSONValue const &objects) {
  wxJSONValue annotations(wxJSONTYPE_OBJECT);
  annotations.Set("ExtensionColor", wxJSONValue("#00FF00FF"));
  annotations.Set("Objects", objects);
  return DocumentOf(annotations);
}

void WriteDocument(fs::path const &path, wxJSONValue const &object) {
  wxJSONValue objects(wxJSONTYPE_ARRAY);
  objects.Append(object);
  Write(path, Written(DocumentWith(objects)));
}

}  // namespace

int main(int argc, char **argv) {
  if (argc != 3) {
    std::fputs("usage: framenote_fuzz_seeds DOCUMENTS PROJECTS\n", stderr);
    return 2;
  }
  framenote::fuzz::StartWithoutDisplay();
  fs::path const documents = argv[1];
  fs::path const projects = argv[2];
  wxJSONValue objects(wxJSONTYPE_ARRAY);
  for (Kind const &kind : kKinds) {
    std::string const name = kind.name;
    wxJSONValue const object = DrawnObject(kind, true);
    WriteDocument(documents / (name + ".json"), DrawnObject(kind, false));
    WriteDocument(documents / (name + "-look.json"), object);
    if (objects.Size() < 2) objects.Append(object);
  }
  Write(documents / "empty.json", Written(DocumentWith(wxJSONValue(wxJSONTYPE_ARRAY))));
  Write(documents / "two.json", Written(DocumentWith(objects)));
  WriteProjects(projects, "two", DocumentWith(objects));
  WriteProjects(projects, "empty", DocumentOf(wxJSONValue()));
  return 0;
}
