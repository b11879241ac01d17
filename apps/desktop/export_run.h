// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "project/burn_job.h"
#include "talbase/json_value.h"

class wxWindow;

enum class ExportOutcome { Done, Cancelled, Failed };

/// Exports with a progress window of its own, and tells the user how it ended: what went wrong, or
/// that it is done, with an offer to open the folder. All other windows are disabled meanwhile, but
/// repaint. An export that is cancelled or fails leaves no file.
///
/// The media is opened anew, so that the caller's source stays as it is; `indexFolder` is where
/// indexes of videos are kept (MediaOptions::cacheFolder). `document` is an object with the member
/// "Annotate". Belongs to the GUI thread; timers and events of the program go on running, so a
/// caller stops what plays before.
ExportOutcome RunExport(wxWindow *parent, std::string const &mediaPath, wxJSONValue const &document,
                        BurnSettings const &settings, std::string const &indexFolder = {});
