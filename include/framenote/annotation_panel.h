// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include <wx/colour.h>
#include <wx/panel.h>
#include <wx/scrolwin.h>
#include <wx/string.h>

#include "framenote/annotation_config.h"
#include "framenote/annotation_types.h"
#include "framenote/export.h"
#include "panel/annotation_controls_factory.h"
#include "talbase/json_value.h"

class AnnotationTool;
class wxBoxSizer;
class wxCheckBox;
class wxColourPickerCtrl;
class wxFilePickerCtrl;
class wxFlexGridSizer;
class wxFontPickerCtrl;
class wxGridSizer;
class wxOwnerDrawnComboBox;
class wxSizer;
class wxStaticText;
class wxToggleButton;

/// What the palette panel offers.
struct FRAMENOTE_API AnnotationPanelConfig {
  /// Each argument goes to the member of its meaning; `macros` may be null for none.
  AnnotationPanelConfig(bool withZoomMethod, bool withHideAll, bool withExtension,
                        AnnotationToolConfig::TextMacrosConfig const *macros);

  bool showZoomMethod;    ///< the magnifier's "Zoom Method" exists
  bool showHideAll;       ///< the "Hide All" toggle exists
  bool extensionEnabled;  ///< "Extension With Color:" exists
  AnnotationToolConfig::TextMacrosConfig const *textMacros;  ///< not owned; outlives the panel
};

/// The tool palette that a host shows beside the picture: a grid of eight toggle buttons, and below
/// it the properties of the pressed one. What is changed there goes to the record of the tool's
/// mode, and from there to the selected object; selecting an object shows its properties.
///
/// AnnotationTool::InitGui makes one; a host can also derive from it, to make its controls look
/// otherwise. Every control has a fixed identifier: the tool buttons the value of their Types, the
/// properties 10 to 46.
///
/// Its best size is that of all it shows; with less than that it scrolls.
class FRAMENOTE_API AnnotationPanel : public wxScrolled<wxPanel>, public AnnotationControlsFactory {
public:
  /// Makes no window: Create must follow.
  explicit AnnotationPanel(AnnotationPanelConfig const &config);
  /// The same with Create; `parent` owns the panel.
  AnnotationPanel(wxWindow *parent, std::shared_ptr<AnnotationTool> tool,
                  AnnotationPanelConfig const &config);
  /// False if there is no tool, or if the window cannot be made; then nothing is built.
  bool Create(wxWindow *parent, std::shared_ptr<AnnotationTool> tool);
  /// Puts what is shown where the scroll bars have it.
  void ScrollWindow(int dx, int dy, wxRect const *rect) override;

protected:
  ///@{
  /// Of the window and all below it; buttons and colour pickers keep their background.
  void setBackgroundColorRecursively(wxWindow *window, wxColour const &colour) override;
  void setForegroundColorRecursively(wxWindow *window, wxColour const &colour) override;
  ///@}
  wxSize DoGetBestSize() const override;  ///< in screen pixels

private:
  friend class AnnotationTool;

  /// A property panel that is being built: two columns, of labels and of controls.
  struct Page {
    Types type;  ///< the tool whose record it shows
    wxPanel *window;
    wxFlexGridSizer *grid;
  };
  using Labels = std::vector<char const *>;
  struct Range {
    double min, max, step;
  };

  // The tool buttons
  void AddTool(wxWindow *parent, Types id, wxString const &label, wxPanel *panel);
  void OnToolToggle(wxCommandEvent &event);
  void Deactivate();
  void DoToolToggle(wxToggleButton *button);
  void DoToolToggle(Types id);
  void layOutAnew();
  void onPagePainted(wxPaintEvent &event);

  // The General panel
  wxPanel *CreateGeneralPanel();
  wxBoxSizer *CreateHideClearSizer(wxPanel *panel);
  wxBoxSizer *CreatePreviousNextSizer(wxPanel *panel);
  wxBoxSizer *CreateExportSizer(wxPanel *panel);
  void askAndClear(wxWindow *parent);
  void SetHideAllToggleValue(bool value);
  void ToJSON(wxJSONValue &value) const;
  void FromJSON(wxJSONValue const &value);
  wxColour getExtensionColor() const;
  void setExtensionColor();

