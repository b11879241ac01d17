// SPDX-License-Identifier: MIT
#include "support/document_grammar.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string_view>
#include <vector>

namespace framenote::fuzz {
namespace {

constexpr int kShapeId = 2;
constexpr int kArrowId = 3;
constexpr int kPencilId = 4;
constexpr int kTextId = 5;
constexpr int kImageId = 6;
constexpr int kMagnifyId = 8;

/// Around the trial's picture of 64 by 48 pixels and its four frames.
constexpr int kLeastPixel = -20;
constexpr int kMostPixel = 90;
constexpr int kMostFrame = 5;
/// One value in so many is from the borders.
constexpr std::size_t kBorderRate = 24;

constexpr std::array<char const *, 12> kColours = {"#FF0000FF", "#00FF0080", "#0000FF00", "#FFFFFF",
                                                   "#00000000", "#abcdef7F", "null",      "",
                                                   "#GG0000FF", "#FFFFFFFF", "#12345",    "red"};
constexpr std::array<char const *, 12> kFonts = {"12;normal;400;0;0;Sans",
                                                 "8.5;italic;700;1;1;DejaVu Sans",
                                                 "1;slant;1;0;1;",
                                                 "72;normal;1000;1;0;Serif",
                                                 "10000;normal;400;0;0;Sans",
                                                 "0;normal;0;0;0;Sans",
                                                 "-3;normal;-400;0;0;Sans",
                                                 "1e9;normal;99999;2;2;Sans",
                                                 "nan;normal;400;0;0;Sans",
                                                 "12;normal;400;0;0;No;Such Face",
                                                 "12;normal;400",
                                                 ""};
constexpr std::array<char const *, 6> kFileNames = {"picture.png", "alpha.png", "damaged.png", "",
                                                    "missing.png", "."};
constexpr std::array<char const *, 10> kTexts = {
    "abc",
    "",
    "two words",
    "%TIME%",
    "\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d \xd8\xb9\xd8\xb1",
    "\t",
    "a\nb\r\nc",
    "e\xcc\x81",
    "\xf0\x9f\x91\x8d",
    "a very long line of text that is wider"};
constexpr std::array<double, 18> kBorderDoubles = {
    0.0, -0.0, 0.5,          -0.5,          1e-300, 5e-324,  1e300,   -1e300, 1.7e308,
    1e9, -1e9, 2147483648.0, -2147483649.0, 9.3e18, -9.3e18, 32767.5, 1e-9,   16777217.0};
constexpr std::array<std::int64_t, 16> kBorderInts = {0,
                                                      -1,
                                                      1,
                                                      2,
                                                      255,
                                                      256,
                                                      32766,
                                                      32767,
                                                      65536,
                                                      16777216,
                                                      std::numeric_limits<std::int32_t>::max(),
                                                      std::numeric_limits<std::int32_t>::min(),
                                                      std::int64_t{1} << 31,
                                                      std::int64_t{1} << 32,
                                                      std::numeric_limits<std::int64_t>::max(),
                                                      std::numeric_limits<std::int64_t>::min()};

Json Colour(Chance &chance) {
  return chance.Pick(kColours);
}

Json Font(Chance &chance) {
  return chance.Pick(kFonts);
}

Json Bool(Chance &chance) {
  return chance.OneIn(2);
}

Json FileName(Chance &chance) {
  return std::string(kPictureFolder) + "/" + chance.Pick(kFileNames);
}

Json SmallEnum(Chance &chance) {
  return chance.OneIn(kBorderRate) ? BorderNumber(chance) : Json(chance.Between(-1, 4));
}

Json Amount(Chance &chance) {
  return chance.OneIn(kBorderRate) ? BorderNumber(chance) : Json(chance.Between(0, 60));
}

Json Zoom(Chance &chance) {
  return chance.OneIn(kBorderRate) ? BorderNumber(chance) : Json(chance.Between(0, 40) / 8.0);
}

Json Frame(Chance &chance) {
  return chance.OneIn(kBorderRate) ? BorderNumber(chance) : Json(chance.Between(0, kMostFrame));
}

Json Range(Chance &chance) {
  if (chance.OneIn(kBorderRate)) return Json::array({Frame(chance), Frame(chance)});
  int const first = chance.Between(0, kMostFrame);
  return Json::array({first, chance.Between(first, kMostFrame)});
}

Json Pixel(Chance &chance) {
  if (chance.OneIn(kBorderRate)) return BorderNumber(chance);
  return chance.Between(kLeastPixel, kMostPixel);
}

Json IntPoint(Chance &chance) {
  return Json::array({Pixel(chance), Pixel(chance)});
}

Json DoublePoint(Chance &chance) {
  if (chance.OneIn(kBorderRate)) {
    return Json::array({BorderNumber(chance), BorderNumber(chance)});
  }
  return Json::array({chance.Between(kLeastPixel * 8, kMostPixel * 8) / 8.0,
                      chance.Between(kLeastPixel * 8, kMostPixel * 8) / 8.0});
}

Json Path(Chance &chance) {
  Json path = Json::array({Json::array({0, 0})});
  for (int i = chance.Between(0, 6); i > 0; --i) {
    path.push_back(Json::array({chance.Between(-20, 40), chance.Between(-20, 40)}));
  }
  return path;
}

/// The lines as the document holds them: as the text of an array.
Json TextLines(Chance &chance) {
  Json lines = Json::array();
  for (int i = chance.Between(0, 3); i > 0; --i) lines.push_back(chance.Pick(kTexts));
  return lines.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json Id(Chance &chance) {
  return chance.Between(kShapeId - 1, kMagnifyId + 1);
}

struct Role {
  char const *key;
  Json (*make)(Chance &);
};

constexpr std::array<Role, 40> kRoles = {{{"Id", Id},
                                          {"StartFrame", Frame},
                                          {"EndFrame", Frame},
                                          {"Range", Range},
                                          {"TopLeft", DoublePoint},
                                          {"TopRight", DoublePoint},
                                          {"BottomRight", DoublePoint},
                                          {"BottomLeft", DoublePoint},
                                          {"CenterPoint", DoublePoint},
                                          {"Head", IntPoint},
                                          {"Tail", IntPoint},
                                          {"StartPoint", IntPoint},
                                          {"PathDiffs", Path},
                                          {"Mirrored", Bool},
                                          {"TextLines", TextLines},
                                          {"ExtensionColor", Colour},
                                          {"Extended", Bool},
                                          {"Head", SmallEnum},
                                          {"Color", Colour},
                                          {"Thickness", Amount},
                                          {"Effect", SmallEnum},
                                          {"Strength", Amount},
                                          {"Shape", SmallEnum},
                                          {"BorderColor", Colour},
                                          {"BorderColorTransparent", Bool},
                                          {"FillColor", Colour},
                                          {"FillColorTransparent", Bool},
                                          {"FileName", FileName},
                                          {"KeepAspectRatio", Bool},
                                          {"TransparentColor", Colour},
                                          {"Zoom", Zoom},
                                          {"FixedSourceSize", Bool},
                                          {"ZoomMethod", SmallEnum},
                                          {"BorderType", SmallEnum},
                                          {"Font", Font},
                                          {"FontColor", Colour},
                                          {"BackgroundColor", Colour},
                                          {"BackgroundColorTransparent", Bool},
                                          {"HorizontalAlignment", SmallEnum},
                                          {"VerticalAlignment", SmallEnum}}};

/// The names of the members that hold others.
constexpr std::array<char const *, 7> kContainers = {
    "Annotate",   "Objects",   "Coordinates", "CoordinatesCenterPoint",
    "Properties", "Rectangle", "Unknown"};

std::vector<std::string> PropertiesOf(int id) {
  std::vector<std::string> box = {"Shape",     "BorderColor",          "BorderColorTransparent",
                                  "FillColor", "FillColorTransparent", "Thickness"};
  switch (id) {
    case kShapeId:
      return box;
    case kArrowId:
      return {"Head", "Color", "Thickness"};
    case kPencilId:
      return {"Color", "Thickness"};
    case kTextId:
      return {"Font",
              "FontColor",
              "BackgroundColor",
              "BackgroundColorTransparent",
              "HorizontalAlignment",
              "VerticalAlignment"};
    case kImageId:
      return {"FileName", "KeepAspectRatio", "TransparentColor"};
    case kMagnifyId:
      return {"Zoom",        "FixedSourceSize", "ZoomMethod", "Shape",
              "BorderColor", "BorderType",      "Thickness"};
    default:
      return {"Effect", "Strength", "Shape", "BorderColor", "BorderColorTransparent", "Thickness"};
  }
}

Json Properties(int id, Chance &chance) {
  Json properties = Json::object();
  for (std::string const &key : PropertiesOf(id)) {
    if (chance.OneIn(kBorderRate)) continue;
    properties[key] = key == "Head" ? SmallEnum(chance) : ValueOf(key, chance);
  }
  return properties;
}

/// A rectangle, as a rule turned by any angle.
void AddCorners(Json &run, Chance &chance) {
  constexpr double kDegree = 3.14159265358979 / 180.0;
  double const angle = chance.OneIn(2) ? 0.0 : chance.Between(0, 359) * kDegree;
  double const x = chance.Between(0, 64);
  double const y = chance.Between(0, 48);
  double const width = chance.Between(-30, 60) / 2.0;
  double const height = chance.Between(-30, 60) / 2.0;
  auto const corner = [&](double dx, double dy) {
    return Json::array({x + dx * std::cos(angle) - dy * std::sin(angle),
                        y + dx * std::sin(angle) + dy * std::cos(angle)});
  };
  run["TopLeft"] = corner(-width, -height);
  run["TopRight"] = corner(width, -height);
  run["BottomRight"] = corner(width, height);
  run["BottomLeft"] = corner(-width, height);
}

Json Runs(int id, Chance &chance) {
  Json runs = Json::array();
  int first = chance.Between(0, 1);
  for (int i = chance.Between(1, 3); i > 0 && first <= kMostFrame; --i) {
    int const last = chance.Between(first, kMostFrame);
    runs.push_back(RunOf(id, chance));
    if (!chance.OneIn(kBorderRate)) runs.back()["Range"] = {first, last};
    first = last + chance.Between(1, 2);
  }
  return runs;
}

Json CentreRuns(Chance &chance) {
  Json runs = Json::array();
  for (int i = chance.Between(0, 2); i > 0; --i) {
    runs.push_back({{"CenterPoint", DoublePoint(chance)}, {"Range", Range(chance)}});
  }
  return runs;
}

/// What lies in the object itself, or in its rectangle if it has one.
Json Geometry(int id, Chance &chance) {
  Json geometry = Json::object();
  geometry["StartFrame"] = chance.OneIn(2) ? Json(0) : Frame(chance);
  geometry["EndFrame"] = chance.OneIn(2) ? Json(kMostFrame) : Frame(chance);
  geometry["Coordinates"] = Runs(id, chance);
  return geometry;
}

}  // namespace

Json BorderNumber(Chance &chance) {
  return chance.OneIn(2) ? Json(chance.Pick(kBorderDoubles)) : Json(chance.Pick(kBorderInts));
}

Json AnyValue(Chance &chance) {
  switch (chance.Below(8)) {
    case 0:
      return nullptr;
    case 1:
      return Json::object();
    case 2:
      return Json::array();
    case 3:
      return chance.Pick(kTexts);
    case 4:
      return Bool(chance);
    case 5:
      return DoublePoint(chance);
    default:
      return BorderNumber(chance);
  }
}

std::string AnyKey(Chance &chance) {
  return chance.OneIn(4) ? chance.Pick(kContainers) : chance.Pick(kRoles).key;
}

Json ValueOf(std::string const &key, Chance &chance) {
  std::vector<Role> roles;
  for (Role const &role : kRoles) {
    if (key == role.key) roles.push_back(role);
  }
  return roles.empty() ? AnyValue(chance) : chance.Pick(roles).make(chance);
}

Json RunOf(int id, Chance &chance) {
  Json run = Json::object();
  if (id == kArrowId) {
    run["Head"] = IntPoint(chance);
    run["Tail"] = IntPoint(chance);
  } else if (id == kPencilId) {
    run["StartPoint"] = IntPoint(chance);
  } else {
    AddCorners(run, chance);
  }
  if (id == kImageId) run["Mirrored"] = Bool(chance);
  run["Range"] = Range(chance);
  return run;
}

Json AnyObject(Chance &chance) {
  int const id = chance.Between(kShapeId, kMagnifyId);
  Json object = {{"Id", id}};
  Json geometry = Geometry(id, chance);
  if (id <= kPencilId) {
    object.update(geometry);
  } else {
    geometry["Properties"] = Properties(kShapeId, chance);
    object["Rectangle"] = geometry;
  }
  if (id == kPencilId) object["PathDiffs"] = Path(chance);
  if (id == kTextId) object["TextLines"] = TextLines(chance);
  if (id == kMagnifyId) object["CoordinatesCenterPoint"] = CentreRuns(chance);
  if (!chance.OneIn(kBorderRate)) object["Properties"] = Properties(id, chance);
  return object;
}

}  // namespace framenote::fuzz
