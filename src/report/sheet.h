// sheet.h - footer and header of a page, and labels at their places.
#pragma once

#include <string>
#include <string_view>

namespace sondera {

/// File name of the project in the footer of the page, in Helvetica; a long one loses its beginning.
void PageFooter(std::string_view projectFile);

/// Head line of the page, in the library's escaped form.
void PageHeader(const std::string& text);

/// How putString() places a text.
enum StringKind {
  kCentred = 0,         ///< centred on the point
  kCentredUpright = 1,  ///< the same for a text that runs upwards
  kFromPoint = 2,       ///< begins at the point, centred in height
  kBelow = 3,           ///< centred, and 1.4 letter heights below
};

/// Text in the present height, in cm. Its length is computed with letters of size/37.5 cm, whatever the
/// height is.
/// @param angle  degrees
/// @param size   points
void putString(int kind, float x, float y, const std::string& text, float angle, float size);

/// Letters of Courier in this height that fit on a sheet from x on.
std::size_t LettersToTheEdge(float x, float height);

}  // namespace sondera
