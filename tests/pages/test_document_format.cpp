// SPDX-License-Identifier: MIT
// docs/document-format.md, its examples and its schemas, against each other, against a validator
// that others wrote, and against the library.
#include <cstdlib>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <wx/image.h>

#include <gtest/gtest.h>

#include "modes/ann_magnify_tool_mode.h"
#include "modes/ann_text_tool_mode.h"
#include "objects/ann_shape.h"
#include "project/project_file.h"
#include "project/temporary_folder.h"
#include "support/code_blocks.h"
#include "support/objects_of_kinds.h"
#include "support/test_pictures.h"
#include "support/tool_driver.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

constexpr char const *kValid = "valid";

/// The blocks of JSON in the page, in order.
Strings ExamplesOfThePage() {
  return CodeBlocks(FRAMENOTE_DOCUMENTATION "/document-format.md", "json");
}

/// A document with the object, if `value` is an object of a document.
wxJSONValue DocumentWith(wxJSONValue const &value) {
  if (value.HasMember("Annotate")) return value;
  wxJSONValue objects(wxJSONTYPE_ARRAY);
  objects.Append(value);
  wxJSONValue annotate(wxJSONTYPE_OBJECT);
  annotate.Set("Objects", objects);
  wxJSONValue document(wxJSONTYPE_OBJECT);
  document.Set("Annotate", annotate);
  return document;
}

/// The value with one member of an object in it, found by the path, set or removed.
wxJSONValue With(wxJSONValue value, std::string const &path, wxJSONValue const &member) {
  auto const slash = path.find('/');
  std::string const step = path.substr(0, slash);
  bool const isIndex = value.IsArray();
  if (slash != std::string::npos) {
    int const index = isIndex ? std::stoi(step) : 0;
    wxJSONValue const inner = isIndex ? value.ItemAt(index) : value.ItemAt(step.c_str());
    wxJSONValue const changed = With(inner, path.substr(slash + 1), member);
    if (isIndex) {
      value.Item(index) = changed;
    } else {
      value.Set(step, changed);
    }
  } else if (member.IsValid()) {
    value.Set(step, member);
  } else {
    value.Remove(wxString(step));
  }
  return value;
}

class DocumentFormat : public InTemporaryFolder {
protected:
  /// What the validator says of each of the texts.
  Strings VerdictsOn(Strings const &texts, std::string const &schema = "document") {
    std::string command = "python3 '" FRAMENOTE_VALIDATOR "' '" FRAMENOTE_DOCUMENTATION
                          "/framenote-" +
                          schema + ".schema.json'";
    for (std::size_t i = 0; i < texts.size(); ++i) {
      std::string const path = In(std::to_string(i) + ".json");
      WriteAll(path, texts[i]);
      command += " '" + path + "'";
    }
    std::string const output = In("verdicts");
    EXPECT_EQ(std::system((command + " > '" + output + "'").c_str()), 0) << command;
    std::istringstream lines(ReadAll(output));
    Strings verdicts;
    for (std::string line; std::getline(lines, line);) verdicts.push_back(line);
    EXPECT_EQ(verdicts.size(), texts.size());
    verdicts.resize(texts.size());
    return verdicts;
  }

  std::string VerdictOn(wxJSONValue const &document, std::string const &schema = "document") {
    return VerdictsOn({JsonToUtf8(document)}, schema).front();
  }
};

std::string TextOf(AnnotationTool const &tool) {
  wxJSONValue document(wxJSONTYPE_OBJECT);
  document.Set("Annotate", tool.GetJSON());
  return JsonToUtf8(document);
}

/// Has the object edited in a frame in the middle and in the last one, turned if it can be.
void MoveThroughFrames(ToolDriver &driver) {
  driver.Tool().SetSelectedsAnnotationEnd(9);
  driver.GoToFrame(4);
  driver.Tool().MoveSelected({3, 5});
  driver.GoToFrame(9);
  if (auto *const shape = dynamic_cast<AnnShape *>(driver.Selected())) {
    shape->RememberCurrentPosition();
    shape->Rotate({130, 37});
  }
  driver.Tool().MoveSelected({-60, 5});
}

