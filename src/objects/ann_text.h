// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include <wx/string.h>

#include "objects/boxed_object.h"
#include "properties/ann_text_properties.h"

class AnnTextToolMode;
class wxTextCtrl;

/// A text box: a rectangle without a border, filled with the text's background, and lines of text
/// that stay aligned in it when it is moved, resized, turned or mirrored.
///
/// The text may hold macros. The user's text is kept and saved; a second form, with the macros
/// replaced, is what is painted. A restored box has no such form, and paints its background only,
/// until ParseTextLines is called.
///
/// At most `m_maxLines` lines and `m_maxLength` characters of a text are replaced, measured and
/// painted; a longer text is kept and saved as it is.
class FRAMENOTE_API AnnText
    : public framenote::BoxedObject<AnnText, AnnTextToolMode, AnnTextProperties> {
public:
  using Macros = std::unordered_map<wxString, wxString>;  ///< what is replaced by what

  /// A new box with an empty text and the look of the text mode's record.
  AnnText(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
          std::shared_ptr<AnnTextToolMode> const &textMode, wxRect const &rect, std::int64_t frame);
  /// REQUIRES: IsJSONValid(json).
  AnnText(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
          std::shared_ptr<AnnTextToolMode> const &textMode, wxJSONValue const &json);
  /// A copy shares nothing with `other` but its modes.
  AnnText(AnnText const &other);
  ~AnnText() override;

  /// Whether an object can be made from `json`.
  static bool IsJSONValid(wxJSONValue const &json);

  void Draw(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) const override;
  void DrawSelected(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                    double scale) const override;
  /// Anywhere in the box or over its text, whether or not the background can be seen.
  bool Contains(wxPoint2DInt const &point) const override;
  void MoveFor(wxPoint2DInt const &delta) override;
  void MoveAllFramesFor(wxPoint2DInt const &delta) override;
  /// Whether the text is empty; the size of the box does not matter.
  bool WouldDisappear() const override;
  wxColour GetDominantColor() override;
  void UpdateProperties() override;
  void UpdateCoordinatesPointers(std::int64_t frame) override;

  /// The user's text, macros unreplaced.
  wxString GetText() const { return m_text; }
  /// The same by lines.
  std::vector<wxString> const &GetTextLines() const { return m_textLines; }
  /// The text as painted, macros replaced.
  wxString GetParsedText() const { return m_parsedText; }
  /// The look.
  AnnTextProperties const &TextProperties() const { return m_look; }
  /// Changes the look, and the fill that the box is hit by.
  void SetBackgroundColor(wxColour const &colour);

  /// `text` with each key of `macros` replaced by its value, in one pass over the map: whether a
  /// key in a value is replaced too depends on the map's order. An empty key is passed over. A
  /// result longer than both `text` and `m_maxLength` is cut off.
  static wxString ParseString(wxString const &text, Macros const &macros);
  /// Works out the painted text anew.
  void ParseTextLines(Macros const &macros);
  ///@{
  /// The text of a string is one line, whatever it holds; that of a control has the control's
  /// lines.
  void SetTextAndParse(wxString const &text, Macros const &macros);
  void SetTextAndParse(wxTextCtrl const &control, Macros const &macros);
  ///@}
  /// Appends to the last line.
  void AppendTextAndParse(wxString const &text, Macros const &macros);

  /// Anchors the text at the box again; after a resize also where the box was mirrored.
  void CalculateTextPosition(bool afterResize);
  /// Where the control that edits the text goes, in picture pixels: not turned, and about the same
  /// centre as the turned text.
  wxRect GetTextBoxPosition() const;
  /// Whether `point` lies on the text's block; `cursor` is then the text cursor, otherwise it
  /// stays.
  bool IsOverText(wxPoint2DInt const &point, wxStockCursor &cursor) const;
  /// Whether all of the text is painted, so that it can be edited as it is seen.
  bool IsShownWhole() const;

  static constexpr std::size_t m_maxLines = 1024;           ///< painted at most
  static constexpr std::size_t m_maxLength = 65536;         ///< painted at most, in characters
  static constexpr char const *textLinesKey = "TextLines";  ///< the mirror's member for the text

private:
  struct Layout;

  void initFromJSONVal() override;
  void onCornersDragged(bool isResize) override;
  void initializeRectangleProperties();
  void anchorText();
  void setJSONValTextLines();
  wxFont font() const;
  Layout layoutOf(AnnShapePoints const &record) const;
  void calculateTextArea(wxSize const &size, wxPoint &topLeft, wxPoint &topRight,
                         wxPoint &bottomRight, wxPoint &bottomLeft) const;
  void drawLines(IAnnPainter &painter, Layout const &layout, wxPoint2DDouble const &offset) const;

  wxPoint2DDouble m_textPosition;  ///< the top left corner, or the top right one of a mirrored box
  double m_textAngle = 0.0;        ///< radians
  wxString m_text;
  std::vector<wxString> m_textLines;
  wxString m_parsedText;
  std::vector<wxString> m_parsedTextLines;
};
