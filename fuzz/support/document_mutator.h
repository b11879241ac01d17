// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "support/chance.h"

/// Mutations that know what a document looks like, so that most of what they make is read and
/// painted rather than refused.
namespace framenote::fuzz {

/// The document with some of its values changed; a new document if `text` is none.
std::string MutatedDocument(std::string_view text, Chance &chance);
/// A document with objects of both; none if one of the texts is no document.
std::optional<std::string> CrossedDocuments(std::string_view first, std::string_view second,
                                            Chance &chance);

}  // namespace framenote::fuzz
