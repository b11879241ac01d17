// SPDX-License-Identifier: MIT
#include "project/project_file.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>
#include <utility>

#include <wx/translation.h>

#include "framenote/annotation_events.h"
#include "project/atomic_file.h"
#include "project/file_error.h"
#include "project/path_text.h"
#include "talbase/json_text.h"

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kMaxFileSize = std::uintmax_t{1} << 31;
constexpr char const *kAnnotateKey = AnnotationJsonChangedEvent::m_annotateKey;
constexpr char const *kFormat = "framenote project";
constexpr int kFormatVersion = 1;

/// The folder as it really is, so that ".." in a relative path means the same whatever symbolic
/// link the project is opened through.
fs::path RealFolderOf(fs::path const &file) {
  std::error_code error;
  fs::path const whole = fs::absolute(file, error);
  fs::path const real = fs::weakly_canonical(error ? file : whole, error);
  return (error ? whole : real).parent_path();
}

/// The way from the project's folder to the media; empty where there is none.
std::string RelativePath(std::string const &media, std::string const &project) {
  if (media.empty() || project.empty()) return {};
  // The media's own name is the user's, even if it is a symbolic link.
  std::error_code error;
  fs::path const folder = fs::weakly_canonical(fs::path(media).parent_path(), error);
  if (error) return {};
  fs::path const way = folder.lexically_relative(RealFolderOf(project));
  if (way.empty()) return {};
  return (way / fs::path(media).filename()).lexically_normal().generic_string();
}

wxJSONValue JsonOfMedia(MediaReference const &media, std::string const &projectPath) {
  wxJSONValue json(wxJSONTYPE_OBJECT);
  std::string const relative = RelativePath(media.path, projectPath);
  if (!relative.empty()) json.Set("path", JsonOfPath(relative));
  if (!media.path.empty()) json.Set("absolutePath", JsonOfPath(media.path));
  MediaFacts const &facts = media.facts;
  if (facts.size >= 0) json.Set("size", wxJSONValue(static_cast<long long>(facts.size)));
  if (!facts.sha256.empty()) json.Set("sha256", wxJSONValue(facts.sha256.c_str()));
  if (facts.frameCount > 0) {
    json.Set("frameCount", wxJSONValue(static_cast<long long>(facts.frameCount)));
  }
  return json;
}

/// Members of another kind read as unknown: they only serve to find the media and to warn.
MediaReference MediaOfJson(wxJSONValue const &json) {
  MediaReference media;
  media.path = PathOfJson(json.ItemAt("absolutePath"));
  media.relativePath = PathOfJson(json.ItemAt("path"));
  wxJSONValue const size = json.ItemAt("size");
  if (size.IsInt()) media.facts.size = size.AsInt64();
  wxJSONValue const sha256 = json.ItemAt("sha256");
  if (sha256.IsString()) media.facts.sha256 = sha256.AsString().utf8_string();
  wxJSONValue const frameCount = json.ItemAt("frameCount");
  if (frameCount.IsInt()) media.facts.frameCount = frameCount.AsInt64();
  return media;
}

bool IsProject(wxJSONValue const &json) {
  return json.ItemAt("format").AsString() == kFormat;
}

/// Whether the project is of a format that may mean something else than what is read of it.
void RefuseNewer(wxJSONValue const &json, std::string const &path) {
  wxJSONValue const version = json.ItemAt("formatVersion");
  if (!version.IsInt() || version.AsInt64() < 1) {
    throw ProjectError(ProjectProblem::NotAProject, path, wxTRANSLATE("no version of the format"));
  }
  if (version.AsInt64() <= kFormatVersion) return;
  throw ProjectError(ProjectProblem::NewerVersion, path,
                     // TRANSLATORS: numbers of the format's versions.
                     Message(wxTRANSLATE("format %s, known up to %s"),
                             {std::to_string(version.AsInt64()), std::to_string(kFormatVersion)}));
}

wxJSONValue DocumentIn(wxJSONValue const &json, std::string const &path) {
  wxJSONValue const annotations = json.ItemAt(kAnnotateKey);
  if (!annotations.IsObject()) throw ProjectError(ProjectProblem::NoDocument, path);
  return DocumentOf(annotations);
}

wxJSONValue ReadJson(std::string const &path) {
  wxJSONValue json = JsonFromUtf8(ReadWholeFile(path));
  if (!json.IsValid()) throw ProjectError(ProjectProblem::NotJson, path);
  return json;
}

}  // namespace

