// SPDX-License-Identifier: MIT
#include "document/document_trial.h"

#include <string>

#include <wx/dcmemory.h>

#include "framenote/annotation_events.h"
#include "framenote/annotation_tool.h"
#include "objects/annotation_object.h"
#include "painters/ann_painter.h"
#include "support/document_grammar.h"
#include "support/session.h"
#include "talbase/json_text.h"

namespace framenote::fuzz {
namespace {

constexpr int kWidth = 64;
constexpr int kHeight = 48;
constexpr std::int64_t kFrameCount = 4;
constexpr double kScale = 1.5;
wxPoint2DDouble const kOffset(3.25, -2.5);

/// No two pixels next to each other are the same, so that hiding and magnifying have work to do.
wxImage PatternPicture() {
  wxImage picture(kWidth, kHeight);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      picture.SetRGB(x, y, static_cast<unsigned char>(x * 4), static_cast<unsigned char>(y * 5),
                     static_cast<unsigned char>((x ^ y) * 4));
    }
  }
  return picture;
}

std::shared_ptr<AnnotationTool> MakeTool(bool rendersWithDeviceContext, bool isExtended) {
  AnnotationToolConfig const config(true, rendersWithDeviceContext, true, true, isExtended, {});
  return std::make_shared<AnnotationTool>(config);
}

/// The text with the place of the pictures in it: an input is the same on every machine.
std::string WithPictures(std::string_view text) {
  std::string_view const token = kPictureFolder;
  std::string result;
  std::size_t at = 0;
  for (std::size_t found = text.find(token); found != std::string_view::npos;
       found = text.find(token, at)) {
    result.append(text.substr(at, found - at)).append(FRAMENOTE_FUZZ_PICTURES);
    at = found + token.size();
  }
  return result.append(text.substr(at));
}

wxJSONValue DocumentOf(AnnotationTool const &tool) {
  wxJSONValue annotations(wxJSONTYPE_OBJECT);
  tool.ToJSON(annotations);
  wxJSONValue document(wxJSONTYPE_OBJECT);
  document.Set(AnnotationJsonChangedEvent::m_annotateKey, annotations);
  return document;
}

}  // namespace

DocumentTrial::DocumentTrial()
    : m_picture(PatternPicture()),
      m_screen(kWidth, kHeight),
      m_reader(MakeTool(false, true)),
      m_second(MakeTool(true, false)) {}

DocumentTrial::~DocumentTrial() = default;

void DocumentTrial::Run(std::string_view text) {
  wxJSONValue const document = JsonFromUtf8(WithPictures(text));
  load(*m_reader, document);
  paint(*m_reader);
  burnIn(*m_reader, 1);
  wxJSONValue const written = DocumentOf(*m_reader);
  wxJSONValue const read = JsonFromUtf8(JsonToUtf8(written));
  if (!read.IsSameAs(written)) Fail("a document does not survive its text form");
  load(*m_second, read);
  if (!DocumentOf(*m_second).IsSameAs(written)) {
    Fail("a document that was written reads as another one: " + JsonToUtf8(written) + " as " +
         JsonToUtf8(DocumentOf(*m_second)));
  }
  burnIn(*m_second, kFrameCount - 1);
  // What the next input finds is the same whatever came before.
  m_reader->Reset(true);
  m_second->Reset(true);
}

void DocumentTrial::load(AnnotationTool &tool, wxJSONValue const &document) const {
  tool.FromJSON(document, kFrameCount);
  tool.UpdateMediaInfo({0, kFrameCount, false});
  tool.SetImage(m_picture, false);
  tool.UpdateTextMacrosMap({});
}

// The graphics context takes the objects themselves: the tool uses one for windows only.
void DocumentTrial::paint(AnnotationTool &tool) {
  wxMemoryDC dc(m_screen);
  tool.Draw(dc, nullptr, kOffset, kScale);
  std::unique_ptr<IAnnPainter> painter =
      IAnnPainter::CreateAnnPainter(IAnnPainter::GraphicsContext, dc, &dc, kScale);
  for (IAnnotationObject const *object : tool.AnnotationObjects()) {
    object->Draw(painter, kOffset);
    object->DrawSelected(painter, kOffset, kScale);
  }
}

void DocumentTrial::burnIn(AnnotationTool &tool, std::int64_t frame) const {
  wxImage const output = tool.GetAnnotatedFrame(m_picture, {frame, kFrameCount, false}, {});
  if (!output.IsOk()) Fail("a frame was not burnt in");
}

}  // namespace framenote::fuzz
