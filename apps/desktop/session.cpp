// SPDX-License-Identifier: MIT
#include "desktop/session.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <utility>

#include "desktop/document_change.h"
#include "framenote/annotation_tool.h"
#include "media/media_error.h"
#include "media/picture_image.h"
#include "project/left_out_objects.h"
#include "project/text_macros.h"

namespace {

std::int64_t SizeOfFile(std::string const &path) {
  std::error_code error;
  std::uintmax_t const size = std::filesystem::file_size(path, error);
  return error ? -1 : static_cast<std::int64_t>(size);
}

}  // namespace

Session::Session(std::shared_ptr<AnnotationTool> tool, Handlers handlers,
                 std::string const &recoveryFolder)
    : m_tool(std::move(tool)), m_handlers(std::move(handlers)) {
  if (recoveryFolder.empty()) return;
  m_recovery = std::make_unique<RecoverySession>(recoveryFolder, m_handlers.onRecoveryFailure);
}

Session::~Session() = default;

void Session::Open(std::unique_ptr<MediaSource> source, Project const &project,
                   std::string const &projectPath, bool isRestored) {
  m_source = std::move(source);
  m_sum = std::make_unique<MediaSum>(m_source->Path());
  m_expected = project.media.facts;
  m_projectPath = projectPath;
  m_tool->FromJSON(project.document, FrameCount());
  m_leftOut = ObjectsLeftOut(project.document, *m_tool);
  m_tool->OnJsonChanged();
  m_incomplete.reset();
  m_history.Reset({m_tool->GetJSON(), -1, 0});
  if (isRestored) m_history.ForgetSaved();
  m_frame = 0;
  storeForRecovery();
  m_handlers.onChanged();
  ShowFrame(0, false);
}

void Session::Close() {
  m_source.reset();
  m_sum.reset();
  m_expected = {};
  m_leftOut = 0;
  m_projectPath.clear();
  m_picture = wxNullImage;
  m_isDamaged = false;
  m_frame = 0;
  m_tool->Reset(false);
  m_tool->SetImage(wxNullImage, false);
  m_incomplete.reset();
  m_history.Reset({m_tool->GetJSON(), -1, 0});
  DiscardRecovery();
  m_handlers.onFrameShown();
  m_handlers.onChanged();
}

std::vector<MediaDifference> Session::Differences() const {
  if (!m_source) return {};
  MediaFacts actual;
  actual.size = SizeOfFile(m_source->Path());
  actual.frameCount = FrameCount();
  if (IsSumKnown()) actual.sha256 = m_sum->Wait();
  return CompareMedia(m_expected, actual);
}

std::int64_t Session::FrameCount() const {
  return m_source ? m_source->Info().frameCount : 0;
}

void Session::ShowFrame(std::int64_t frame, bool isPlaying) {
  if (!m_source) return;
  m_frame = std::clamp<std::int64_t>(frame, 0, FrameCount() - 1);
  m_tool->UpdateMediaInfo({m_frame, FrameCount(), isPlaying});
  try {
    MediaFrame read = m_source->Read(m_frame);
    m_picture = ToImage(std::move(read.picture));
    m_isDamaged = read.isDamaged;
  } catch (MediaError const &) {
    m_picture = wxNullImage;
    m_isDamaged = true;
    m_tool->SetImage(m_picture, false);
    m_handlers.onFrameShown();
    throw;
  }
  m_tool->SetImage(m_picture, !isPlaying);
  m_tool->UpdateTextMacrosMap(MacroValues(*m_source, m_frame));
  m_handlers.onFrameShown();
}

void Session::TakeDocument() {
  if (!m_source) return;
  // What it cannot hold of a state is no step: it would be undone in place of the one that is
  // wanted, again and again.
  if (m_incomplete && m_incomplete->IsSameAs(m_tool->GetJSON())) return;
  m_incomplete.reset();
  if (!m_history.Record({m_tool->GetJSON(), selectedIndex(), m_frame})) return;
  storeForRecovery();
  m_handlers.onChanged();
}

void Session::EndGesture() {
  TakeDocument();
  m_history.EndGesture();
}

bool Session::Undo() {
  return load(m_history.Undo());
}

bool Session::Redo() {
  return load(m_history.Redo());
}

bool Session::load(History::State const &wanted) {
  m_tool->FromJSON(DocumentOf(wanted.annotations), FrameCount());
  m_tool->OnJsonChanged();
  DocumentChange const lost = CompareDocuments(wanted.annotations, m_tool->GetJSON());
  m_incomplete.reset();
  if (lost.kind != DocumentChange::Kind::None) m_incomplete = m_tool->GetJSON();
  ShowFrame(wanted.frame, false);
  if (!m_incomplete && wanted.selectedIndex >= 0) {
    m_tool->SelectObject(static_cast<std::size_t>(wanted.selectedIndex));
  }
  storeForRecovery();
  m_handlers.onChanged();
  bool const isUnseen =
      lost.kind == DocumentChange::Kind::Remove && lost.object != DocumentChange::Object::Picture;
  return lost.kind == DocumentChange::Kind::None || isUnseen;
}

int Session::selectedIndex() const {
  auto const &objects = m_tool->AnnotationObjects();
  auto const selected = std::find(objects.begin(), objects.end(), m_tool->GetSelectedObject());
  return selected == objects.end() ? -1
                                   : static_cast<int>(std::distance(objects.begin(), selected));
}

Project Session::snapshot(bool withSum) {
  Project project;
  project.document = DocumentOf(m_tool->GetJSON());
  project.media.path = std::filesystem::absolute(m_source->Path()).string();
  project.media.facts.size = SizeOfFile(m_source->Path());
  project.media.facts.frameCount = FrameCount();
  if (withSum || m_sum->IsReady()) project.media.facts.sha256 = m_sum->Wait();
  return project;
}

void Session::Save(std::string const &path) {
  Project const project = snapshot(true);
  WriteProject(path, project);
  m_projectPath = path;
  m_expected = project.media.facts;
  m_history.MarkSaved();
  DiscardRecovery();
  m_handlers.onChanged();
}

void Session::storeForRecovery() {
  if (!m_recovery) return;
  if (IsModified()) {
    m_recovery->Store(snapshot(false), m_projectPath);
  } else {
    m_recovery->Discard();
  }
}

void Session::DiscardRecovery() {
  if (m_recovery) m_recovery->Discard();
}

void Session::FinishRecovery() {
  if (m_recovery) m_recovery->Finish();
}
