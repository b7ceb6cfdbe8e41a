// version.h - the version of the program, defined only here. CMakeLists.txt reads it from here.
#pragma once

#include <string_view>

#define SONDERA_VERSION "4.1"

namespace sondera {

inline constexpr std::string_view kVersion = SONDERA_VERSION;
/// Name and version of the program, the title of its boxes.
inline constexpr std::string_view kAppTitle = "Sondera " SONDERA_VERSION;

}  // namespace sondera
