// SPDX-License-Identifier: MIT
#include "project/burn_report.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "media/media_error.h"
#include "project/fake_media.h"
#include "project/temporary_folder.h"
#include "talbase/json_text.h"

namespace framenote::test {
namespace {

// By sha256sum, of the bytes "abc" and of nothing.
constexpr char const *kSumOfAbc =
    "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
constexpr char const *kSumOfNothing =
    "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855";

constexpr char const *kDocument =
    R"({"Annotate":{"ExtensionColor":null,"Objects":[{"Id":7,"Properties":{"Effect":0,)"
    R"("Strength":20,"Shape":0},"Rectangle":{"StartFrame":2,"EndFrame":5,"Coordinates":[)"
    R"({"TopLeft":[10,20],"TopRight":[50,20],"BottomRight":[50,60],"BottomLeft":[10,60],)"
    R"("Range":[2,3]},{"TopLeft":[1900,20],"TopRight":[1940,20],"BottomRight":[1940,60],)"
    R"("BottomLeft":[1900,60],"Range":[4,5]}]}}]}})";

/// A picture of one pixel.
Picture Pixel(char const *bytes) {
  Picture picture(1, 1);
  std::memcpy(picture.Pixels(), bytes, picture.ByteCount());
  return picture;
}

class ABurnReport : public InTemporaryFolder {
protected:
  void SetUp() override {
    InTemporaryFolder::SetUp();
    WriteAll(In("film.mkv"), "abc");
    WriteAll(In("out.part"), "");
    m_settings.range = {3, 4};
    m_settings.output = In("out.mkv");
    m_settings.look.macros = {{"%a%", "b"}};
    m_document = JsonFromUtf8(kDocument);
    m_tool =
        std::make_shared<AnnotationTool>(AnnotationToolConfig(false, false, true, true, false, {}));
    m_tool->FromJSON(m_document, 10);
  }

  wxJSONValue Report() {
    FakeMedia const media({0, 40, 80, 120, 170, 200, 240, 280, 320, 360, 400}, {1, 1000},
                          In("film.mkv"));
    BurnReport report(media, m_document, m_settings);
    report.GoOnWhile([this] { return m_goesOn; });
    report.AddFrame(3, Pixel("abc"));
    report.AddFrame(4, Pixel("abd"));
    report.AddOutput(In("out.part"), In("out.mkv"));
    BurnResult result;
    result.damagedFrames = {4};
    result.problem = m_problem;
    result.objectsLeftOut = m_objectsLeftOut;
    return report.ToJSON(*m_tool, result);
  }

  BurnSettings m_settings;
  wxJSONValue m_document;
  std::shared_ptr<AnnotationTool> m_tool;
  std::string m_problem;
  int m_objectsLeftOut = 0;
  bool m_goesOn = true;
};

TEST_F(ABurnReport, SumsUpSourceOutputsAndFrames) {
  wxJSONValue const report = Report();
  EXPECT_EQ(report.ItemAt("source").ItemAt("path").AsString(), wxString(In("film.mkv")));
  EXPECT_EQ(report.ItemAt("source").ItemAt("size").AsInt(), 3);
  EXPECT_EQ(report.ItemAt("source").ItemAt("sha256").AsString(), kSumOfAbc);
  wxJSONValue const output = report.ItemAt("outputs").ItemAt(0);
  EXPECT_EQ(output.ItemAt("path").AsString(), wxString(In("out.mkv")));
  EXPECT_EQ(output.ItemAt("size").AsInt(), 0);
  EXPECT_EQ(output.ItemAt("sha256").AsString(), kSumOfNothing);
  // printf abd | sha256sum
  EXPECT_EQ(JsonToUtf8(report.ItemAt("frames")),
            std::string(R"([{"frame":3,"timeStamp":120,"sha256":")") + kSumOfAbc +
                R"("},{"frame":4,"timeStamp":170,"sha256":")"
                R"(a52d159f262b2c6ddb724a61840befc36eb30c88877a4030b65cbe86298449c9"}])");
  EXPECT_EQ(JsonToUtf8(report.ItemAt("damagedFrames")), "[4]");
}

TEST_F(ABurnReport, IsTheSameEachTimeAndHoldsNoOtherMembers) {
  std::string const text = JsonToUtf8(Report());
  EXPECT_EQ(JsonToUtf8(Report()), text);
  std::vector<std::string> names;
  for (wxString const &name : Report().GetMemberNames()) names.push_back(name.utf8_string());
  EXPECT_EQ(names,
            (Strings{"format", "formatVersion", "libraryVersion", "source", "document", "settings",
                     "outputs", "frames", "damagedFrames", "hideRegions", "warnings"}));
}

TEST_F(ABurnReport, TellsTheSettingsThatMadeThePixels) {
  EXPECT_EQ(JsonToUtf8(Report().ItemAt("settings")),
            R"({"frames":[3,4],"painter":"gc","extend":false,"macros":{"%a%":"b"},)"
            R"("codec":"ffv1","audio":false,"metadata":false})");
  m_settings.codec = VideoCodec::H264;
  m_settings.quality = 20;
  m_settings.look.withDeviceContext = true;
  EXPECT_EQ(JsonToUtf8(Report().ItemAt("settings")),
            R"({"frames":[3,4],"painter":"dc","extend":false,"macros":{"%a%":"b"},)"
            R"("codec":"h264","quality":20,"audio":false,"metadata":false})");
  m_settings.output = In("out-%d.png");
  EXPECT_EQ(JsonToUtf8(Report().ItemAt("settings")),
            R"({"frames":[3,4],"painter":"dc","extend":false,"macros":{"%a%":"b"}})");
}

TEST_F(ABurnReport, TellsWhatRegionsCoverAndWhereTheyMayNot) {
  wxJSONValue const report = Report();
  EXPECT_EQ(JsonToUtf8(report.ItemAt("hideRegions")), R"([{"object":0,"frames":[[3,4]]}])");
  // From 3 to 4 it jumps by 1,890 pixels, and is then partly outside the 1,920 columns.
  EXPECT_EQ(report.ItemAt("warnings").Size(), 2);
}

TEST_F(ABurnReport, TellsTheDocumentsFileWhereThereIsOne) {
  EXPECT_FALSE(Report().ItemAt("document").HasMember("path"));
  std::string const sum =
      Report().ItemAt("document").ItemAt("valueSha256").AsString().utf8_string();
  EXPECT_EQ(sum.size(), 64u);
  m_settings.documentFile = In("doc.json");
  WriteAll(In("doc.json"), "abc");
  wxJSONValue const document = Report().ItemAt("document");
  EXPECT_EQ(document.ItemAt("sha256").AsString(), kSumOfAbc);
  EXPECT_EQ(document.ItemAt("valueSha256").AsString(), wxString(sum));
}

TEST_F(ABurnReport, TellsWhatIsMissing) {
  m_problem = "some of its sound is missing";
  m_objectsLeftOut = 3;
  EXPECT_EQ(Report().ItemAt("objectsLeftOut").AsInt(), 3);
  EXPECT_EQ(Report().ItemAt("problem").AsString(), "some of its sound is missing");
}

TEST_F(ABurnReport, StopsWhileSumsAreMade) {
  m_goesOn = false;
  try {
    Report();
    ADD_FAILURE() << "it went on";
  } catch (MediaError const &error) {
    EXPECT_EQ(error.Problem(), MediaProblem::Cancelled);
  }
}

}  // namespace
}  // namespace framenote::test
