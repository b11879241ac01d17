// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string_view>

struct Project;

namespace framenote::fuzz {

/// What happens to the bytes of a file that may be a project or a recovery file. The files lie in a
/// folder of the trial's own.
class ProjectTrial {
public:
  ProjectTrial();
  ProjectTrial(ProjectTrial const &) = delete;
  ProjectTrial &operator=(ProjectTrial const &) = delete;
  ~ProjectTrial();

  /// Ends the process if the bytes show a defect.
  void Run(std::string_view bytes);

private:
  void readAsProject() const;
  void readAsRecoveryFile() const;
  void writeBack(Project const &project) const;

  std::filesystem::path m_folder;
  std::filesystem::path m_projectPath;
  std::filesystem::path m_recoveryPath;
};

}  // namespace framenote::fuzz
