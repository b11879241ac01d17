// SPDX-License-Identifier: MIT
// How the desktop host is started: what it reads of its arguments, and what it answers where there
// is no display.
#include "desktop/start_options.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/program_run.h"
#include "support/with_variable.h"

namespace framenote::test {

namespace {

using Action = StartOptions::Action;

StartOptions Read(std::vector<std::string> const &arguments) {
  StartOptions options;
  EXPECT_EQ(ReadStartOptions(arguments, options).English(), "");
  return options;
}

std::string ProblemOf(std::vector<std::string> const &arguments) {
  StartOptions options;
  return ReadStartOptions(arguments, options).English();
}

TEST(StartOptions, AreEmptyWithoutArguments) {
  StartOptions const options = Read({});
  EXPECT_EQ(options.action, Action::ShowWindow);
  EXPECT_EQ(options.file, "");
  EXPECT_EQ(options.document, "");
}

TEST(StartOptions, FileAndDocumentInAnyOrderAndForm) {
  for (auto const &arguments : {std::vector<std::string>{"--document", "a.json", "in.png"},
                                {"in.png", "--document", "a.json"},
                                {"--document=a.json", "--", "in.png"}}) {
    StartOptions const options = Read(arguments);
    EXPECT_EQ(options.action, Action::ShowWindow);
    EXPECT_EQ(options.file, "in.png");
    EXPECT_EQ(options.document, "a.json");
  }
}

TEST(StartOptions, PathsAreBytes) {
  EXPECT_EQ(Read({"caf\xE9.png"}).file, "caf\xE9.png");
  EXPECT_EQ(Read({"--document=a=b.json", "in.png"}).document, "a=b.json");
  EXPECT_EQ(Read({"--", "--help"}).file, "--help");
}

TEST(StartOptions, OfTheToolkitAreLeftToIt) {
  StartOptions const options = Read({"--display=:77", "--name", "mine", "in.png"});
  EXPECT_EQ(options.file, "in.png");
  EXPECT_EQ(options.toolkit, (std::vector<std::string>{"--display=:77", "--name=mine"}));
  EXPECT_EQ(ProblemOf({"--display"}), "--display wants a value");
}

TEST(StartOptions, HelpAndVersionAreActions) {
  EXPECT_EQ(Read({"--help"}).action, Action::ShowHelp);
  EXPECT_EQ(Read({"-h"}).action, Action::ShowHelp);
  EXPECT_EQ(Read({"--version"}).action, Action::ShowVersion);
  EXPECT_EQ(Read({"--document", "a.json", "--help"}).action, Action::ShowHelp);
}

TEST(StartOptions, TellWhatIsWrong) {
  EXPECT_EQ(ProblemOf({"--nonsense"}), "unknown argument '--nonsense'");
  EXPECT_EQ(ProblemOf({"--help=yes"}), "unknown argument '--help=yes'");
  EXPECT_EQ(ProblemOf({"-"}), "unknown argument '-'");
  EXPECT_EQ(ProblemOf({"a.png", "b.png"}), "unknown argument 'b.png'");
  EXPECT_EQ(ProblemOf({"--document"}), "--document wants a value");
  EXPECT_EQ(ProblemOf({"--document", "a.json"}), "FILE is missing");
}

/// The program as it is started over a remote connection, or by a package's build.
class StartWithoutDisplay : public testing::Test {
protected:
  static ProgramRun Run(std::string const &arguments) {
    return RunToTheEnd(FRAMENOTE_PROGRAM " " + arguments);
  }

private:
  WithVariable m_display{"DISPLAY", nullptr};
  WithVariable m_wayland{"WAYLAND_DISPLAY", nullptr};
  WithVariable m_backend{"GDK_BACKEND", nullptr};
};

TEST_F(StartWithoutDisplay, ShowsHelp) {
  for (char const *option : {"--help", "-h", "--display=:77 --help"}) {
    ProgramRun const run = Run(option);
    EXPECT_EQ(run.code, 0) << option;
    EXPECT_EQ(run.err, "") << option;
    EXPECT_EQ(run.out,
              "Usage: framenote [--document DOC] [FILE]\n"
              "\n"
              "Marks up still pictures and video frames.\n"
              "\n"
              "  FILE              picture, video or project\n"
              "  --document DOC    show the annotations of this document on it\n"
              "  --help            show this text\n"
              "  --version         show the version\n")
        << option;
  }
}

TEST_F(StartWithoutDisplay, ShowsTheVersion) {
  ProgramRun const run = Run("--version");
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out, "framenote " FRAMENOTE_VERSION "\n");
}

TEST_F(StartWithoutDisplay, ShowsHelpInTheUsersLanguage) {
  WithVariable const locale("LC_ALL", nullptr);
  WithVariable const language("LANGUAGE", "de");
  ProgramRun const run = Run("--help");
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_NE(run.out.find(": framenote [--document DOC] [FILE]\n"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("  --help            diesen Text anzeigen\n"), std::string::npos)
      << run.out;
  EXPECT_EQ(run.out.find("show"), std::string::npos) << run.out;
}

TEST_F(StartWithoutDisplay, TellsWhichArgumentIsWrong) {
  ProgramRun const run = Run("--nonsense");
  EXPECT_EQ(run.code, 255);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "framenote: unknown argument '--nonsense'\n");

  WithVariable const locale("LC_ALL", nullptr);
  WithVariable const language("LANGUAGE", "de");
  EXPECT_EQ(Run("--document").err, "framenote: --document verlangt einen Wert\n");
}

TEST_F(StartWithoutDisplay, TellsThatItNeedsOne) {
  for (char const *arguments : {"", "'caf\xE9.png'", "--display=:77 in.png"}) {
    ProgramRun const run = Run(arguments);
    EXPECT_EQ(run.code, 255) << arguments;
    EXPECT_EQ(run.out, "") << arguments;
    EXPECT_NE(run.err.find("is DISPLAY set properly?"), std::string::npos) << run.err;
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
  }
}

}  // namespace

}  // namespace framenote::test
