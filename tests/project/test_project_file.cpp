// SPDX-License-Identifier: MIT
#include "project/project_file.h"

#include <filesystem>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "framenote/annotation_tool.h"
#include "project/path_text.h"
#include "project/temporary_folder.h"
#include "talbase/json_text.h"

namespace framenote::test {
namespace {

constexpr char const *kDocument =
    R"({"Annotate":{"ExtensionColor":null,"Objects":[{"Id":2,"StartFrame":3,"EndFrame":5,)"
    R"("Coordinates":[{"TopLeft":[10,20],"TopRight":[50,20],"BottomRight":[50,60],)"
    R"("BottomLeft":[10,60],"Range":[3,5]}]}]}})";
constexpr char const *kSum = "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855";

std::string TextOf(wxJSONValue const &value) {
  return JsonToUtf8(value);
}

class AProject : public InTemporaryFolder {
protected:
  Project Usual() const {
    Project project;
    project.document = JsonFromUtf8(kDocument);
    project.media.path = In("media/film.mp4");
    project.media.facts = {5000000000, kSum, 250};
    return project;
  }

  /// What reading the bytes as a project says.
  std::string ErrorOf(std::string const &bytes) {
    WriteAll(In("bad"), bytes);
    try {
      ReadProject(In("bad"));
    } catch (ProjectError const &error) {
      return error.what();
    }
    return "no error";
  }

