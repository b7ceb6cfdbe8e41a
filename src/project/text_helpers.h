// text_helpers.h - splits file names and ids for exports, imports of earlier formats and the automatic save.
//
// Kept, in all three: the extension is searched in the whole path, folders included. So a dot in the name of
// a folder counts when the file itself has none (PlaceFileExtName), and the first dot of a path ends it
// (ExtractFName, ExtractPathFName).
#pragma once

#include <string>
#include <string_view>

namespace sondera {

/// `name` up to its last dot (all of it without one), a dot, and `ext`: "a.b.c" and "tim" give "a.b.tim".
std::string PlaceFileExtName(std::string_view name, std::string_view ext);

/// The path up to its first dot, and the part of that after the last separator.
std::string ExtractFName(std::string_view path);

/// The same name, and the part before it with the closing separator ("" without a separator).
void ExtractPathFName(std::string_view path, std::string& dir, std::string& name);

/// First token between "[" and "]": the id before its channels. Empty when there is none.
std::string ExtractMeasID(std::string_view name);

}  // namespace sondera
