#pragma once

#include "nengine/texture/ImageFile.h"

/// The formats behind `decodeImage`, one source each. All raise core::IOException with the reason.
namespace nurel::texture::detail {

/// Each takes a whole file of its format and gives pixels that are not yet premultiplied.
Image readPng(const void *file, std::size_t size);
Image readJpeg(const void *file, std::size_t size);
Image readWebp(const void *file, std::size_t size);

} // namespace nurel::texture::detail