  std::string DocumentErrorOf(std::string const &path) {
    try {
      ReadDocument(path);
    } catch (ProjectError const &error) {
      return error.what();
    }
    return "no error";
  }
};

TEST_F(AProject, IsReadAsItWasWritten) {
  WriteProject(In("case.framenote"), Usual());
  Project const project = ReadProject(In("case.framenote"));
  EXPECT_EQ(TextOf(project.document), kDocument);
  EXPECT_EQ(project.media.path, In("media/film.mp4"));
  EXPECT_EQ(project.media.relativePath, "media/film.mp4");
  EXPECT_EQ(project.media.facts.size, 5000000000);
  EXPECT_EQ(project.media.facts.sha256, kSum);
  EXPECT_EQ(project.media.facts.frameCount, 250);
  EXPECT_FALSE(project.version.empty());
  EXPECT_EQ(Names(), (Strings{"case.framenote"}));
}

TEST_F(AProject, IsAnObjectOfTheseMembers) {
  WriteProject(In("case.framenote"), Usual());
  wxJSONValue const json = JsonFromUtf8(ReadAll(In("case.framenote")));
  EXPECT_EQ(json.ItemAt("format").AsString(), "framenote project");
  EXPECT_EQ(TextOf(json.ItemAt("formatVersion")), "1");
  EXPECT_TRUE(json.ItemAt("libraryVersion").IsString());
  wxJSONValue const media = json.ItemAt("media");
  EXPECT_EQ(media.ItemAt("path").AsString(), "media/film.mp4");
  EXPECT_EQ(media.ItemAt("absolutePath").AsString(), In("media/film.mp4"));
  EXPECT_EQ(TextOf(media.ItemAt("size")), "5000000000");
  EXPECT_EQ(media.ItemAt("sha256").AsString(), kSum);
  EXPECT_EQ(TextOf(media.ItemAt("frameCount")), "250");
  EXPECT_EQ("{\"Annotate\":" + TextOf(json.ItemAt("Annotate")) + "}", kDocument);
}

TEST_F(AProject, IsADocumentForTheLibraryAsAWhole) {
  WriteProject(In("case.framenote"), Usual());
  AnnotationToolConfig const config(false, false, true, true, false, {});
  auto const tool = std::make_shared<AnnotationTool>(config);
  tool->FromJSON(JsonFromUtf8(ReadAll(In("case.framenote"))), 10);
  EXPECT_EQ(tool->AnnotationObjects().size(), 1u);
  EXPECT_TRUE(tool->HasAnnotation(4));
}

TEST_F(AProject, OfAToolThatHasNotBeenUsedHoldsNoObjects) {
  AnnotationToolConfig const config(false, false, true, true, false, {});
  auto const tool = std::make_shared<AnnotationTool>(config);
  Project project;
  project.document = DocumentOf(tool->GetJSON());
  WriteProject(In("case.framenote"), project);
  WriteProject(In("empty.framenote"), Project());
  EXPECT_EQ(TextOf(ReadProject(In("case.framenote")).document), R"({"Annotate":{}})");
  EXPECT_EQ(TextOf(ReadProject(In("empty.framenote")).document), R"({"Annotate":{}})");
}

TEST_F(AProject, WithoutMediaKnowsNothingOfIt) {
  WriteProject(In("case.framenote"), Project());
  MediaReference const media = ReadProject(In("case.framenote")).media;
  EXPECT_EQ(media.path, "");
  EXPECT_EQ(media.relativePath, "");
  EXPECT_LT(media.facts.size, 0);
  EXPECT_EQ(media.facts.sha256, "");
  EXPECT_EQ(media.facts.frameCount, 0);
}

TEST_F(AProject, KeepsAPathThatIsNoText) {
  Project project = Usual();
  project.media.path = In("caf\xE9/film\xFF.mp4");
  WriteProject(In("case.framenote"), project);
  Project const read = ReadProject(In("case.framenote"));
  EXPECT_EQ(read.media.path, In("caf\xE9/film\xFF.mp4"));
  EXPECT_EQ(read.media.relativePath, "caf\xE9/film\xFF.mp4");
}

TEST_F(AProject, OfANewerFormatIsRefusedAsSuch) {
  EXPECT_EQ(ErrorOf(R"({"format":"framenote project","formatVersion":2,"Annotate":{}})"),
            "'" + In("bad") + "': made by a newer version (format 2, known up to 1)");
  EXPECT_EQ(DocumentErrorOf(In("bad")),
            "'" + In("bad") + "': made by a newer version (format 2, known up to 1)");
}

TEST_F(AProject, ThatIsNoneIsRefused) {
  std::string const start = "'" + In("bad") + "': ";
  EXPECT_EQ(ErrorOf(""), start + "not JSON");
  EXPECT_EQ(ErrorOf("{\"format\""), start + "not JSON");
  EXPECT_EQ(ErrorOf("[]"), start + "not a project");
  EXPECT_EQ(ErrorOf(kDocument), start + "not a project");
  EXPECT_EQ(ErrorOf(R"({"format":"framenote project","Annotate":{}})"),
            start + "not a project (no version of the format)");
  EXPECT_EQ(ErrorOf(R"({"format":"framenote project","formatVersion":"1","Annotate":{}})"),
            start + "not a project (no version of the format)");
  EXPECT_EQ(ErrorOf(R"({"format":"framenote project","formatVersion":1,"Annotate":[]})"),
            start + "holds no \"Annotate\" object");
}

TEST_F(AProject, ReadsMediaOfTheWrongKindsAsUnknown) {
  WriteAll(In("odd"), R"({"format":"framenote project","formatVersion":1,"Annotate":{},)"
                      R"("media":{"path":7,"absolutePath":[300,-1],"size":"big","sha256":{},)"
                      R"("frameCount":1.5}})");
  MediaReference const media = ReadProject(In("odd")).media;
  EXPECT_EQ(media.path, "");
  EXPECT_EQ(media.relativePath, "");
  EXPECT_EQ(media.facts.size, -1);
  EXPECT_EQ(media.facts.sha256, "");
  EXPECT_EQ(media.facts.frameCount, 0);
}

TEST_F(AProject, IsReadFromAFileOnly) {
  EXPECT_EQ(DocumentErrorOf(In("none")), "'" + In("none") + "': no such file");
  EXPECT_EQ(DocumentErrorOf(m_folder.string()), "'" + m_folder.string() + "': not a file");
  EXPECT_EQ(DocumentErrorOf("/dev/zero"), "'/dev/zero': not a file");
}

TEST_F(AProject, IsNotReadBeyondTwoGibibytes) {
  WriteAll(In("large"), "{}");
  fs::resize_file(In("large"), (std::uintmax_t{1} << 31) + 1);  // a hole takes no room
  EXPECT_EQ(DocumentErrorOf(In("large")), "'" + In("large") + "': too large");
}

TEST_F(AProject, GivesItsDocumentAsABareOneDoes) {
  WriteProject(In("case.framenote"), Usual());
  WriteAll(In("bare.json"), kDocument);
  EXPECT_EQ(TextOf(ReadDocument(In("case.framenote"))), kDocument);
  EXPECT_EQ(TextOf(ReadDocument(In("bare.json"))), kDocument);
}

TEST_F(AProject, ThatCannotBeWrittenSaysSo) {
  try {
    WriteProject(In("none/case.framenote"), Usual());
    FAIL() << "no error";
  } catch (ProjectError const &error) {
    EXPECT_EQ(error.Problem(), ProjectProblem::WriteFailed);
    EXPECT_EQ(error.what(),
              "'" + In("none/case.framenote") + "': cannot be written (No such file or directory)");
    EXPECT_EQ(ProjectErrorText(error), "\"" + In("none/case.framenote") +
                                           "\" cannot be written. (No such file or directory)");
  }
}

class TheMediaOfAProject : public AProject {
protected:
  void SetUp() override {
    AProject::SetUp();
    fs::create_directories(In("case/media"));
    WriteAll(In("case/media/film.mp4"), "film");
    Project project = Usual();
    project.media.path = In("case/media/film.mp4");
    WriteProject(In("case/case.framenote"), project);
  }

