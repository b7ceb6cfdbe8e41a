// ps_grammar.cpp - see ps_grammar.h.
#include "support/ps_grammar.h"

#include <regex>

namespace sondera::test {
namespace {

/// Each statement as a pattern: # is a number with a point, @ a whole one.
constexpr const char* kStatements[] = {
    "%!PS-Adobe-2\\.0 EPSF-1\\.2",
    "%PLOT_PS V.*",
    "%%(Creator|Title|CreationDate|Pages|BoundingBox|End of File|End of the flag page|Beginning of the flag "
    "page)"
    "(:? .*)?",
    "%%EndComments",
    "%%",
    "save|restore|showpage|newpath|closepath|stroke|gsave|grestore|GSG|arc stroke",
    "/(M|rM|L|rL|S|GSG) \\{ [a-z ]+ \\} bind def",
    "# # (M|rM|L|rL|translate|scale)",
    "# # # # # # curveto",
    "gsave (# setgray )?fill grestore",
    "# # # @ @ arc",
    "newpath # # # 0 360 arc (stroke|fill stroke|# setgray fill stroke) ",
    "1 # scale",
    "# (setgray|setlinewidth)",
    "# # # (setrgbcolor|sethsbcolor)",
    "# # # # setcymkcolor",
    "(\\[# #\\] #|\\[\\] 0) setdash",
    " ?@ rotate",
    "/[!-~]+ findfont [1-9][0-9]* scalefont setfont",
    "\\(.*\\) S",
};

const std::regex& Grammar() {
  static const std::regex grammar = [] {
    std::string all;
    for (const std::string pattern : kStatements) {
      if (!all.empty()) all += "|";
      for (const char c : pattern) {
        if (c == '#')
          all += "-?[0-9]+\\.[0-9]+";
        else if (c == '@')
          all += "-?[0-9]+";
        else
          all += c;
      }
    }
    return std::regex(all, std::regex::optimize);
  }();
  return grammar;
}

bool IsPlain(const std::string& line) {
  for (const char c : line)
    if (c < ' ' || c > '~') return false;
  return true;
}

}  // namespace

std::string GrammarFault(const std::string& file) {
  constexpr std::size_t kLongest = 255;
  if (file.empty() || file.back() != '\n') return "no line feed at the end";
  bool foreign = false;
  int number = 0;
  for (std::size_t at = 0; at < file.size();) {
    const std::size_t end = file.find('\n', at);
    const std::string line = file.substr(at, end - at);
    at = end + 1;
    const std::string place = "line " + std::to_string(++number) + ": " + line.substr(0, kLongest);
    if (line.size() > kLongest) return "too long: " + place;
    if (!IsPlain(line)) return "not plain text: " + place;
    const bool mark = line.starts_with("%% PLOT_PS ");
    if (mark) foreign = line.find(" beginning of ") != std::string::npos;
    if (!mark && !foreign && !std::regex_match(line, Grammar())) return "unknown statement: " + place;
  }
  return "";
}

}  // namespace sondera::test