TEST_F(DocumentFormat, DocumentsThatTheLibraryWritesAreValid) {
  Strings texts;
  for (Kind const &kind : kKinds) {
    for (bool const isMoved : {false, true}) {
      ToolDriver driver(isMoved ? 10 : 1);
      driver.Tool().SetImage(NoisePicture(200, 150), true);
      DrawOfKind(driver, kind.type, {20, 30}, {80, 70});
      if (isMoved) MoveThroughFrames(driver);
      driver.Tool().Deactivate();
      driver.Tool().OnJsonChanged();
      ASSERT_EQ(driver.Tool().GetJSON().ItemAt("Objects").Size(), 1) << kind.name;
      texts.push_back(TextOf(driver.Tool()));
    }
  }
  Strings const verdicts = VerdictsOn(texts);
  for (std::size_t i = 0; i < texts.size(); ++i) EXPECT_EQ(verdicts[i], kValid) << texts[i];
}

TEST_F(DocumentFormat, ALensWithItsCentreElsewhereIsValid) {
  ToolDriver driver(3);
  driver.Tool().SetImage(NoisePicture(200, 150), true);
  DrawOfKind(driver, Types::Magnify, {20, 30}, {80, 70});
  driver.Move(50, 50);
  driver.Press(50, 50);
  driver.Move(120, 90);
  driver.Release(120, 90);
  driver.Tool().OnJsonChanged();
  wxJSONValue const centres =
      driver.Tool().GetJSON().ItemAt("Objects").ItemAt(0).ItemAt("CoordinatesCenterPoint");
  EXPECT_EQ(JsonToUtf8(centres), R"([{"CenterPoint":[120.0,90.0],"Range":[0,0]}])");
  EXPECT_EQ(VerdictsOn({TextOf(driver.Tool())}).front(), kValid);
}

TEST_F(DocumentFormat, ExamplesOfThePageAreValid) {
  std::map<std::string, Strings> texts;
  for (std::string const &text : ExamplesOfThePage()) {
    wxJSONValue const document = DocumentWith(JsonFromUtf8(text));
    texts[document.HasMember("format") ? "project" : "document"].push_back(JsonToUtf8(document));
  }
  EXPECT_EQ(texts.size(), 2U);
  for (auto const &[schema, documents] : texts) {
    Strings const verdicts = VerdictsOn(documents, schema);
    for (std::size_t i = 0; i < documents.size(); ++i)
      EXPECT_EQ(verdicts[i], kValid) << documents[i];
  }
}

TEST_F(DocumentFormat, ExamplesOfThePageComeBackAsTheyAre) {
  std::string const logo = In("logo.png");
  ASSERT_TRUE(wxImage(30, 20).SaveFile(logo, wxBITMAP_TYPE_PNG));
  std::set<int> kinds;
  for (std::string text : ExamplesOfThePage()) {
    SCOPED_TRACE(text);
    std::string const path = "/home/me/logo.png";
    auto const place = text.find(path);
    if (place != std::string::npos) text.replace(place, path.size(), logo);
    wxJSONValue const document = DocumentWith(JsonFromUtf8(text));
    ToolDriver driver(10);
    driver.Tool().FromJSON(document, 10);
    wxJSONValue const objects = document.ItemAt("Annotate").ItemAt("Objects");
    wxJSONValue const restored = driver.Tool().GetJSON().ItemAt("Objects");
    EXPECT_EQ(JsonToUtf8(restored), JsonToUtf8(objects));
    for (int i = 0; i < objects.Size(); ++i) kinds.insert(objects.ItemAt(i).ItemAt("Id").AsInt());
  }
  EXPECT_EQ(kinds.size(), kKinds.size()) << "a kind has no example";
  Project const project = ProjectOfJson(JsonFromUtf8(ExamplesOfThePage().back()), "example");
  EXPECT_EQ(project.media.facts.frameCount, 1500);
  EXPECT_EQ(project.media.relativePath, "../video/camera2.mkv");
}