std::string ReadWholeFile(std::string const &path) {
  std::error_code error;
  fs::file_status const status = fs::status(path, error);
  if (!fs::status_known(status)) {
    throw ProjectError(ProjectProblem::ReadFailed, path, error.message());
  }
  if (!fs::exists(status)) throw ProjectError(ProjectProblem::NotFound, path);
  if (!fs::is_regular_file(status)) throw ProjectError(ProjectProblem::NotAFile, path);
  if (fs::file_size(path, error) > kMaxFileSize || error) {
    throw ProjectError(ProjectProblem::TooLarge, path);
  }
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  std::ostringstream bytes;
  // An empty file puts nothing into the stream, which then counts as failed.
  if (file && file.peek() != std::ifstream::traits_type::eof()) bytes << file.rdbuf();
  if (!file.is_open() || file.bad() || !bytes) {
    std::string const detail = errno != 0 ? std::generic_category().message(errno) : "";
    throw ProjectError(ProjectProblem::ReadFailed, path, detail);
  }
  return bytes.str();
}

wxJSONValue DocumentOf(wxJSONValue const &annotations) {
  wxJSONValue document(wxJSONTYPE_OBJECT);
  document.Set(kAnnotateKey, annotations.IsObject() ? annotations : wxJSONValue(wxJSONTYPE_OBJECT));
  return document;
}

Project ReadProject(std::string const &path) {
  return ProjectOfJson(ReadJson(path), path);
}

wxJSONValue ReadDocument(std::string const &path) {
  wxJSONValue const json = ReadJson(path);
  if (IsProject(json)) RefuseNewer(json, path);
  return DocumentIn(json, path);
}

void WriteProject(std::string const &path, Project const &project) {
  try {
    WriteFileAtomically(path, JsonToUtf8(JsonOfProject(project, path)) + "\n");
  } catch (FileError const &error) {
    throw ProjectError(ProjectProblem::WriteFailed, path, error.Cause());
  }
}

wxJSONValue JsonOfProject(Project const &project, std::string const &path) {
  wxJSONValue json(wxJSONTYPE_OBJECT);
  json.Set("format", wxJSONValue(kFormat));
  json.Set("formatVersion", wxJSONValue(kFormatVersion));
  json.Set("libraryVersion", wxJSONValue(FRAMENOTE_VERSION));
  json.Set("media", JsonOfMedia(project.media, path));
  json.Set(kAnnotateKey, DocumentOf(project.document.ItemAt(kAnnotateKey)).ItemAt(kAnnotateKey));
  return json;
}

Project ProjectOfJson(wxJSONValue const &json, std::string const &path) {
  if (!IsProject(json)) throw ProjectError(ProjectProblem::NotAProject, path);
  RefuseNewer(json, path);
  Project project;
  project.document = DocumentIn(json, path);
  project.media = MediaOfJson(json.ItemAt("media"));
  wxJSONValue const version = json.ItemAt("libraryVersion");
  if (version.IsString()) project.version = version.AsString();
  return project;
}

MediaLookup FindMedia(Project const &project, std::string const &projectPath) {
  MediaLookup lookup;
  if (!project.media.relativePath.empty() && !projectPath.empty()) {
    fs::path const candidate = RealFolderOf(projectPath) / project.media.relativePath;
    lookup.tried.push_back(candidate.lexically_normal().string());
  }
  if (!project.media.path.empty()) lookup.tried.push_back(project.media.path);
  for (std::size_t i = 0; i < lookup.tried.size(); ++i) {
    std::error_code error;
    if (!fs::is_regular_file(lookup.tried[i], error)) continue;
    lookup.path = lookup.tried[i];
    lookup.tried.resize(i + 1);
    break;
  }
  return lookup;
}

std::vector<MediaDifference> CompareMedia(MediaFacts const &expected, MediaFacts const &actual) {
  std::vector<MediaDifference> differences;
  bool const hasSizes = expected.size >= 0 && actual.size >= 0;
  if (hasSizes && expected.size != actual.size) differences.push_back(MediaDifference::Size);
  bool const hasSums = !expected.sha256.empty() && !actual.sha256.empty();
  if (hasSums && expected.sha256 != actual.sha256) differences.push_back(MediaDifference::Sha256);
  bool const hasCounts = expected.frameCount > 0 && actual.frameCount > 0;
  if (hasCounts && expected.frameCount != actual.frameCount) {
    differences.push_back(MediaDifference::FrameCount);
  }
  return differences;
}