  // The property panels
  wxPanel *CreateShapePropertiesPanel();
  wxPanel *CreateArrowPropertiesPanel();
  wxPanel *CreatePencilPropertiesPanel();
  wxPanel *CreateTextPropertiesPanel();
  wxPanel *CreateImagePropertiesPanel();
  wxPanel *CreateHidePropertiesPanel();
  wxPanel *CreateMagnifyPropertiesPanel();
  /// Shows the records' values in the controls of a tool, and raises no event.
  void UpdateControls(int type) const;
  /// A drag was tried in the image mode without a picture: asks for one.
  void OnAnnImageNotSet();

  // Their rows: `get` reads the record, `set` writes it; the mode then applies it
  Page startPage(Types type, int rows);
  wxPanel *finishPage(Page const &page);
  void addRow(Page const &page, wxString const &label, wxWindow *control);
  void addRow(Page const &page, wxString const &label, wxSizer *controls);
  wxStaticText *makeLabel(Page const &page, wxString const &label,
                          std::vector<wxWindow *> const &controls);
  wxOwnerDrawnComboBox *makeList(Page const &page, int id, Labels const &labels,
                                 std::function<int()> const &get);
  void addChoice(Page const &page, int id, char const *label, Labels const &labels,
                 std::function<int()> const &get, std::function<void(int)> const &set);
  wxColourPickerCtrl *makeColour(Page const &page, int id, std::function<wxColour()> const &get);
  void addColour(Page const &page, int id, char const *label, std::function<wxColour()> const &get,
                 std::function<void(wxColour const &)> const &set);
  void addColourWithCheck(Page const &page, int pickerId, int checkId, char const *label,
                          std::function<wxColour()> const &get,
                          std::function<void(wxColour const &)> const &set,
                          std::function<void(int alpha)> const &alsoChecked);
  wxWindow *makeSlider(Page const &page, int id, Range const &range,
                       std::function<double()> const &get, std::function<void(int)> const &set);
  void addSlider(Page const &page, int id, char const *label, Range const &range,
                 std::function<double()> const &get, std::function<void(int)> const &set);
  wxCheckBox *makeCheck(Page const &page, int id, char const *label,
                        std::function<bool()> const &get, std::function<void(bool)> const &set);
  void onUpdate(Page const &page, std::function<void()> const &show);
  void apply(Types type);

  // The text panel's own
  void addFontRows(Page const &page);
  void addFontChoices(Page const &page);
  void addFontStyles(Page const &page);
  void addFontPickers(Page const &page);
  void addMacroRow(Page const &page);
  void addFontToggle(Page const &page, wxSizer *sizer, int id, char const *label,
                     std::function<void(wxFont &, bool)> const &change);
  void changeFont(std::function<void(wxFont &)> const &change);
  void updateTextPropertiesCustomControls() const;

  // The image panel's own
  void choosePicture(wxString const &path);

  AnnotationPanelConfig m_config;
  std::shared_ptr<AnnotationTool> m_tool;
  std::map<wxToggleButton *, wxPanel *> m_toolPanels;
  std::map<Types, std::vector<std::function<void()>>> m_updates;
  bool m_isMeasured = false;                 ///< what is shown, since it is shown
  wxToggleButton *m_activeToggle = nullptr;  // the windows are owned by their parents
  wxToggleButton *m_hideAllToggle = nullptr;
  wxCheckBox *m_extensionCheck = nullptr;
  wxColourPickerCtrl *m_extensionPicker = nullptr;
  wxOwnerDrawnComboBox *m_fontFaceCombo = nullptr;
  wxOwnerDrawnComboBox *m_fontSizeCombo = nullptr;
  wxColourPickerCtrl *m_fontColorPicker = nullptr;
  wxFontPickerCtrl *m_fontPicker = nullptr;
  wxFilePickerCtrl *m_filePicker = nullptr;
  wxGridSizer *m_toolGrid = nullptr;  // the sizers by their windows
  wxBoxSizer *m_propertySizer = nullptr;
};
