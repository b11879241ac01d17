// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <wx/string.h>

#include "project/project_error.h"
#include "talbase/json_value.h"

/// Projects: a JSON file that holds the document of the library and says which media it is for.
///
/// | member           | holds                                                               |
/// |------------------|---------------------------------------------------------------------|
/// | `format`         | `"framenote project"`                                               |
/// | `formatVersion`  | 1; a program refuses numbers beyond those it knows                  |
/// | `libraryVersion` | the version of Framenote that wrote it                              |
/// | `media`          | `path`, relative to the project's folder, `absolutePath`, `size`,   |
/// |                  | `sha256` and `frameCount`; each only where it is known              |
/// | `Annotate`       | the annotations; so FromJSON of the library takes the whole project |
///
/// Paths are in the bytes of the file system. Functions that throw, throw ProjectError.

constexpr char const *kProjectExtension = ".framenote";

/// What tells one media file from another.
struct MediaFacts {
  std::int64_t size = -1;       ///< in bytes; negative: unknown
  std::string sha256;           ///< in lower case; empty: unknown
  std::int64_t frameCount = 0;  ///< 0: unknown
};

struct MediaReference {
  std::string path;          ///< absolute; empty: no media
  std::string relativePath;  ///< from the project's folder, as it was read
  MediaFacts facts;
};

struct Project {
  wxJSONValue document;  ///< an object with the member "Annotate", as the library's FromJSON takes
  MediaReference media;
  wxString version;  ///< of the library that wrote it, as it was read
};

/// A document of the library's annotation value (AnnotationTool::GetJSON). A tool that has not been
/// used yet has none; its document is one without objects.
wxJSONValue DocumentOf(wxJSONValue const &annotations);

Project ReadProject(std::string const &path);
/// Reads the document of a project, or of any JSON object that has a member "Annotate".
wxJSONValue ReadDocument(std::string const &path);
/// Writes the file whole or not at all. The relative path is worked out from media.path.
void WriteProject(std::string const &path, Project const &project);

/// What WriteProject writes. `path` is where the project is or will be; empty if it has no place
/// yet. Cheap: the value shares the document.
wxJSONValue JsonOfProject(Project const &project, std::string const &path);
/// Reads that. `path` is what errors name.
Project ProjectOfJson(wxJSONValue const &json, std::string const &path);

/// The bytes of a regular file of up to 2 GiB: pipes and devices could block for ever.
std::string ReadWholeFile(std::string const &path);

struct MediaLookup {
  std::string path;                ///< the file that is meant; empty if there is none
  std::vector<std::string> tried;  ///< in this order, up to the one that is there
};

/// Finds the project's media: beside the project, as it was when it was saved, or else at the
/// absolute path.
MediaLookup FindMedia(Project const &project, std::string const &projectPath);

enum class MediaDifference { Size, Sha256, FrameCount };

/// What differs, of the facts that both sides know: the annotations were made on other media.
std::vector<MediaDifference> CompareMedia(MediaFacts const &expected, MediaFacts const &actual);
