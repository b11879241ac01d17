// SPDX-License-Identifier: MIT
#pragma once

#include <wx/string.h>

#include "framenote/export.h"

namespace framenote {

/// The name of the catalogue of messages: the file framenote.mo of each language. The library and
/// the programs share it. Texts are looked up in all catalogues that the host has added, the last
/// one first, so that a host can word them anew.
constexpr char const *kCatalogueDomain = "framenote";

/// Adds the catalogue to the host's wxTranslations, in their language, or in the user's if the host
/// has chosen none. It is searched for in `folder` too, which holds "de/LC_MESSAGES/framenote.mo"
/// and the like; without one, beside the library: where it was built or installed. To be called on
/// the GUI thread before the first tool or panel is made, as texts are looked up when they are
/// shown or offered. Returns whether the texts are there in that language, which for English they
/// always are; without wxTranslations nothing happens and the result is false.
FRAMENOTE_API bool AddAnnotationCatalogue(wxString const &folder = wxString());

/// The language of the catalogues that there are, or English, which suits the user best: as
/// "zh_CN", for wxTranslations::SetLanguage. Empty without wxTranslations.
FRAMENOTE_API wxString BestAnnotationLanguage(wxString const &folder = wxString());

}  // namespace framenote
