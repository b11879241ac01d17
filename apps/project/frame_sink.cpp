// SPDX-License-Identifier: MIT
#include "project/frame_sink.h"

#include <algorithm>
#include <filesystem>
#include <limits>
#include <stdexcept>
#include <utility>

#include <wx/image.h>
#include <wx/mstream.h>
#include <wx/translation.h>

#include "media/media_error.h"
#include "project/atomic_file.h"
#include "project/output_name.h"

namespace {

/// One picture, or one for each frame.
class PictureSink : public FrameSink {
public:
  explicit PictureSink(std::string path) : m_path(std::move(path)) {}

  void Write(std::int64_t frame, Picture const &picture) override {
    std::string const path = OutputPathOf(m_path, frame);
    auto file = std::make_unique<AtomicFile>(path);
    file->Write(Encoded(picture, path));
    // So that a long row of pictures does not keep as many files open.
    file->CloseOnDisk();
    m_files.push_back({path, std::move(file)});
  }

  std::vector<OutputFile> Complete() override {
    std::vector<OutputFile> files;
    for (auto const &[path, file] : m_files) files.push_back({file->TemporaryPath(), path});
    return files;
  }

  void Publish() override {
    for (auto const &[path, file] : m_files) file->Commit();
  }

private:
  struct File {
    std::string path;
    std::unique_ptr<AtomicFile> file;
  };

  static std::string Encoded(Picture const &picture, std::string const &path) {
    // The image borrows the pixels, and reads them only.
    wxImage const image(picture.Width(), picture.Height(),
                        const_cast<unsigned char *>(picture.Pixels()), true);
    wxMemoryOutputStream stream;
    if (!image.SaveFile(stream, PictureTypeOf(path))) {
      throw MediaError(MediaProblem::WriteFailed, path, wxTRANSLATE("cannot be encoded"));
    }
    std::string bytes(stream.GetSize(), '\0');
    stream.CopyTo(bytes.data(), bytes.size());
    return bytes;
  }

  std::string m_path;
  std::vector<File> m_files;
};

/// A video. It starts with the first picture, whose size it has.
class VideoSink : public FrameSink {
public:
  VideoSink(MediaSource const &source, BurnSettings const &settings)
      : m_source(source), m_settings(settings), m_file(settings.output) {}

  void Write(std::int64_t frame, Picture const &picture) override {
    underItsName([&] {
      if (!m_writer) start(picture);
      if (wxSize(picture.Width(), picture.Height()) != m_size) {
        throw MediaError(MediaProblem::Unsupported, m_settings.output,
                         wxTRANSLATE("pictures of two sizes"));
      }
      m_writer->Write(picture, m_source.TimeStamp(frame), m_source.Duration(frame));
    });
  }

  std::vector<OutputFile> Complete() override {
    underItsName([&] { m_writer->Finish(); });
    std::string const audio = m_writer->AudioProblem();
    if (!audio.empty()) {
      m_problem = Message(wxTRANSLATE("some of its sound is missing or damaged (%s)"), {audio});
    }
    m_writer.reset();
    m_file.CloseOnDisk();
    return {{m_file.TemporaryPath(), m_settings.output}};
  }

  Message Problem() const override { return m_problem; }

  void Publish() override { m_file.Commit(); }

private:
  /// What the writer says of the temporary file, it says of the output.
  template <class Work>
  void underItsName(Work const &work) const {
    try {
      work();
    } catch (MediaError const &error) {
      if (error.Path() != m_file.TemporaryPath()) throw;
      throw MediaError(error.Problem(), m_settings.output, error.Detail());
    }
  }

  void start(Picture const &picture) {
    m_size = wxSize(picture.Width(), picture.Height());
    MediaInfo const &info = m_source.Info();
    VideoSettings video;
    video.codec = m_settings.codec;
    video.width = picture.Width();
    video.height = picture.Height();
    video.timeBase = info.timeBase;
    if (!info.hasVariableRate) video.frameRate = info.frameRate;
    video.pixelShape = info.pixelShape;
    video.quality = m_settings.quality;
    // Pictures of other sources, such as those of RGB, take the matrix of high definition.
    if (IsWrittenMatrix(info.colourMatrix)) video.colourMatrix = info.colourMatrix;
    video.keepMetadata = m_settings.keepMetadata;
    takeRange(video);
    m_writer = CreateVideo(m_file.TemporaryPath(), m_settings.output, video);
  }

  /// The whole of a source keeps its clock, and its sound before and after the pictures; a part of
  /// it starts at 0 and has the sound of its own time.
  void takeRange(VideoSettings &video) const {
    FrameRange const &range = m_settings.range;
    MediaInfo const &info = m_source.Info();
    if (m_settings.keepAudio && info.hasAudio) video.audioFrom = m_source.Path();
    bool const isWhole = range.first == 0 && range.last + 1 == info.frameCount;
    if (isWhole) {
      video.origin = std::min<std::int64_t>(0, m_source.TimeStamp(0));
      video.audioBegin = -std::numeric_limits<double>::infinity();
      video.audioEnd = std::numeric_limits<double>::infinity();
      return;
    }
    video.origin = m_source.TimeStamp(range.first);
    double const unit = info.timeBase.Value();
    video.audioBegin = static_cast<double>(video.origin) * unit;
    video.audioEnd =
        static_cast<double>(m_source.TimeStamp(range.last) + m_source.Duration(range.last)) * unit;
  }

  MediaSource const &m_source;
  BurnSettings const m_settings;
  AtomicFile m_file;
  std::unique_ptr<VideoWriter> m_writer;
  wxSize m_size;
  Message m_problem;
};

}  // namespace

std::unique_ptr<FrameSink> MakeFrameSink(MediaSource const &source, BurnSettings const &settings) {
  switch (BurnOutputOf(settings.output)) {
    case BurnOutput::Picture:
    case BurnOutput::Pictures:
      return std::make_unique<PictureSink>(settings.output);
    case BurnOutput::Video:
      return std::make_unique<VideoSink>(source, settings);
    case BurnOutput::Unknown:
      break;
  }
  throw std::invalid_argument(UnknownOutputText(settings.output));
}
