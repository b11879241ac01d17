// SPDX-License-Identifier: MIT
// What machines read is the same whatever language people read.
#include <clocale>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "burn/burn_fixture.h"
#include "catalogues/languages.h"
#include "framenote/annotation_catalogue.h"
#include "framenote/annotation_tool.h"
#include "project/project_file.h"
#include "project/region_gaps.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

/// A region that is blurred in frame 0 and lies partly outside, so that a report warns of it.
std::string HideOutside() {
  return R"({"Id":7,"Properties":{"Effect":0,"Strength":12.5,"BorderColorTransparent":true},)"
         R"("Rectangle":{"StartFrame":0,"EndFrame":0,"Properties":{"Shape":0,"Thickness":0},)"
         R"("Coordinates":[)" +
         Span("0,0", "-20.5", "19.5", "59.5", "69.5") + "]}}";
}

class InEveryLanguage : public Burn {
protected:
  void SetUp() override {
    Burn::SetUp();
    WriteAll(In("doc.json"), Document(RedShape("0", "0", kOnWholePixels) + "," + HideOutside()));
    m_locales = (m_folder.string() + "-locales");
    fs::create_directory(m_locales);
  }
  void TearDown() override {
    fs::remove_all(m_locales);
    Burn::TearDown();
  }

  /// A locale of the system, which need not be installed.
  void Make(std::string const &name) {
    std::string const command = "localedef --no-archive -i " + name + " -f UTF-8 '" +
                                (m_locales / (name + ".UTF-8")).string() + "'";
    ASSERT_EQ(std::system(command.c_str()), 0);
  }

  Outcome RunIn(std::string const &locale, Arguments const &arguments) {
    return RunProgram(arguments, [&] {
      setenv("LOCPATH", m_locales.c_str(), 1);
      setenv("LC_ALL", locale.c_str(), 1);
      unsetenv("LANGUAGE");
    });
  }

  /// What a burn in a locale writes: the report, the picture, the lines of progress.
  std::string WrittenIn(std::string const &locale) {
    Outcome const outcome =
        RunIn(locale, Usual({"--report", In("report.json"), "--progress=json"}));
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
    return ReadAll(In("report.json")) + ReadAll(In("out.png")) +
           outcome.out.substr(outcome.out.find(R"({"result")"));
  }

  /// What the library makes of a document, with a font, colours and fractions, and the project that
  /// it is saved in.
  std::string DocumentNow() {
    AnnotationTool tool({false, false, true, true, true, {}});
    tool.UpdateMediaInfo({0, 10, false});
    tool.FromJSON(ReadDocument(In("doc.json")), 10);
    Project project;
    project.document = DocumentOf(tool.GetJSON());
    project.media.path = In("in.png");
    WriteProject(In("case.framenote"), project);
    return ReadAll(In("case.framenote"));
  }

  fs::path m_locales;
};

TEST_F(InEveryLanguage, DocumentsAndProjectsAreTheSame) {
  std::string const plain = DocumentNow();
  EXPECT_NE(plain.find("-20.5"), std::string::npos);
  for (auto const &[language, locale] : {std::pair("de", "de_DE"), std::pair("ar", "ar_EG")}) {
    SCOPED_TRACE(language);
    Make(locale);
    WithVariable const path("LOCPATH", m_locales.c_str());
    HostTranslations const translations(language);
    ASSERT_TRUE(AddAnnotationCatalogue());
    std::string const before = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(std::setlocale(LC_ALL, (std::string(locale) + ".UTF-8").c_str()), nullptr);
    std::string const written = DocumentNow();
    std::setlocale(LC_ALL, before.c_str());
    EXPECT_EQ(written, plain);
  }
}

TEST_F(InEveryLanguage, BurnsWriteTheSame) {
  Make("de_DE");
  Make("ar_EG");
  std::string const plain = WrittenIn("C");
  EXPECT_NE(plain.find("Object 2 lies partly outside the picture in frames 0 to 0."),
            std::string::npos);
  EXPECT_EQ(WrittenIn("de_DE.UTF-8"), plain);
  EXPECT_EQ(WrittenIn("ar_EG.UTF-8"), plain);
}

TEST_F(InEveryLanguage, MessagesOfTheCommandAreTheUsers) {
  Arguments const wrong = Usual({"--quality", "52"});
  EXPECT_EQ(RunIn("C", wrong).err, "framenote-burn: --quality wants 0 (best) to 51, not '52'\n");
  EXPECT_EQ(RunIn("de_DE.UTF-8", wrong).err,
            "framenote-burn: --quality verlangt 0 (am besten) bis 51, nicht '52'\n");
  Outcome const missing = RunIn("fr_FR.UTF-8", Usual({}, "none.json"));
  EXPECT_EQ(missing.err, "framenote-burn: Le fichier « " + In("none.json") + " » n’existe pas.\n");
  EXPECT_EQ(RunIn("it_IT.UTF-8", {"--help"}).out.rfind("Uso: framenote-burn --document DOC", 0),
            0u);
}

TEST_F(InEveryLanguage, ArabicMessagesNameTheSameOptions) {
  std::string const help = RunIn("ar_EG.UTF-8", {"--help"}).out;
  for (char const *option :
       {"--document DOC", "--macro NAME=VALUE", "--codec h264|ffv1", "%06d", "%frame%", "130"}) {
    EXPECT_NE(help.find(option), std::string::npos) << option;
  }
}

TEST(MessagesOfGaps, AreEnglishInReports) {
  HostTranslations const translations("de");
  ASSERT_TRUE(AddAnnotationCatalogue());
  RegionGap const hole{RegionGapKind::Hole, 0, 4, 10, 12};
  EXPECT_EQ(RegionGapMessage(hole).English(),
            "Nothing is hidden between object 1 and object 5, in frames 10 to 12.");
  EXPECT_EQ(RegionGapText(hole),
            wxString::FromUTF8("Zwischen Objekt 1 und Objekt 5 ist nichts verborgen, in den "
                               "Einzelbildern 10 bis 12."));
}

}  // namespace

}  // namespace framenote::test
