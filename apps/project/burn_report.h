// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "project/burn_job.h"

/// Collects what a report says of a burn while it runs.
///
/// A report is a JSON object: what was burnt into what, with SHA-256 sums of the source file, the
/// document's file and value, each burnt frame's pixels (red, green, blue, rows from the top) and
/// the output files; the settings; for each hide region the frames in which it covers something;
/// and the places where one may leave its subject bare. It holds no time of day: the same burn
/// gives the same report.
class BurnReport {
public:
  BurnReport(MediaSource const &source, wxJSONValue const &document, BurnSettings const &settings);

  /// Takes note of a burnt frame. Called by one thread, in order.
  void AddFrame(std::int64_t frame, Picture const &picture);
  /// Sums of whole files take as long as reading them: `goesOn` is asked now and then meanwhile,
  /// and what needs them throws MediaError, Cancelled, once it says no.
  void GoOnWhile(std::function<bool()> goesOn) { m_goesOn = std::move(goesOn); }
  /// A file of the output, complete, at `path` for now; `name` is what it will be called.
  void AddOutput(std::string const &path, std::string const &name);

  /// The whole report. `tool` has the document, `result` all but the report. Sums up the source
  /// file. Throws MediaError.
  wxJSONValue ToJSON(AnnotationTool const &tool, BurnResult const &result) const;

private:
  wxJSONValue fileToJSON(std::string const &path, std::string const &name) const;
  wxJSONValue sourceToJSON() const;
  wxJSONValue documentToJSON() const;
  wxJSONValue settingsToJSON() const;
  wxJSONValue framesToJSON() const;
  void addRegions(AnnotationTool const &tool, wxJSONValue &report) const;

  MediaSource const &m_source;
  wxJSONValue const m_document;
  BurnSettings const m_settings;
  std::function<bool()> m_goesOn;
  std::vector<std::string> m_frameSums;  ///< from settings.range.first on
  std::vector<wxJSONValue> m_outputs;
};
