// SPDX-License-Identifier: MIT
#pragma once

#include <wx/colour.h>
#include <wx/string.h>

class wxFlexGridSizer;
class wxSizer;
class wxStaticText;
class wxWindow;

/// What the dialogs have in common.

/// Adds a row to a grid of two columns: the label, with its mnemonic and colon, and the control,
/// which screen readers call by it. Returns the label.
wxStaticText *AddLabelledRow(wxFlexGridSizer &grid, wxString const &label, wxWindow &control);
/// The same for a row of several controls, each of which has a name of its own.
wxStaticText *AddLabelledRow(wxFlexGridSizer &grid, wxWindow &parent, wxString const &label,
                             wxSizer *row);
/// The width of about that many characters in the window's font: fonts grow with the desktop's font
/// scale, which sizes in device-independent pixels do not know.
int WidthOfText(wxWindow const &window, int characters);
/// Makes a field wide enough for about that many characters, and high enough for its font.
void SizeField(wxWindow &field, int characters);
/// A label as a name: without mnemonic and colon.
wxString NameOfLabel(wxString const &label);
/// For texts that say what is wrong; read well on the background of windows.
wxColour WarningTextColour();
