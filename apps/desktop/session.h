// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <wx/image.h>

#include "desktop/history.h"
#include "desktop/media_sum.h"
#include "media/media_source.h"
#include "project/project_file.h"
#include "project/recovery_store.h"

class AnnotationTool;

/// What a window of the desktop host has open: media, the annotations on it, the project that they
/// are kept in, and the steps that can be undone. It keeps the tool at the frame that is shown.
/// Belongs to the GUI thread.
class Session {
public:
  /// What the window is told.
  struct Handlers {
    std::function<void()> onFrameShown;  ///< another frame, or another picture of it
    std::function<void()> onChanged;     ///< the document, its file, or whether it is saved
    /// Recovery does not work, for what was thrown. May come from another thread.
    std::function<void(std::exception_ptr const &)> onRecoveryFailure;
  };

  /// `recoveryFolder` is empty for a session without recovery.
  Session(std::shared_ptr<AnnotationTool> tool, Handlers handlers,
          std::string const &recoveryFolder);
  Session(Session const &) = delete;
  Session &operator=(Session const &) = delete;
  ~Session();

  // --- Opening ---

  /// Shows media with the annotations of a project; `projectPath` is empty for annotations without
  /// a file. `isRestored` says that they come from a recovery file, and are not saved.
  void Open(std::unique_ptr<MediaSource> source, Project const &project,
            std::string const &projectPath, bool isRestored);
  /// Leaves nothing open.
  void Close();

  bool HasMedia() const { return m_source != nullptr; }
  /// REQUIRES: HasMedia().
  MediaSource &Source() const { return *m_source; }
  std::string const &ProjectPath() const { return m_projectPath; }
  /// In which the media differs from the one that the project was made on, of what is known now;
  /// the sum is known some time after opening.
  std::vector<MediaDifference> Differences() const;
  bool IsSumKnown() const { return m_sum && m_sum->IsReady(); }

  /// How many objects of what was opened are not there: they could not be read, or leave no trace.
  /// They are not in what is saved.
  int LeftOut() const { return m_leftOut; }

  // --- Frames ---

  std::int64_t Frame() const { return m_frame; }
  std::int64_t FrameCount() const;
  /// Goes there; a frame beyond the ends is the first or the last. Throws MediaError if the frame
  /// cannot be read; the session then is at that frame, with no picture.
  void ShowFrame(std::int64_t frame, bool isPlaying);
  wxImage const &Picture() const { return m_picture; }
  /// Whether the decoder had to make up parts of the picture that is shown.
  bool IsDamaged() const { return m_isDamaged; }

  // --- Changes ---

  /// Takes the document as it is now: a step, if it changed. The tool tells of changes later than
  /// it makes them, so the value decides and not the event.
  void TakeDocument();
  /// What happens until EndGesture is one step.
  void BeginGesture() { m_history.BeginGesture(); }
  void EndGesture();
  History const &Steps() const { return m_history; }
  /// Goes to the state before, or after, and to the frame where the two differ. False if an object
  /// of it cannot be made any more, as a picture whose file is gone; one that cannot be seen
  /// goes without a word. What has not been taken by
  /// TakeDocument() is no step, and gone.
  /// REQUIRES: Steps().CanUndo(), or CanRedo().
  bool Undo();
  bool Redo();

  // --- Saving ---

  bool IsModified() const { return m_source && m_history.IsModified(); }
  /// Writes the project, and keeps to that file from then on. Throws ProjectError.
  void Save(std::string const &path);
  /// The user gives up what is not saved, or everything is saved: no recovery is offered.
  void DiscardRecovery();
  /// Waits until the recovery file is written, for the end of the desktop's session.
  void FinishRecovery();

private:
  Project snapshot(bool withSum);
  bool load(History::State const &wanted);
  int selectedIndex() const;
  void storeForRecovery();

  std::shared_ptr<AnnotationTool> m_tool;
  Handlers m_handlers;
  std::unique_ptr<RecoverySession> m_recovery;
  std::unique_ptr<MediaSource> m_source;
  std::unique_ptr<MediaSum> m_sum;
  MediaFacts m_expected;  ///< of the media that the project was made on
  std::string m_projectPath;
  int m_leftOut = 0;
  /// The document as the tool made it from a step, where it cannot hold all of that: an object that
  /// cannot be seen, or whose picture is gone.
  std::optional<wxJSONValue> m_incomplete;
  History m_history;
  std::int64_t m_frame = 0;
  wxImage m_picture;
  bool m_isDamaged = false;
};
