// inclusion.h - PostScript from other sources, between comment lines that mark it.
#pragma once

#include <string>
#include <string_view>

namespace sondera {

/// Copies a file of PostScript. 0 with a line on the error stream if it cannot be read completely, else 1.
int ps_include(const std::string& file);

/// Writes PostScript without change.
void ps_code(std::string_view text);

}  // namespace sondera
