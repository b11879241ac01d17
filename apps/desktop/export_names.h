// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <wx/string.h>

#include "media/video_writer.h"
#include "project/output_name.h"

/// The formats that an export offers, and how its files are called.

struct ExportFormat {
  char const *id;                       ///< in the configuration
  std::vector<wxString> extensions;     ///< that a name may have, the usual one first
  VideoCodec codec = VideoCodec::FFV1;  ///< of a video
};

/// What the formats are, for each kind of output; not for BurnOutput::Unknown.
std::vector<ExportFormat> const &FormatsOf(BurnOutput output);
/// As the user reads it.
wxString LabelOf(ExportFormat const &format);

/// The name without a folder that is suggested for an export of `source`; `frame` is that of a
/// single picture, negative where the source has no other.
wxString SuggestedName(std::string const &source, BurnOutput output, ExportFormat const &format,
                       std::int64_t frame);
/// `path` with an extension of the format, and with the place of a number where each frame has a
/// file of its own. What fits already stays as it is.
wxString NameForFormat(wxString const &path, BurnOutput output, ExportFormat const &format);
/// The index of the first format whose extension the name has, -1 for none; `preferred` before the
/// others where several have it.
int FormatOfName(wxString const &path, BurnOutput output, int preferred);
/// The file for the report on an export to `path`, beside it.
wxString ReportNameOf(wxString const &path);
