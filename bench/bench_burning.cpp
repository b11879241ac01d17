// SPDX-License-Identifier: MIT
#ifdef FRAMENOTE_BURN_PROGRAM

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "side_by_side.h"

/// What burning a video in costs, beside the `ffmpeg` program doing the like, and what it holds.
namespace {

namespace fs = std::filesystem;

constexpr int kFrames = 300;

/// A rectangle given by two corners, in all frames.
std::string Corners(int left, int top, int right, int bottom) {
  auto const point = [](int x, int y) {
    return "[" + std::to_string(x) + "," + std::to_string(y) + "]";
  };
  return R"("Coordinates":[{"TopLeft":)" + point(left, top) + R"(,"TopRight":)" +
         point(right, top) + R"(,"BottomRight":)" + point(right, bottom) + R"(,"BottomLeft":)" +
         point(left, bottom) + R"(,"Range":[0,99999]}])";
}

std::string const kSpan = R"("StartFrame":0,"EndFrame":99999,)";

std::string const kShape =
    R"({"Id":2,)" + kSpan +
    R"("Properties":{"Shape":0,"BorderColor":"#0000FFFF","BorderColorTransparent":false,)"
    R"("FillColor":"#FF0000FF","FillColorTransparent":true,"Thickness":4},)" +
    Corners(10, 10, 210, 150) + "}";

std::string const kTextAndRegion =
    R"({"Id":5,"Properties":{"Font":"32;normal;400;0;0;DejaVu Sans","FontColor":"#FF0000FF",)"
    R"("BackgroundColor":"#FFFFFFFF","BackgroundColorTransparent":true,"HorizontalAlignment":0,)"
    R"("VerticalAlignment":0},"Rectangle":{)" +
    kSpan +
    R"("Properties":{"Shape":0,"BorderColor":"#000000FF","BorderColorTransparent":true,)"
    R"("FillColor":"#FFFFFFFF","FillColorTransparent":true,"Thickness":0},)" +
    Corners(100, 800, 900, 900) + R"(},"TextLines":"[\"frame %frame%\"]"},)" +
    R"({"Id":7,"Properties":{"Effect":0,"Strength":20,"Shape":0},"Rectangle":{)" + kSpan +
    Corners(1000, 300, 1400, 700) + "}}";

class Folder {
public:
  Folder() {
    std::string name = (fs::temp_directory_path() / "framenote-bench-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) std::abort();
    m_path = name;
  }
  Folder(Folder const &) = delete;
  Folder &operator=(Folder const &) = delete;
  ~Folder() {
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
  }

  void Write(std::string const &name, std::string const &objects) const {
    std::ofstream(m_path / name) << R"({"Annotate":{"ExtensionColor":null,"Objects":[)" << objects
                                 << "]}}";
  }
  /// Runs a command there; false if it fails.
  bool Run(std::string const &command) const {
    std::string const whole = "cd '" + m_path.string() + "' && " + command + " </dev/null";
    return std::system(whole.c_str()) == 0;
  }
  /// The most memory that a command had, in megabytes; 0 if it fails.
  double MegabytesOf(std::string const &command) const {
    pid_t const child = fork();
    if (child == 0) {
      if (chdir(m_path.c_str()) != 0) _exit(127);
      execl("/bin/sh", "sh", "-c", ("exec " + command).c_str(), nullptr);
      _exit(127);
    }
    int status = 0;
    rusage usage = {};
    if (child < 0 || wait4(child, &status, 0, &usage) != child || status != 0) return 0.0;
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
  }

private:
  fs::path m_path;
};

std::string const kBurn = "'" FRAMENOTE_BURN_PROGRAM "' --document doc.json ";
std::string const kFfmpeg = "ffmpeg -v error -nostdin -y ";
// As the writer of the programs sets the encoder.
std::string const kEncoder =
    " -c:v libx264 -preset faster -crf 17 -bf 0 -g 60 -threads 8 -pix_fmt yuv420p ";
std::string const kLikeness =
    "-filter_complex \"[0:v]split[a][b];[b]crop=400:400:1000:300,boxblur=20:3[c];"
    "[a][c]overlay=1000:300,drawbox=10:10:200:140:blue:4,"
    "drawtext=text='frame %{n}':x=100:y=800:fontsize=43:fontcolor=red\"";

/// A rectangle, a text and a blurred region of 400 x 400 pixels, H.264 in and out, with noise, so
/// that the encoder has something to do.
void BurnVideo(benchmark::State &state) {
  Folder const folder;
  folder.Write("doc.json", kShape + "," + kTextAndRegion);
  bool isOk = folder.Run(kFfmpeg + "-f lavfi -i testsrc2=s=1920x1080:r=25,noise=alls=12:allf=t" +
                         " -frames:v " + std::to_string(kFrames) +
                         " -c:v libx264 -preset veryfast -crf 20 in.mp4");
  double ours = 0.0;
  framenote::bench::SideBySide(
      state,
      [&] {
        ours += framenote::bench::SecondsOf(
            [&] { isOk = folder.Run(kBurn + "--input in.mp4 --output ours.mp4") && isOk; });
      },
      [&] {
        isOk = folder.Run(kFfmpeg + "-i in.mp4 " + kLikeness + kEncoder + "other.mp4") && isOk;
      });
  if (!isOk) return state.SkipWithError("a program failed");
  double const ourRate = kFrames * static_cast<double>(state.iterations()) / ours;
  state.counters["frames_per_second"] = ourRate;
  state.counters["reference_frames_per_second"] =
      kFrames * 1e3 / state.counters["reference_ms"].value;
}

/// The most memory over 10,000 frames of 320 x 240, and over the first 1,000 of them.
void MemoryOfLongVideos(benchmark::State &state) {
  Folder const folder;
  folder.Write("doc.json", kShape);
  bool const isMade = folder.Run(kFfmpeg + "-f lavfi -i testsrc2=s=320x240:r=25" +
                                 " -frames:v 10000 -c:v libx264 -preset ultrafast in.mp4");
  if (!isMade) return state.SkipWithError("ffmpeg failed");
  double few = 0.0;
  double many = 0.0;
  while (state.KeepRunning()) {
    few = folder.MegabytesOf(kBurn + "--input in.mp4 --output out.mkv --frames 0-999");
    many = folder.MegabytesOf(kBurn + "--input in.mp4 --output out.mkv");
  }
  if (few == 0.0 || many == 0.0) return state.SkipWithError("a program failed");
  state.counters["megabytes"] = many;
  state.counters["ratio"] = many / few;
}

BENCHMARK(BurnVideo)->UseManualTime()->Unit(benchmark::kSecond)->Iterations(3);
BENCHMARK(MemoryOfLongVideos)->Unit(benchmark::kSecond)->Iterations(1);

}  // namespace

#endif
