// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "media/file_stamp.h"
#include "media/media_source.h"

/// Opens the video in a file that is no still picture, and indexes it unless its index was kept.
/// `stamp` is the file's. Throws MediaError.
std::unique_ptr<MediaSource> OpenVideo(std::string const &path, FileStamp const &stamp,
                                       MediaOptions const &options);
