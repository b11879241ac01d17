// SPDX-License-Identifier: MIT
#include "painters/large_letters.h"

#include <wx/colour.h>
#include <wx/font.h>
#include <wx/fontutil.h>
#include <wx/graphics.h>

#ifdef __WXGTK3__
#include <cmath>
#include <memory>
#include <new>

#include <gdk/gdk.h>
#include <pango/pangocairo.h>
#endif

namespace framenote {

#ifdef __WXGTK3__

namespace {

/// In device pixels. What the graphics library keeps of a letter of this height are 16 kB, or
/// 64 kB of one in colours.
constexpr double kMostKept = 128.0;
constexpr double kPixelsPerInch = 96.0;
constexpr double kPointsPerInch = 72.0;

template <auto release>
struct Releaser {
  template <typename T>
  void operator()(T *object) const {
    release(object);
  }
};
using Layout = std::unique_ptr<PangoLayout, Releaser<g_object_unref>>;
using Surface = std::unique_ptr<cairo_surface_t, Releaser<cairo_surface_destroy>>;
using Cairo = std::unique_ptr<cairo_t, Releaser<cairo_destroy>>;

/// What is set on a surface meanwhile, and taken back at the end.
class SavedState {
public:
  explicit SavedState(cairo_t *cairo) : m_cairo(cairo) { cairo_save(cairo); }
  SavedState(SavedState const &) = delete;
  SavedState &operator=(SavedState const &) = delete;
  ~SavedState() { cairo_restore(m_cairo); }

private:
  cairo_t *m_cairo;
};

/// The font as the toolkit sets it, which follows the desktop's scale of fonts.
wxFont AsOnScreen(wxFont const &font) {
  GdkScreen *const screen = gdk_screen_get_default();
  double const scale = screen ? gdk_screen_get_resolution(screen) / kPixelsPerInch : 1.0;
  return scale == 1.0 ? font : font.Scaled(static_cast<float>(scale));
}

/// In device pixels; 0 on a mirrored surface, on which the toolkit has a way of its own.
double LetterHeight(cairo_t *cairo, wxFont const &font) {
  cairo_matrix_t matrix;
  cairo_get_matrix(cairo, &matrix);
  double const area = matrix.xx * matrix.yy - matrix.xy * matrix.yx;
  double const pixels = font.GetFractionalPointSize() * kPixelsPerInch / kPointsPerInch;
  return area > 0.0 ? pixels * std::sqrt(area) : 0.0;
}

Layout MakeLayout(cairo_t *cairo, wxString const &text, wxFont const &font) {
  Layout layout(pango_cairo_create_layout(cairo));
  pango_layout_set_font_description(layout.get(), font.GetNativeFontInfo()->description);
  wxScopedCharBuffer const bytes = text.utf8_str();
  pango_layout_set_text(layout.get(), bytes.data(), static_cast<int>(bytes.length()));
  font.GTKSetPangoAttrs(layout.get());
  return layout;
}

bool HasColours(PangoGlyphString const &letters) {
  for (int i = 0; i < letters.num_glyphs; ++i) {
    if (letters.glyphs[i].attr.is_color) return true;
  }
  return false;
}

bool HasColours(PangoLayout *layout) {
  for (GSList *line = pango_layout_get_lines_readonly(layout); line; line = line->next) {
    for (GSList *run = static_cast<PangoLayoutLine *>(line->data)->runs; run; run = run->next) {
      if (HasColours(*static_cast<PangoLayoutRun *>(run->data)->glyphs)) return true;
    }
  }
  return false;
}

/// A surface for what lies between the edges, `reduction` times smaller.
Surface MakeReduced(double width, double height, double reduction) {
  return Surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32,
                                            static_cast<int>(std::ceil(width / reduction)),
                                            static_cast<int>(std::ceil(height / reduction))));
}

/// Paints the layout `reduction` times smaller on a surface of its own and enlarges what is seen.
/// Throws std::bad_alloc: painting a surface that could not be made would stop all painting for
/// good, that of what hides as well.
void ShowEnlarged(cairo_t *cairo, PangoLayout *layout, double reduction) {
  cairo_matrix_t placed;
  cairo_get_matrix(cairo, &placed);
  cairo_identity_matrix(cairo);
  double left = 0.0;
  double top = 0.0;
  double right = 0.0;
  double bottom = 0.0;
  cairo_clip_extents(cairo, &left, &top, &right, &bottom);
  Surface const surface = MakeReduced(right - left, bottom - top, reduction);
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) throw std::bad_alloc();
  Cairo const reduced(cairo_create(surface.get()));
  cairo_scale(reduced.get(), 1.0 / reduction, 1.0 / reduction);
  cairo_translate(reduced.get(), -left, -top);
  cairo_transform(reduced.get(), &placed);
  cairo_set_source(reduced.get(), cairo_get_source(cairo));
  pango_cairo_update_layout(reduced.get(), layout);
  pango_cairo_show_layout(reduced.get(), layout);
  cairo_translate(cairo, left, top);
  cairo_scale(cairo, reduction, reduction);
  cairo_set_source_surface(cairo, surface.get(), 0.0, 0.0);
  cairo_paint(cairo);
}

void FillOutlines(cairo_t *cairo, PangoLayout *layout) {
  cairo_set_antialias(cairo, CAIRO_ANTIALIAS_DEFAULT);
  cairo_set_fill_rule(cairo, CAIRO_FILL_RULE_WINDING);
  cairo_new_path(cairo);
  pango_cairo_layout_path(cairo, layout);
  cairo_fill(cairo);
}

}  // namespace

bool DrawLargeLetters(wxGraphicsContext &context, wxString const &text,
                      wxPoint2DDouble const &topLeft, double angle, wxFont const &font,
                      wxColour const &colour) {
  auto *const cairo = static_cast<cairo_t *>(context.GetNativeContext());
  wxFont const shown = AsOnScreen(font);
  double const height = LetterHeight(cairo, shown);
  if (height <= kMostKept) return false;
  SavedState const saved(cairo);
  cairo_translate(cairo, topLeft.m_x, topLeft.m_y);
  cairo_rotate(cairo, -angle);
  cairo_set_operator(cairo, CAIRO_OPERATOR_OVER);
  cairo_set_source_rgba(cairo, colour.Red() / 255.0, colour.Green() / 255.0, colour.Blue() / 255.0,
                        colour.Alpha() / 255.0);
  Layout const layout = MakeLayout(cairo, text, shown);
  if (HasColours(layout.get())) {
    ShowEnlarged(cairo, layout.get(), height / kMostKept);
  } else {
    FillOutlines(cairo, layout.get());
  }
  return true;
}

#else

// The systems' own graphics libraries hold what they keep of letters within bounds.
bool DrawLargeLetters(wxGraphicsContext &, wxString const &, wxPoint2DDouble const &, double,
                      wxFont const &, wxColour const &) {
  return false;
}

#endif

}  // namespace framenote
