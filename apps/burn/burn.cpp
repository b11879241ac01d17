// SPDX-License-Identifier: MIT
#include "burn/burn.h"

#include <memory>
#include <string>
#include <utility>

#include <wx/translation.h>

#include "burn/burn_options.h"
#include "media/media_error.h"
#include "media/message.h"
#include "project/project_file.h"

namespace {

wxString FromArgument(std::string const &utf8) {
  wxString const text = wxString::FromUTF8(utf8);
  if (text.empty() && !utf8.empty()) {
    throw ArgumentError(Message(wxTRANSLATE("%s wants UTF-8"), {"--macro"}).Translated());
  }
  return text;
}

/// The media to burn into: what the arguments say, or else what the project was made on.
std::string InputOf(BurnOptions const &options) {
  if (!options.input.empty()) return options.input;
  Project const project = ReadProject(options.document);
  MediaLookup const lookup = FindMedia(project, options.document);
  if (!lookup.path.empty()) return lookup.path;
  std::string const name = lookup.tried.empty() ? options.document : lookup.tried.front();
  throw MediaError(MediaProblem::NotFound, name);
}

BurnLook LookOf(BurnOptions const &options) {
  BurnLook look;
  look.withDeviceContext = options.withDeviceContext;
  look.extend = options.extend;
  look.stillFrame = options.frame.value_or(0);
  for (auto const &[name, value] : options.macros) {
    look.macros.emplace_back(FromArgument(name), FromArgument(value));
  }
  return look;
}

/// The frames to burn. A still picture is one, whatever frame of the document it stands for.
FrameRange RangeOf(BurnOptions const &options, MediaInfo const &info) {
  if (info.kind == MediaInfo::Kind::Still) {
    if (options.range) {
      Message const why(wxTRANSLATE("%s wants a video; a picture takes %s"),
                        {"--frames", "--frame"});
      throw ArgumentError(why.Translated());
    }
    return {0, 0};
  }
  if (options.range) return *options.range;
  if (options.frame) return {*options.frame, *options.frame};
  if (BurnOutputOf(options.output) == BurnOutput::Picture) return {0, 0};
  return {0, info.frameCount - 1};
}

/// Without --codec a video that is to be shared is H.264, and one in Matroska lossless.
VideoCodec CodecOf(BurnOptions const &options) {
  if (options.codec) return *options.codec;
  return IsMatroska(options.output) ? VideoCodec::FFV1 : VideoCodec::H264;
}

}  // namespace

BurnResult Burn(BurnOptions const &options,
                std::function<bool(BurnProgress const &)> const &progress) {
  if (BurnOutputOf(options.output) == BurnOutput::Unknown) {
    throw ArgumentError(UnknownOutputText(options.output));
  }
  BurnSettings settings;
  settings.look = LookOf(options);
  wxJSONValue const document = ReadDocument(options.document);
  MediaOptions media;
  media.progress = [&](double) { return progress({}); };
  media.keptBytes = 0;
  std::unique_ptr<MediaSource> const source = OpenMedia(InputOf(options), media);
  settings.range = RangeOf(options, source->Info());
  settings.output = options.output;
  settings.codec = CodecOf(options);
  settings.quality = options.quality;
  settings.keepAudio = options.keepAudio;
  settings.keepMetadata = options.keepMetadata;
  settings.report = options.report;
  settings.documentFile = options.document;
  try {
    return RunBurnJob(*source, document, settings, progress);
  } catch (std::invalid_argument const &error) {
    throw ArgumentError(error.what());
  }
}
