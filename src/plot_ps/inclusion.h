// inclusion.h - PostScript from elsewhere, between comment lines that say so.
#pragma once

#include <string>
#include <string_view>

namespace sondera {

/// Copies a file of PostScript. 0 with a line on the error stream if it cannot be read whole, else 1.
int ps_include(const std::string& file);

/// Writes PostScript as it is.
void ps_code(std::string_view text);

}  // namespace sondera
