// SPDX-License-Identifier: MIT
#include "project/burn_job.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <utility>

#include <wx/translation.h>

#include "media/media_error.h"
#include "project/atomic_file.h"
#include "project/burn_report.h"
#include "project/frame_sink.h"
#include "talbase/json_text.h"

namespace {

namespace fs = std::filesystem;

constexpr char const *kSource = wxTRANSLATE("'%s' is the source, which is never written to");
constexpr char const *kDocument = wxTRANSLATE("'%s' is the document, which is never written to");
constexpr char const *kOutput = wxTRANSLATE("'%s' is the output too");

std::invalid_argument Refusal(Message const &why) {
  return std::invalid_argument(why.Translated());
}

/// No file is written where another one is that the job reads or writes.
void RefuseSame(std::string const &path, std::string const &other, char const *why) {
  if (path.empty() || other.empty()) return;
  std::error_code none;  // a file that is not there yet is no other one, unless by its name
  if (path != other && !fs::equivalent(path, other, none)) return;
  throw Refusal({why, {path}});
}

void CheckNames(MediaSource const &source, BurnSettings const &settings) {
  bool const isMany = BurnOutputOf(settings.output) == BurnOutput::Pictures;
  FrameRange const range = isMany ? settings.range : FrameRange{0, 0};
  for (std::int64_t frame = range.first; frame <= range.last; ++frame) {
    std::string const path = isMany ? OutputPathOf(settings.output, frame) : settings.output;
    RefuseSame(path, source.Path(), kSource);
    RefuseSame(path, settings.documentFile, kDocument);
    RefuseSame(settings.report, path, kOutput);
  }
  RefuseSame(settings.report, source.Path(), kSource);
  RefuseSame(settings.report, settings.documentFile, kDocument);
}

void CheckSettings(MediaSource const &source, BurnSettings const &settings) {
  FrameRange const &range = settings.range;
  std::int64_t const count = source.Info().frameCount;
  if (range.first < 0 || range.last < range.first || range.last >= count) {
    // TRANSLATORS: numbers of frames: the first, the last, how many there are; a file.
    throw Refusal({wxTRANSLATE("frames %s to %s are not within the %s of '%s'"),
                   {std::to_string(range.first), std::to_string(range.last), std::to_string(count),
                    source.Path()}});
  }
  BurnOutput const kind = BurnOutputOf(settings.output);
  if (kind == BurnOutput::Picture && range.Count() > 1) {
    // TRANSLATORS: "%%06d" stands in the name of a file and stays as it is.
    throw Refusal({wxTRANSLATE("'%s' is one picture; several want a number's place, as %%06d"),
                   {settings.output}});
  }
  if (kind == BurnOutput::Video && settings.codec == VideoCodec::FFV1 &&
      !IsMatroska(settings.output)) {
    throw Refusal({wxTRANSLATE("'%s' cannot hold FFV1; .mkv can"), {settings.output}});
  }
  CheckNames(source, settings);
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

}  // namespace

BurnResult RunBurnJob(MediaSource &source, wxJSONValue const &document,
                      BurnSettings const &settings,
                      std::function<bool(BurnProgress const &)> const &progress) {
  CheckSettings(source, settings);
  std::unique_ptr<FrameSink> const sink = MakeFrameSink(source, settings);
  // From the beginning on, so that a place that cannot be written to costs no hours of work.
  std::optional<AtomicFile> reportFile;
  std::optional<BurnReport> report;
  if (!settings.report.empty()) {
    reportFile.emplace(settings.report);
    report.emplace(source, document, settings);
  }
  FrameBurner burner(source, document, settings.look);
  BurnResult result;
  result.source = source.Path();
  result.objectsLeftOut = burner.LeftOut();
  Pace const pace(settings.range.Count());
  auto const tell = [&](std::int64_t done) { return !progress || progress(pace.At(done)); };

  FrameSteps steps;
  steps.burn = [&](std::int64_t frame, MediaFrame &&read) {
    if (read.isDamaged) result.damagedFrames.push_back(frame);
    return burner.Burn(frame, std::move(read.picture));
  };
  steps.write = [&](std::int64_t frame, Picture const &picture) {
    sink->Write(frame, picture);
    if (report) report->AddFrame(frame, picture);
  };
  steps.progress = tell;
  if (!RunFramePipeline(source, settings.range, steps)) {
    throw MediaError(MediaProblem::Cancelled, settings.output);
  }
  std::vector<OutputFile> const files = sink->Complete();
  result.problem = sink->Problem();
  if (report) {
    report->GoOnWhile([&] { return tell(settings.range.Count()); });
    for (OutputFile const &file : files) report->AddOutput(file.temporaryPath, file.path);
    result.report = report->ToJSON(burner.Tool(), result);
    reportFile->Write(JsonToUtf8(result.report) + "\n");
    reportFile->CloseOnDisk();
    reportFile->Commit();
  }
  sink->Publish();
  return result;
}
