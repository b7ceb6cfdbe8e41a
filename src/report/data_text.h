// data_text.h - texts from the project (names, paths, labels) made ready for a page.
//
// Texts of the project are UTF-8; the fonts of a page have ISO Latin-1, and the file is 7-bit. A letter of
// Latin-1 becomes one byte; dashes, quotes and the like their plain relative; any other letter and control
// bytes "?". A byte that is no UTF-8 counts as Latin-1, which older files hold.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace sondera {

/// One byte a letter, from UTF-8.
std::string Latin1(std::string_view utf8);

/// Whether a text has letters above 126 on a page, for which the fonts need their encoding.
bool NeedsLatin1(std::string_view utf8);

/// Where a text that is too long loses letters.
enum class CutAt { end, front };

/// A text as the library writes it: Latin-1, with "\", "(" and ")" behind a backslash and bytes above 126 as
/// \ooo. "..." stands for what is cut off.
/// @param mostLetters  room on the page; the limit of the library holds besides
std::string PageText(std::string_view utf8, std::size_t mostLetters, CutAt cut = CutAt::end);

/// Letters of a page text, an escape counting as one.
std::size_t LetterCount(std::string_view pageText);

/// Statements that give Courier and Helvetica the letters of Latin-1, under their own names. Code 45 is the
/// hyphen, not the minus sign, so that numbers can be searched for.
std::string_view Latin1FontCode();

}  // namespace sondera