TEST_F(DocumentFormat, SeedsOfTheFuzzersThatLoadAreValid) {
  fs::path const corpus = FRAMENOTE_SEEDS;
  ASSERT_TRUE(fs::is_directory(corpus)) << corpus;
  Strings texts;
  Strings names;
  for (auto const &name : NamesIn(corpus)) {
    std::string const text = ReadAll(corpus / name);
    wxJSONValue const document = JsonFromUtf8(text);
    wxJSONValue const objects = document.ItemAt("Annotate").ItemAt("Objects");
    ToolDriver driver(10);
    driver.Tool().FromJSON(document, 10);
    wxJSONValue const restored = driver.Tool().GetJSON().ItemAt("Objects");
    if (!objects.IsArray() || !restored.IsSameAs(objects)) continue;
    texts.push_back(text);
    names.push_back(name);
  }
  // Those of pictures name files that are not here.
  EXPECT_GE(texts.size(), kKinds.size());
  Strings const verdicts = VerdictsOn(texts);
  for (std::size_t i = 0; i < texts.size(); ++i) EXPECT_EQ(verdicts[i], kValid) << names[i];
}

TEST_F(DocumentFormat, WhatIsNoDocumentIsRefused) {
  std::map<int, wxJSONValue> objects;
  for (std::string const &text : ExamplesOfThePage()) {
    wxJSONValue const value = JsonFromUtf8(text);
    if (value.HasMember("Id")) objects[value.ItemAt("Id").AsInt()] = value;
  }
  ASSERT_EQ(objects.size(), kKinds.size());
  wxJSONValue const missing(wxJSONTYPE_INVALID);
  struct {
    int kind;
    char const *path;
    wxJSONValue member;
  } const faults[] = {
      {2, "Id", missing},
      {2, "Id", wxJSONValue(1)},
      {2, "Id", wxJSONValue(9)},
      {2, "Id", wxJSONValue("2")},
      {2, "StartFrame", wxJSONValue(-1)},
      {2, "EndFrame", wxJSONValue(0.5)},
      {2, "Coordinates", missing},
      {2, "Coordinates", JsonFromUtf8("{}")},
      {2, "Coordinates/0/TopLeft", missing},
      {2, "Coordinates/0/TopLeft", JsonFromUtf8("[1,2,3]")},
      {2, "Coordinates/0/TopLeft", JsonFromUtf8(R"(["1","2"])")},
      {2, "Coordinates/0/Range", missing},
      {2, "Coordinates/0/Range", JsonFromUtf8("[0]")},
      {2, "Coordinates/0/Range", JsonFromUtf8("[-1,0]")},
      {2, "Coordinates/0/Range", JsonFromUtf8("[0,0.5]")},
      {2, "Properties", JsonFromUtf8("[]")},
      {2, "Properties/Shape", wxJSONValue(2)},
      {2, "Properties/BorderColor", wxJSONValue("red")},
      {2, "Properties/BorderColor", wxJSONValue("#FF000080")},
      {2, "Properties/FillColorTransparent", wxJSONValue(1)},
      {2, "Properties/Thickness", wxJSONValue("5")},
      {3, "Coordinates/0/Head", JsonFromUtf8("[0.5,1]")},
      {3, "Coordinates/0/Tail", missing},
      {3, "Properties/Color", wxJSONValue("#FF00")},
      {3, "Properties/Head", wxJSONValue(-1)},
      {4, "PathDiffs", missing},
      {4, "PathDiffs", JsonFromUtf8("[]")},
      {4, "Coordinates/0/StartPoint", missing},
      {5, "Rectangle", missing},
      {5, "Rectangle/Coordinates", missing},
      {5, "TextLines", missing},
      {5, "TextLines", JsonFromUtf8(R"(["one line"])")},
      {5, "TextLines", wxJSONValue("one line")},
      {5, "Properties/Font", wxJSONValue("Sans 10")},
      {5, "Properties/VerticalAlignment", wxJSONValue(3)},
      {6, "Rectangle/Coordinates/0/Mirrored", wxJSONValue(1)},
      {6, "Properties/FileName", wxJSONValue(7)},
      {7, "Properties/Effect", wxJSONValue(2)},
      {7, "Properties/Strength", wxJSONValue(true)},
      {7, "Rectangle/Properties/FillColorTransparent", wxJSONValue(true)},
      {8, "CoordinatesCenterPoint", missing},
      {8, "CoordinatesCenterPoint/0/CenterPoint", missing},
      {8, "Properties/Zoom", wxJSONValue("2")},
      {8, "Properties/BorderType", wxJSONValue(5)},
  };
  Strings texts;
  for (auto const &fault : faults) {
    texts.push_back(JsonToUtf8(DocumentWith(With(objects[fault.kind], fault.path, fault.member))));
  }
  Strings const wholes = {"[]",
                          "{}",
                          R"({"Annotate":[]})",
                          R"({"Annotate":{"Objects":{}}})",
                          R"({"Annotate":{"ExtensionColor":"white"}})",
                          R"({"Annotate":{"Extended":"yes"}})"};
  texts.insert(texts.end(), wholes.begin(), wholes.end());
  Strings const verdicts = VerdictsOn(texts);
  for (std::size_t i = 0; i < texts.size(); ++i) EXPECT_NE(verdicts[i], kValid) << texts[i];
}