  MediaLookup Find(std::string const &project) const {
    return FindMedia(ReadProject(In(project)), In(project));
  }
};

TEST_F(TheMediaOfAProject, IsFoundWhereItWas) {
  EXPECT_EQ(Find("case/case.framenote").path, In("case/media/film.mp4"));
}

TEST_F(TheMediaOfAProject, MovesWithTheFolderOfTheProject) {
  fs::copy(In("case"), In("copy"), fs::copy_options::recursive);
  MediaLookup const lookup = Find("copy/case.framenote");
  EXPECT_EQ(lookup.path, In("copy/media/film.mp4"));
  EXPECT_EQ(lookup.tried, (Strings{In("copy/media/film.mp4")}));
}

TEST_F(TheMediaOfAProject, IsFoundAtItsOwnPlaceIfOnlyTheProjectMoves) {
  fs::create_directory(In("elsewhere"));
  fs::rename(In("case/case.framenote"), In("elsewhere/case.framenote"));
  MediaLookup const lookup = Find("elsewhere/case.framenote");
  EXPECT_EQ(lookup.path, In("case/media/film.mp4"));
  EXPECT_EQ(lookup.tried, (Strings{In("elsewhere/media/film.mp4"), In("case/media/film.mp4")}));
}

TEST_F(TheMediaOfAProject, MayBeMissing) {
  fs::remove(In("case/media/film.mp4"));
  MediaLookup const lookup = Find("case/case.framenote");
  EXPECT_EQ(lookup.path, "");
  EXPECT_EQ(lookup.tried, (Strings{In("case/media/film.mp4"), In("case/media/film.mp4")}));
}

TEST_F(TheMediaOfAProject, IsFoundThroughALinkToTheProject) {
  fs::create_directory(In("links"));
  fs::create_symlink(In("case/case.framenote"), In("links/case.framenote"));
  EXPECT_EQ(Find("links/case.framenote").path, In("case/media/film.mp4"));
}

TEST_F(TheMediaOfAProject, IsReferredToFromWhereTheProjectIsSaved) {
  fs::create_directories(In("other/place"));
  Project const project = ReadProject(In("case/case.framenote"));
  WriteProject(In("other/place/case.framenote"), project);
  EXPECT_EQ(ReadProject(In("other/place/case.framenote")).media.relativePath,
            "../../case/media/film.mp4");
}

TEST(CompareMedia, NamesWhatDiffers) {
  using Differences = std::vector<MediaDifference>;
  MediaFacts const expected = {100, "aa", 7};
  EXPECT_EQ(CompareMedia(expected, {100, "aa", 7}), Differences{});
  EXPECT_EQ(CompareMedia(expected, {101, "aa", 7}), Differences{MediaDifference::Size});
  EXPECT_EQ(CompareMedia(expected, {100, "bb", 7}), Differences{MediaDifference::Sha256});
  EXPECT_EQ(CompareMedia(expected, {100, "aa", 8}), Differences{MediaDifference::FrameCount});
  EXPECT_EQ(
      CompareMedia(expected, {0, "bb", 1}),
      (Differences{MediaDifference::Size, MediaDifference::Sha256, MediaDifference::FrameCount}));
}

TEST(CompareMedia, LeavesOutWhatOneSideDoesNotKnow) {
  EXPECT_TRUE(CompareMedia({100, "aa", 7}, {}).empty());
  EXPECT_TRUE(CompareMedia({}, {100, "aa", 7}).empty());
}

TEST(PathText, ShowsBytesThatAreNoTextAsLatin1) {
  EXPECT_EQ(TextOfPath("caf\xC3\xA9"), wxString::FromUTF8("caf\xC3\xA9"));
  EXPECT_EQ(TextOfPath("caf\xE9"), wxString::FromUTF8("caf\xC3\xA9"));
  EXPECT_EQ(TextOfPath(""), "");
}

TEST(PathText, KeepsNoPathWithAZeroInIt) {
  EXPECT_EQ(PathOfJson(JsonFromUtf8(R"("a\u0000b")")), "");
  EXPECT_EQ(PathOfJson(JsonFromUtf8("[97,0,98]")), "");
  EXPECT_EQ(PathOfJson(JsonFromUtf8("[97,255,98]")),
            "a\xFF"
            "b");
}

}  // namespace
}  // namespace framenote::test
