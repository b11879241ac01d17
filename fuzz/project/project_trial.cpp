// SPDX-License-Identifier: MIT
#include "project/project_trial.h"

#include <unistd.h>

#include <fstream>
#include <string>
#include <system_error>

#include "project/project_error.h"
#include "project/project_file.h"
#include "project/recovery_store.h"
#include "support/session.h"
#include "talbase/json_text.h"

namespace framenote::fuzz {
namespace {

namespace fs = std::filesystem;

void Write(fs::path const &path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) Fail("cannot write " + path.string());
}

}  // namespace

ProjectTrial::ProjectTrial()
    : m_folder(fs::temp_directory_path() / ("framenote-fuzz-" + std::to_string(getpid()))),
      m_projectPath(m_folder / "input.framenote"),
      m_recoveryPath(m_folder / "1-0123456789abcdef.recovery") {
  fs::create_directories(m_folder);
}

ProjectTrial::~ProjectTrial() {
  std::error_code ignored;  // what is left is a temporary file
  fs::remove_all(m_folder, ignored);
}

void ProjectTrial::Run(std::string_view bytes) {
  Write(m_projectPath, bytes);
  Write(m_recoveryPath, bytes);
  readAsProject();
  readAsRecoveryFile();
}

// A refusal is an answer; anything else that is thrown ends the process.
void ProjectTrial::readAsProject() const {
  try {
    writeBack(ReadProject(m_projectPath.string()));
  } catch (ProjectError const &) {
  }
  try {
    ReadDocument(m_projectPath.string());
  } catch (ProjectError const &) {
  }
}

void ProjectTrial::readAsRecoveryFile() const {
  for (RecoveryOrphan const &orphan : FindOrphans(m_folder.string())) {
    try {
      writeBack(ReadOrphan(orphan));
    } catch (ProjectError const &) {
    }
  }
}

void ProjectTrial::writeBack(Project const &project) const {
  std::string const path = m_projectPath.string();
  FindMedia(project, path);
  wxJSONValue const written = JsonOfProject(project, path);
  wxJSONValue const read = JsonFromUtf8(JsonToUtf8(written));
  if (!read.IsSameAs(written)) Fail("a project does not survive its text form");
  Project const again = ProjectOfJson(read, path);
  if (!again.document.IsSameAs(project.document)) Fail("the document of a project has changed");
  if (!JsonOfProject(again, path).IsSameAs(written)) {
    Fail("a project that was written is written otherwise the next time");
  }
}

}  // namespace framenote::fuzz
