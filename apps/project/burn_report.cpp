// SPDX-License-Identifier: MIT
#include "project/burn_report.h"

#include <filesystem>

#include "framenote/annotation_events.h"
#include "media/sha256.h"
#include "project/path_text.h"
#include "project/region_gaps.h"
#include "talbase/json_text.h"

namespace {

constexpr char const *kFormat = "framenote burn report";
constexpr int kFormatVersion = 1;

wxJSONValue Number(std::int64_t value) {
  return static_cast<long long>(value);
}

wxJSONValue Pair(std::int64_t first, std::int64_t second) {
  wxJSONValue pair(wxJSONTYPE_ARRAY);
  pair.Append(Number(first));
  pair.Append(Number(second));
  return pair;
}

std::string SumOfText(std::string const &text) {
  return Sha256OfBytes(text.data(), text.size());
}

char const *NameOf(VideoCodec codec) {
  return codec == VideoCodec::FFV1 ? "ffv1" : "h264";
}

}  // namespace

BurnReport::BurnReport(MediaSource const &source, wxJSONValue const &document,
                       BurnSettings const &settings)
    : m_source(source), m_document(document), m_settings(settings) {}

void BurnReport::AddFrame(std::int64_t, Picture const &picture) {
  m_frameSums.push_back(Sha256OfBytes(picture.Pixels(), picture.ByteCount()));
}

void BurnReport::AddOutput(std::string const &path, std::string const &name) {
  m_outputs.push_back(fileToJSON(path, name));
}

wxJSONValue BurnReport::fileToJSON(std::string const &path, std::string const &name) const {
  wxJSONValue json(wxJSONTYPE_OBJECT);
  json.Set("path", JsonOfPath(name));
  json.Set("size", static_cast<unsigned long long>(std::filesystem::file_size(path)));
  auto const progress = [this](double) { return !m_goesOn || m_goesOn(); };
  json.Set("sha256", Sha256OfFile(path, progress).c_str());
  return json;
}

wxJSONValue BurnReport::ToJSON(AnnotationTool const &tool, BurnResult const &result) const {
  wxJSONValue report(wxJSONTYPE_OBJECT);
  report.Set("format", kFormat);
  report.Set("formatVersion", kFormatVersion);
  report.Set("libraryVersion", FRAMENOTE_VERSION);
  report.Set("source", sourceToJSON());
  report.Set("document", documentToJSON());
  report.Set("settings", settingsToJSON());
  wxJSONValue outputs(wxJSONTYPE_ARRAY);
  for (wxJSONValue const &output : m_outputs) outputs.Append(output);
  report.Set("outputs", outputs);
  report.Set("frames", framesToJSON());
  wxJSONValue damaged(wxJSONTYPE_ARRAY);
  for (std::int64_t const frame : result.damagedFrames) damaged.Append(Number(frame));
  report.Set("damagedFrames", damaged);
  if (result.objectsLeftOut > 0) report.Set("objectsLeftOut", result.objectsLeftOut);
  if (!result.problem.IsEmpty()) {
    report.Set("problem", wxString::FromUTF8(result.problem.English()));
  }
  addRegions(tool, report);
  return report;
}

wxJSONValue BurnReport::sourceToJSON() const {
  MediaInfo const &info = m_source.Info();
  wxJSONValue json = fileToJSON(m_source.Path(), m_source.Path());
  json.Set("width", info.width);
  json.Set("height", info.height);
  json.Set("frameCount", Number(info.frameCount));
  json.Set("timeBase", Pair(info.timeBase.numerator, info.timeBase.denominator));
  json.Set("rotation", info.rotation);
  json.Set("container", info.container.c_str());
  json.Set("codec", info.codec.c_str());
  json.Set("pixelFormat", info.pixelFormat.c_str());
  json.Set("bitsPerChannel", info.bitsPerChannel);
  json.Set("colourMatrix", info.colourMatrix.c_str());
  json.Set("colourMatrixGuessed", info.isColourMatrixGuessed);
  json.Set("fullRange", info.isFullRange);
  return json;
}

wxJSONValue BurnReport::documentToJSON() const {
  wxJSONValue json(wxJSONTYPE_OBJECT);
  std::string const &file = m_settings.documentFile;
  if (!file.empty()) json = fileToJSON(file, file);
  json.Set("valueSha256", SumOfText(JsonToUtf8(m_document)).c_str());
  return json;
}

wxJSONValue BurnReport::settingsToJSON() const {
  wxJSONValue json(wxJSONTYPE_OBJECT);
  json.Set("frames", Pair(m_settings.range.first, m_settings.range.last));
  json.Set("painter", m_settings.look.withDeviceContext ? "dc" : "gc");
  json.Set("extend", m_settings.look.extend);
  wxJSONValue macros(wxJSONTYPE_OBJECT);
  for (auto const &[name, value] : m_settings.look.macros) macros.Set(name, value);
  json.Set("macros", macros);
  if (BurnOutputOf(m_settings.output) != BurnOutput::Video) return json;
  json.Set("codec", NameOf(m_settings.codec));
  if (m_settings.codec == VideoCodec::H264) json.Set("quality", m_settings.quality);
  json.Set("audio", m_settings.keepAudio && m_source.Info().hasAudio);
  json.Set("metadata", m_settings.keepMetadata);
  return json;
}

wxJSONValue BurnReport::framesToJSON() const {
  wxJSONValue frames(wxJSONTYPE_ARRAY);
  std::int64_t number = m_settings.range.first;
  for (std::string const &sum : m_frameSums) {
    wxJSONValue frame(wxJSONTYPE_OBJECT);
    frame.Set("frame", Number(number));
    frame.Set("timeStamp", Number(m_source.TimeStamp(number)));
    frame.Set("sha256", sum.c_str());
    frames.Append(frame);
    ++number;
  }
  return frames;
}

void BurnReport::addRegions(AnnotationTool const &tool, wxJSONValue &report) const {
  MediaInfo const &info = m_source.Info();
  ExportRange const range{{info.width, info.height}, m_settings.range.first, m_settings.range.last};
  wxJSONValue regions(wxJSONTYPE_ARRAY);
  for (RegionCoverage const &coverage : FramesCovered(tool, range)) {
    wxJSONValue region(wxJSONTYPE_OBJECT);
    region.Set("object", coverage.object);
    wxJSONValue frames(wxJSONTYPE_ARRAY);
    for (auto const &[first, last] : coverage.frames) frames.Append(Pair(first, last));
    region.Set("frames", frames);
    regions.Append(region);
  }
  report.Set("hideRegions", regions);
  wxJSONValue gaps(wxJSONTYPE_ARRAY);
  for (RegionGap const &gap : FindRegionGaps(tool, range)) {
    gaps.Append(wxJSONValue(wxString::FromUTF8(RegionGapMessage(gap).English())));
  }
  report.Set("warnings", gaps);
}
