// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "project/burn_job.h"

/// Collects what a report says of a burn while it runs.
///
/// A report is a JSON object: what was burnt into what, with SHA-256 sums of the source file, the
/// document's text, each burnt frame's pixels (red, green, blue, rows from the top) and the output
/// files; the settings; for each hide region the frames in which it covers something; and the
/// places where one may leave its subject bare. It holds no time of day: the same burn gives the
/// same report.
class BurnReport {
public:
  BurnReport(MediaSource const &source, wxJSONValue const &document, BurnSettings const &settings);

  /// Takes note of a burnt frame. Called by one thread, in order.
  void AddFrame(std::int64_t frame, Picture const &picture);
  /// A file of the output, complete, at `path` for now; `name` is what it will be called.
  void AddOutput(std::string const &path, std::string const &name);

  /// The whole report. `tool` has the document. Sums up the source file, which takes as long as
  /// reading it. Throws MediaError.
  wxJSONValue ToJSON(AnnotationTool const &tool,
                     std::vector<std::int64_t> const &damagedFrames) const;

private:
  wxJSONValue sourceToJSON() const;
  wxJSONValue settingsToJSON() const;
  wxJSONValue framesToJSON() const;
  void addRegions(AnnotationTool const &tool, wxJSONValue &report) const;

  MediaSource const &m_source;
  wxJSONValue const m_document;
  BurnSettings const m_settings;
  int m_width = 0;  ///< of the burnt frames, in pixels
  int m_height = 0;
  std::vector<std::string> m_frameSums;  ///< from settings.range.first on
  std::vector<wxJSONValue> m_outputs;
};
