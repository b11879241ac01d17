// SPDX-License-Identifier: MIT
#include "objects/shape_mask.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include <wx/brush.h>
#include <wx/graphics.h>
#include <wx/image.h>

#include "objects/shape_geometry.h"

namespace framenote {

namespace {

/// How far from its origin a drawing surface draws exactly.
constexpr double kMaxDrawn = 1 << 14;

void DrawForm(wxImage &image, ShapeMask::Form const &form, wxPoint2DDouble const &centre) {
  std::unique_ptr<wxGraphicsContext> const context(wxGraphicsContext::Create(image));
  if (!context) return;
  // A brush of its own: stock objects may be counted by other threads at the same time.
  context->SetBrush(wxBrush(wxColour(255, 255, 255)));
  context->Translate(centre.m_x, centre.m_y);
  if (form.angle != 0.0) context->Rotate(form.angle);
  double const left = form.width * -0.5;
  double const top = form.height * -0.5;
  switch (form.shape) {
    case AnnShapeProperties::Rectangle:
      context->DrawRectangle(left, top, form.width, form.height);
      break;
    case AnnShapeProperties::Ellipse:
      context->DrawEllipse(left, top, form.width, form.height);
      break;
  }
}

/// The same for shapes beyond what surfaces can hold, pixel by pixel.
void FillForm(wxImage &image, ShapeMask::Form const &form, wxPoint2DDouble const &centre) {
  double const cosine = std::cos(form.angle);
  double const sine = std::sin(form.angle);
  auto const isInside = [&](int column, int row) {
    double const x = column + 0.5 - centre.m_x;
    double const y = row + 0.5 - centre.m_y;
    // In halves of the shape's own sides.
    double const u = std::abs(x * cosine + y * sine) / (form.width * 0.5);
    double const v = std::abs(y * cosine - x * sine) / (form.height * 0.5);
    if (form.shape == AnnShapeProperties::Rectangle) return u <= 1.0 && v <= 1.0;
    return form.shape == AnnShapeProperties::Ellipse && u * u + v * v <= 1.0;
  };
  unsigned char *pixel = image.GetData();
  for (int y = 0; y < image.GetHeight(); ++y) {
    for (int x = 0; x < image.GetWidth(); ++x, pixel += 3) {
      if (isInside(x, y)) std::fill_n(pixel, 3, static_cast<unsigned char>(255));
    }
  }
}

wxBitmap MaskBitmap(ShapeMask::Form const &form) {
  if (form.area.x <= 0 || form.area.y <= 0) return wxNullBitmap;
  wxImage image(form.area, true);
  if (!image.IsOk()) return wxNullBitmap;
  wxPoint2DDouble const centre(form.area.x * 0.5 + form.offset.m_x,
                               form.area.y * 0.5 + form.offset.m_y);
  if (form.width > 0.0 && form.height > 0.0 && form.IsFinite()) {
    bool const isDrawable = std::max({form.width, form.height, std::abs(centre.m_x),
                                      std::abs(centre.m_y)}) <= kMaxDrawn;
    (isDrawable ? DrawForm : FillForm)(image, form, centre);
  }
  return wxBitmap(image, -1, 1.0);
}

/// Whether the corners are those of a rectangle, but for what a turn loses.
bool IsRectangular(AnnShapePoints const &record) {
  wxPoint2DDouble const fourth = record.m_topRight + (record.m_bottomLeft - record.m_topLeft);
  wxPoint2DDouble const across = record.m_topRight - record.m_topLeft;
  wxPoint2DDouble const down = record.m_bottomLeft - record.m_topLeft;
  double const skew = std::abs(across.GetDotProduct(down));
  double const longest = std::max({across.GetVectorLength(), down.GetVectorLength(), 1.0});
  // Negated, so that what is no number is no rectangle.
  return fourth.GetDistance(record.m_bottomRight) <= 1.0 && skew <= longest;
}

}  // namespace

wxBitmap RotatedMaskBitmap(wxPoint2DDouble const &offset, int width, int height, int shapeWidth,
                           int shapeHeight, double angle, AnnShapeProperties::Shape shape) {
  return MaskBitmap({offset, wxSize(width, height), static_cast<double>(shapeWidth),
                     static_cast<double>(shapeHeight), angle, shape});
}

bool ShapeMask::Form::IsFinite() const {
  return std::isfinite(width) && std::isfinite(height) && std::isfinite(angle) &&
         std::isfinite(offset.m_x) && std::isfinite(offset.m_y);
}

bool ShapeMask::Form::operator==(Form const &other) const {
  return offset == other.offset && area == other.area && width == other.width &&
         height == other.height && angle == other.angle && shape == other.shape;
}

ShapeMask::ShapeMask(Edge edge) : m_edge(edge) {}
ShapeMask::ShapeMask(ShapeMask const &other) : ShapeMask(other.m_edge) {}
ShapeMask::~ShapeMask() = default;

ShapeMask::Form ShapeMask::formOf(wxRect const &area, AnnShapePoints const &record, double angle,
                                  AnnShapeProperties::Shape shape) const {
  wxPoint2DDouble const middle(area.x + area.width * 0.5, area.y + area.height * 0.5);
  wxPoint2DDouble const centre = record.m_topLeft * 0.5 + record.m_bottomRight * 0.5;
  if (m_edge == Edge::Painted) {
    wxSize const size = GetSize(record);
    return {
        centre - middle, area.GetSize(), static_cast<double>(size.x), static_cast<double>(size.y),
        angle,           shape};
  }
  // On windows the corners are the corners of their pixels, in burnt-in frames the middles: the
  // shape reaches from the first pixel's beginning to the last one's end.
  auto const covering = [](double length) { return std::ceil(length) + 1.0; };
  return {centre + wxPoint2DDouble(0.5, 0.5) - middle,
          area.GetSize(),
          covering(record.m_topLeft.GetDistance(record.m_topRight)),
          covering(record.m_topLeft.GetDistance(record.m_bottomLeft)),
          angle,
          shape};
}

bool ShapeMask::IsFor(wxRect const &area, AnnShapePoints const &record, double angle,
                      AnnShapeProperties::Shape shape) const {
  return m_form && *m_form == formOf(area, record, angle, shape);
}

void ShapeMask::Cut(wxBitmap &bitmap, wxRect const &area, AnnShapePoints const &record,
                    double angle, AnnShapeProperties::Shape shape) {
  Form const form = formOf(area, record, angle, shape);
  if (!m_form || !(*m_form == form)) {
    // Only other programs make corners that the shape does not reach, or that have no bounds: then
    // all that is between them is covered.
    bool const isKnown =
        shape == AnnShapeProperties::Rectangle || shape == AnnShapeProperties::Ellipse;
    bool const coversAll =
        m_edge == Edge::Covered && isKnown && (!form.IsFinite() || !IsRectangular(record));
    wxBitmap const mask = coversAll ? wxNullBitmap : MaskBitmap(form);
    m_mask = mask.IsOk() ? std::make_unique<wxMask>(mask, wxColour(0, 0, 0)) : nullptr;
    m_form = form;
  }
  // Owned by the bitmap, which without a mask is painted whole.
  bitmap.SetMask(m_mask ? new wxMask(*m_mask) : nullptr);
}

}  // namespace framenote
