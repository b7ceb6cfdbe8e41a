// data_text.h - prepares texts from the project (names, paths, labels) for a page.
//
// Texts of the project are UTF-8; the fonts of a page have ISO Latin-1, and the file is 7-bit. A letter of
// Latin-1 becomes one byte; dashes, quotes and similar become their plain form; any other letter and control
// bytes "?". A byte that is not UTF-8 counts as Latin-1, which older files contain.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace sondera {

/// One byte a letter, from UTF-8.
std::string Latin1(std::string_view utf8);

/// Whether a text has letters above 126 on a page, for which the fonts need their encoding.
bool NeedsLatin1(std::string_view utf8);

/// Where a text that is too long is shortened.
enum class CutAt { end, front };

/// A text in the library's escaped form: Latin-1, with a backslash before "\", "(" and ")" and bytes above
/// 126 as \ooo. "..." replaces the part that is cut off.
/// @param mostLetters  limit on the page; the limit of the library applies too
std::string PageText(std::string_view utf8, std::size_t mostLetters, CutAt cut = CutAt::end);

/// Letters of a page text, an escape counting as one.
std::size_t LetterCount(std::string_view pageText);

/// Statements that give Courier and Helvetica the letters of Latin-1, under their own names. Code 45 is the
/// hyphen, not the minus sign, so that numbers can be searched.
std::string_view Latin1FontCode();

}  // namespace sondera
