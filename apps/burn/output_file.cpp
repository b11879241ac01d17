// SPDX-License-Identifier: MIT
#include "output_file.h"

#include <filesystem>
#include <system_error>

#include <wx/file.h>
#include <wx/filename.h>
#include <wx/log.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace {

namespace fs = std::filesystem;

std::string LastError() {
  return wxString(wxSysErrorMsgStr()).utf8_string();
}

/// A new file beside `path`, opened for writing; its name is empty on failure.
wxString MakeTemporaryFile(fs::path const &path, wxFile &file) {
  return wxFileName::CreateTempFileName(wxString::FromUTF8(path.string() + ".part-"), &file);
}

/// Gives the file the rights that a new file gets here: a temporary one starts out private.
void TakeDefaultRights(fs::path const &path) {
#ifndef _WIN32
  std::error_code ignored;
  mode_t const mask = umask(0);
  umask(mask);
  fs::permissions(path, static_cast<fs::perms>(0666 & ~mask), ignored);
#endif
}

}  // namespace

std::string WriteWhole(std::string const &path, std::string const &bytes) {
  fs::path const target(path);
  std::error_code error;
  if (fs::exists(target, error) && !fs::is_regular_file(target, error)) return "not a file";
  wxFile file;
  wxString const temporary = MakeTemporaryFile(target, file);
  if (temporary.empty()) return LastError();
  fs::path const written(temporary.utf8_string());
  bool const isWritten = file.Write(bytes.data(), bytes.size()) == bytes.size() && file.Flush();
  std::string failure = isWritten ? std::string() : LastError();
  file.Close();
  if (isWritten) {
    TakeDefaultRights(written);
    fs::rename(written, target, error);
    if (!error) return {};
    failure = error.message();
  }
  fs::remove(written, error);
  return failure;
}
