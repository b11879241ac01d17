// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include "support/chance.h"

/// What documents are made of, for the mutator: sensible values mostly, and now and then one from
/// the borders of what a member can hold.
namespace framenote::fuzz {

using Json = nlohmann::ordered_json;

/// Stands in a document for the folder where the pictures of the trial lie.
constexpr char const *kPictureFolder = "%PICTURES%";

/// A value as the member `key` holds it. For a name without a role, a value of any kind.
Json ValueOf(std::string const &key, Chance &chance);
/// A value of any kind.
Json AnyValue(Chance &chance);
/// A number from the borders of what integers and doubles can hold.
Json BorderNumber(Chance &chance);
/// The name of some member.
std::string AnyKey(Chance &chance);
/// A whole object of some kind.
Json AnyObject(Chance &chance);
/// A run of the object kind `id`.
Json RunOf(int id, Chance &chance);

}  // namespace framenote::fuzz
