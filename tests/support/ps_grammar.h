// ps_grammar.h - checks that a file of the PostScript library contains only its statements, one a line.
#pragma once

#include <string>

namespace sondera::test {

/// "" for a valid file, else the fault and its line: an unknown statement, a line of more than 255
/// bytes, a byte above 126 or a control byte other than the line feed. Lines between the marks of ps_code and
/// ps_include count as statements of any kind.
std::string GrammarFault(const std::string& file);

}  // namespace sondera::test
