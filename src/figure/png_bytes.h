// png_bytes.h - an image as the bytes of a PNG file, not compressed, for images within an SVG. No state.
#pragma once

#include <string>

#include "figure/graph_lines.h"

namespace sondera {

/// RGB with transparency, 8 bits. Empty for an image without pixels.
std::string PngBytes(const MapPixels& image);

/// Base64 as in RFC 4648, without line ends.
std::string Base64(const std::string& bytes);

}  // namespace sondera
