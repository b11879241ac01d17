// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <wx/image.h>

#include <gtest/gtest.h>

namespace framenote::test {

namespace fs = std::filesystem;
using Arguments = std::vector<std::string>;

constexpr int kWidth = 200;
constexpr int kHeight = 100;
constexpr int kRed = 0xFF0000;
constexpr int kGreen = 0x00FF00;

/// The test picture's colour: no two neighbours are the same, and none is red or green.
inline int GroundAt(int x, int y) {
  return x << 16 | y << 8 | 0x4D;
}

inline int ColourAt(wxImage const &image, int x, int y) {
  return image.GetRed(x, y) << 16 | image.GetGreen(x, y) << 8 | image.GetBlue(x, y);
}

inline std::string ReadAll(fs::path const &path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline void WriteAll(fs::path const &path, std::string const &bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

/// One run of coordinates: a rectangle given by two corners, in the frames first to last.
inline std::string Span(std::string const &frames, std::string const &left, std::string const &top,
                        std::string const &right, std::string const &bottom) {
  return R"({"TopLeft":[)" + left + "," + top + R"(],"TopRight":[)" + right + "," + top +
         R"(],"BottomRight":[)" + right + "," + bottom + R"(],"BottomLeft":[)" + left + "," +
         bottom + R"(],"Range":[)" + frames + "]}";
}

/// A red rectangle without a border.
inline std::string RedShape(std::string const &start, std::string const &end,
                            std::string const &runs) {
  return R"({"Id":2,"StartFrame":)" + start + R"(,"EndFrame":)" + end +
         R"(,"Properties":{"Shape":0,"BorderColor":"#0000FFFF","BorderColorTransparent":true,)"
         R"("FillColor":"#FF0000FF","FillColorTransparent":false,"Thickness":1},"Coordinates":[)" +
         runs + "]}";
}

inline std::string Document(std::string const &objects,
                            std::string const &extensionColor = "null") {
  return R"({"Annotate":{"ExtensionColor":)" + extensionColor + R"(,"Objects":[)" + objects + "]}}";
}

// Burning in shifts objects by half a pixel, so these corners lie on the borders of the pixels
// 10 to 109 and 20 to 69.
inline std::string const kOnWholePixels = Span("0,0", "9.5", "19.5", "109.5", "69.5");
inline std::string const kDocument = Document(RedShape("0", "0", kOnWholePixels));

inline bool IsInRectangle(int x, int y) {
  return x >= 10 && x <= 109 && y >= 20 && y <= 69;
}

struct Outcome {
  int code = -1;  ///< the exit code, or minus the signal
  std::string out;
  std::string err;
  long maxKilobytes = 0;
};

class Burn : public testing::Test {
protected:
  void SetUp() override {
    std::string folder = (fs::temp_directory_path() / "framenote-burn-XXXXXX").string();
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    m_folder = folder;
    wxImage picture(kWidth, kHeight);
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) {
        int const colour = GroundAt(x, y);
        picture.SetRGB(x, y, static_cast<unsigned char>(colour >> 16),
                       static_cast<unsigned char>(colour >> 8 & 0xFF),
                       static_cast<unsigned char>(colour & 0xFF));
      }
    }
    ASSERT_TRUE(picture.SaveFile(In("in.png"), wxBITMAP_TYPE_PNG));
    WriteAll(In("doc.json"), kDocument);
  }

  void TearDown() override {
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
  }

  std::string In(std::string const &name) const { return (m_folder / name).string(); }

  /// The usual arguments, and more after them.
  Arguments Usual(Arguments const &more = {}, std::string const &document = "doc.json",
                  std::string const &input = "in.png", std::string const &output = "out.png") {
    Arguments arguments = {"--document", In(document), "--input",
                           In(input),    "--output",   In(output)};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
  }

  /// Runs the program; `prepare` is called in the new process before the program starts, and
  /// `meanwhile` with the process's id while it runs.
  Outcome RunProgram(
      Arguments arguments, std::function<void()> const &prepare = [] {},
      std::function<void(pid_t)> const &meanwhile = [](pid_t) {}) {
    arguments.insert(arguments.begin(), FRAMENOTE_BURN_PROGRAM);
    std::vector<char *> pointers;
    for (std::string &argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    fs::path const logs = m_folder.string() + "-log";
    fs::create_directory(logs);
    std::string const out = (logs / "out").string();
    std::string const err = (logs / "err").string();
    pid_t const child = fork();
    if (child == 0) {
      dup2(open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDOUT_FILENO);
      dup2(open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
      prepare();
      execv(FRAMENOTE_BURN_PROGRAM, pointers.data());
      _exit(127);
    }
    meanwhile(child);
    Outcome outcome = WaitFor(child);
    outcome.out = ReadAll(out);
    outcome.err = ReadAll(err);
    fs::remove_all(logs);
    return outcome;
  }

  /// The names in the folder, sorted: what a run left there.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (auto const &entry : fs::directory_iterator(m_folder)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  wxImage Result(std::string const &name = "out.png") const { return wxImage(In(name)); }

  fs::path m_folder;

private:
  static Outcome WaitFor(pid_t child) {
    Outcome outcome;
    int status = 0;
    rusage usage = {};
    auto const deadline = std::chrono::steady_clock::now() + std::chrono::seconds(300);
    while (wait4(child, &status, WNOHANG, &usage) == 0) {
      if (std::chrono::steady_clock::now() > deadline) kill(child, SIGKILL);
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    outcome.code = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    outcome.maxKilobytes = usage.ru_maxrss;
    return outcome;
  }
};

/// A run that must fail: its exit code, and one line that names the program and says `why`.
inline void ExpectFailure(Outcome const &outcome, int code, std::string const &why) {
  EXPECT_EQ(outcome.code, code) << outcome.err;
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err.rfind("framenote-burn: ", 0), 0u) << outcome.err;
  EXPECT_NE(outcome.err.find(why), std::string::npos) << outcome.err;
  EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
  EXPECT_EQ(outcome.err.empty() ? '\0' : outcome.err.back(), '\n');
}

/// What the program says of a document some of whose objects are not in the output.
inline std::string LeftOutText(std::string const &document, int count) {
  if (count == 0) return {};
  return "framenote-burn: warning: '" + document +
         "': objects that cannot be read, or would leave no trace, are left out: " +
         std::to_string(count) + "\n";
}

inline void ExpectSuccess(Outcome const &outcome) {
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "");
}

}  // namespace framenote::test
