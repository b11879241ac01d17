// SPDX-License-Identifier: MIT
#include "project/burn_job.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <utility>

#include "media/media_error.h"
#include "project/atomic_file.h"
#include "project/burn_report.h"
#include "project/frame_sink.h"
#include "talbase/json_text.h"

namespace {

namespace fs = std::filesystem;

void RefuseSource(std::string const &path, MediaSource const &source) {
  std::error_code none;  // a file that is not there yet is not the source
  if (path.empty() || !fs::equivalent(path, source.Path(), none)) return;
  throw std::invalid_argument("'" + path + "' is the source, which is never written to");
}

void CheckSettings(MediaSource const &source, BurnSettings const &settings) {
  FrameRange const &range = settings.range;
  std::int64_t const count = source.Info().frameCount;
  if (range.first < 0 || range.last < range.first || range.last >= count) {
    throw std::invalid_argument("frames " + std::to_string(range.first) + " to " +
                                std::to_string(range.last) + " are not within the " +
                                std::to_string(count) + " of '" + source.Path() + "'");
  }
  if (BurnOutputOf(settings.output) == BurnOutput::Picture && range.Count() > 1) {
    throw std::invalid_argument("'" + settings.output +
                                "' is one picture; several want a number's place, as %06d");
  }
  RefuseSource(settings.output, source);
  RefuseSource(settings.report, source);
}

/// How fast it goes, and how long it will go on.
class Pace {
public:
  explicit Pace(std::int64_t frames) : m_frames(frames) {}

  BurnProgress At(std::int64_t done) const {
    std::chrono::duration<double> const passed = std::chrono::steady_clock::now() - m_start;
    BurnProgress progress{done, m_frames, 0.0, 0.0};
    if (passed.count() <= 0.0 || done == 0) return progress;
    progress.framesPerSecond = static_cast<double>(done) / passed.count();
    progress.secondsLeft = static_cast<double>(m_frames - done) / progress.framesPerSecond;
    return progress;
  }

private:
  std::int64_t const m_frames;
  std::chrono::steady_clock::time_point const m_start = std::chrono::steady_clock::now();
};

/// The report's text in a file beside the output, which is published last.
void WriteReport(std::string const &path, wxJSONValue const &report) {
  WriteFileAtomically(path, JsonToUtf8(report) + "\n");
}

}  // namespace

BurnResult RunBurnJob(MediaSource &source, wxJSONValue const &document,
                      BurnSettings const &settings,
                      std::function<bool(BurnProgress const &)> const &progress) {
  CheckSettings(source, settings);
  std::unique_ptr<FrameSink> const sink = MakeFrameSink(source, settings);
  FrameBurner burner(source, document, settings.look);
  std::optional<BurnReport> report;
  if (!settings.report.empty()) report.emplace(source, document, settings);
  BurnResult result;
  Pace const pace(settings.range.Count());

  FrameSteps steps;
  steps.burn = [&](std::int64_t frame, MediaFrame &&read) {
    if (read.isDamaged) result.damagedFrames.push_back(frame);
    return burner.Burn(frame, std::move(read.picture));
  };
  steps.write = [&](std::int64_t frame, Picture const &picture) {
    sink->Write(frame, picture);
    if (report) report->AddFrame(frame, picture);
  };
  steps.progress = [&](std::int64_t done) { return !progress || progress(pace.At(done)); };
  if (!RunFramePipeline(source, settings.range, steps)) {
    throw MediaError(MediaProblem::Cancelled, settings.output);
  }
  std::vector<OutputFile> const files = sink->Complete();
  if (report) {
    for (OutputFile const &file : files) report->AddOutput(file.temporaryPath, file.path);
    result.report = report->ToJSON(burner.Tool(), result.damagedFrames);
    WriteReport(settings.report, result.report);
  }
  sink->Publish();
  return result;
}
