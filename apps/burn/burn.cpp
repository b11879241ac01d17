// SPDX-License-Identifier: MIT
#include "burn.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include <wx/image.h>
#include <wx/mstream.h>

#include "burn_options.h"
#include "framenote/annotation_tool.h"
#include "project/atomic_file.h"
#include "project/file_error.h"
#include "talbase/json_text.h"

namespace {

/// Documents and pictures beyond this are not read.
constexpr std::uintmax_t kMaxFileSize = std::uintmax_t{1} << 31;
constexpr char const *kAnnotateKey = "Annotate";

std::string Quoted(std::string const &path) {
  return "'" + path + "'";
}

/// The bytes of a regular file; pipes and devices could block for ever.
std::string ReadFile(std::string const &path, char const *what) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) {
    throw InputError(std::string(what) + " " + Quoted(path) + " is not a file");
  }
  if (std::filesystem::file_size(path, error) > kMaxFileSize || error) {
    throw InputError(std::string(what) + " " + Quoted(path) + " is too large");
  }
  std::ifstream file(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  if (!file || !bytes) throw InputError(std::string(what) + " " + Quoted(path) + " cannot be read");
  return bytes.str();
}

wxJSONValue ReadDocument(std::string const &path) {
  wxJSONValue const document = JsonFromUtf8(ReadFile(path, "document"));
  if (!document.IsValid()) throw InputError("document " + Quoted(path) + " is not JSON");
  if (!document.ItemAt(kAnnotateKey).IsObject()) {
    throw InputError("document " + Quoted(path) + " holds no \"Annotate\" object");
  }
  return document;
}

wxImage ReadPicture(std::string const &path) {
  std::string const bytes = ReadFile(path, "picture");
  wxMemoryInputStream stream(bytes.data(), bytes.size());
  wxImage picture(stream);
  if (!picture.IsOk()) throw InputError("picture " + Quoted(path) + " cannot be read");
  return picture;
}

wxBitmapType TypeOf(std::string const &path) {
  wxString const extension =
      wxString::FromUTF8(std::filesystem::path(path).extension().string()).Lower();
  if (extension == ".png") return wxBITMAP_TYPE_PNG;
  if (extension == ".jpg" || extension == ".jpeg") return wxBITMAP_TYPE_JPEG;
  if (extension == ".bmp") return wxBITMAP_TYPE_BMP;
  if (extension == ".tif" || extension == ".tiff") return wxBITMAP_TYPE_TIFF;
  throw ArgumentError("output " + Quoted(path) + " is of no known kind: .png, .jpg, .bmp or .tif");
}

wxString FromArgument(std::string const &utf8) {
  wxString const text = wxString::FromUTF8(utf8);
  if (text.empty() && !utf8.empty()) throw ArgumentError("--macro wants UTF-8");
  return text;
}

wxImage BurnIn(BurnOptions const &options, wxJSONValue const &document, wxImage const &picture) {
  AnnotationToolConfig const config(options.withDeviceContext, options.withDeviceContext, true,
                                    true, options.extend, {});
  auto const tool = std::make_shared<AnnotationTool>(config);
  // The document's own runs say how long the objects are; the picture is but one frame.
  tool->FromJSON(document, 1);
  // Without a colour for what lies beyond it, the result has the picture's own size.
  if (!options.extend) tool->SetExtensionColour(wxNullColour);
  AnnotationTool::MacroPairs macros;
  for (auto const &[name, value] : options.macros) {
    macros.emplace_back(FromArgument(name), FromArgument(value));
  }
  return tool->GetAnnotatedFrame(picture, {options.frame, 1, false}, macros);
}

std::string Encoded(wxImage const &image, wxBitmapType type, std::string const &path) {
  wxMemoryOutputStream stream;
  if (!image.IsOk() || !image.SaveFile(stream, type)) {
    throw OutputError("output " + Quoted(path) + " cannot be encoded");
  }
  std::string bytes(stream.GetSize(), '\0');
  stream.CopyTo(bytes.data(), bytes.size());
  return bytes;
}

}  // namespace

void Burn(BurnOptions const &options) {
  wxBitmapType const type = TypeOf(options.output);
  wxJSONValue const document = ReadDocument(options.document);
  wxImage const picture = ReadPicture(options.input);
  wxImage const burnt = BurnIn(options, document, picture);
  std::string const bytes = Encoded(burnt, type, options.output);
  try {
    WriteFileAtomically(options.output, bytes);
  } catch (FileError const &error) {
    throw OutputError("output " + Quoted(options.output) + " cannot be written: " + error.Cause());
  }
}