TEST_F(DocumentFormat, ProjectsThatTheProgramsWriteAreValid) {
  ToolDriver driver;
  DrawOfKind(driver, Types::Arrow, {20, 30}, {80, 70});
  Project project;
  project.document = DocumentOf(driver.Tool().GetJSON());
  project.media.path = In("film.mkv");
  project.media.facts = {1234, std::string(64, 'a'), 25};
  WriteProject(In("whole.framenote"), project);
  Project bare;
  bare.media.path = In("caf\xE9.png");  // no UTF-8
  WriteProject(In("bare.framenote"), bare);
  Strings const texts = {ReadAll(In("whole.framenote")), ReadAll(In("bare.framenote"))};
  EXPECT_EQ(VerdictsOn(texts, "project"), Strings({kValid, kValid}));
  EXPECT_EQ(VerdictsOn(texts, "document"), Strings({kValid, kValid}));
}

TEST_F(DocumentFormat, WhatIsNoProjectIsRefused) {
  wxJSONValue const project = JsonFromUtf8(ExamplesOfThePage().back());
  ASSERT_EQ(VerdictOn(project, "project"), kValid);
  wxJSONValue const missing(wxJSONTYPE_INVALID);
  std::vector<wxJSONValue> const faulty = {
      With(project, "format", wxJSONValue("project")),
      With(project, "format", missing),
      With(project, "formatVersion", wxJSONValue(2)),
      With(project, "Annotate", missing),
      With(project, "Annotate/Objects", wxJSONValue("none")),
      With(project, "media/size", wxJSONValue(-1)),
      With(project, "media/sha256", wxJSONValue("ABC")),
      With(project, "media/path", JsonFromUtf8("[256]")),
  };
  Strings texts;
  for (wxJSONValue const &value : faulty) texts.push_back(JsonToUtf8(value));
  Strings const verdicts = VerdictsOn(texts, "project");
  for (std::size_t i = 0; i < texts.size(); ++i) EXPECT_NE(verdicts[i], kValid) << texts[i];
}

}  // namespace

}  // namespace framenote::test
