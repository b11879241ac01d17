// SPDX-License-Identifier: MIT
// The one place that knows where compiled catalogues are.
#include "framenote/annotation_catalogue.h"

#include <wx/dynlib.h>
#include <wx/filename.h>
#include <wx/translation.h>

namespace framenote {
namespace {

constexpr char const *kKeysLanguage = "en";

/// Where they are from the library's own folder: installed, and where it was built. Relative, so
/// that an installed tree may be moved.
constexpr char const *kFoldersFromLibrary[] = {FRAMENOTE_INSTALLED_CATALOGUES,
                                               FRAMENOTE_BUILT_CATALOGUES};

/// Empty if the system does not tell.
wxString LibraryFolder() {
  wxString path;
  wxDynamicLibrary::GetModuleFromAddress(kFoldersFromLibrary, &path);
  wxFileName file(path);
  file.MakeAbsolute();
  return path.empty() ? path : file.GetPath();
}

void SearchIn(wxString const &folder) {
  wxFileName path = wxFileName::DirName(folder);
  path.MakeAbsolute();
  if (path.DirExists()) wxFileTranslationsLoader::AddCatalogLookupPathPrefix(path.GetPath());
}

void SearchBesideLibrary() {
  static bool isDone = false;
  if (isDone) return;
  isDone = true;
  wxString const library = LibraryFolder();
  if (library.empty()) return;
  for (char const *folder : kFoldersFromLibrary) SearchIn(library + "/" + folder);
}

wxTranslations *TranslationsWith(wxString const &folder) {
  auto *const translations = wxTranslations::Get();
  if (translations == nullptr) return nullptr;
  if (!folder.empty()) SearchIn(folder);
  SearchBesideLibrary();
  return translations;
}

}  // namespace

bool AddAnnotationCatalogue(wxString const &folder) {
  auto *const translations = TranslationsWith(folder);
  return translations != nullptr && translations->AddCatalog(kCatalogueDomain, wxLANGUAGE_ENGLISH);
}

wxString BestAnnotationLanguage(wxString const &folder) {
  auto *const translations = TranslationsWith(folder);
  if (translations == nullptr) return {};
  return translations->GetBestTranslation(kCatalogueDomain, kKeysLanguage);
}

}  // namespace framenote
