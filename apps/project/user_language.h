// SPDX-License-Identifier: MIT
#pragma once

#include <wx/intl.h>
#include <wx/string.h>

/// Loads the catalogues of the programs and of wxWidgets in the user's language, and returns it, as
/// "de". The variable LANGUAGE tells it, then the locale; the locale "C" or "POSIX" means English,
/// whatever LANGUAGE says, so that scripts can ask for it. Numbers do not change with it.
wxString UseUserLanguage();

/// In which direction a language is written. Unlike the locale's, this is known on machines that
/// have the catalogue but not the locale.
wxLayoutDirection DirectionOfLanguage(wxString const &language);
