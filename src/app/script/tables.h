// tables.h - curves of other programs, for the word that reads curves. The rest is in words_table.cpp.
#pragma once

#include <string_view>

namespace sondera::script {

class Run;
class Arguments;

/// Forms of curves besides .exd, between bars.
inline constexpr std::string_view kCurveForms = "csv|swprepost|dinver|gpdc";

/// Reads the curve of FILE by form= and columns= into a measurement of two channels. Throws Fault.
void ReadCurveTable(Run& run, const Arguments& arguments);

}  // namespace sondera::script
