// ghostscript.cpp - see ghostscript.h.
#include "support/ghostscript.h"

#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "support/temp_folder.h"

namespace sondera::test {
namespace {

/// Prints a line a mark: "kind gray width dashes", then the path as "m x y l x y ... h"; texts as
/// "T gray size x y" and their bytes in hexadecimal.
constexpr const char* kTracer = R"(%!PS
/.num { 1000 mul round 1000 div =string cvs print ( ) print } def
/.pt { transform matrix defaultmatrix itransform exch .num .num } def
/.path {
  { (m ) print .pt } { (l ) print .pt }
  { (c ) print .pt pop pop pop pop } { (h ) print } pathforall (\n) print
} def
/.ink { currentgray .num currentlinewidth .num currentdash pop length .num } def
/stroke { (S ) print .ink .path systemdict /stroke get exec } def
/fill { (F ) print .ink .path systemdict /fill get exec } def
/show {
  (T ) print currentgray .num
  currentfont /FontMatrix get 3 get 1000 mul .num
  currentpoint .pt
  dup { 256 add 16 8 string cvrs 1 2 getinterval print } forall (\n) print
  systemdict /show get exec
} def
/showpage { (P\n) print systemdict /showpage get exec } def
)";

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

GhostscriptRun Run(const std::string& arguments) {
  GhostscriptRun run;
  const std::string command = "gs -q -dSAFER -dNOPAUSE -dBATCH " + arguments + " </dev/null 2>&1";
  std::FILE* pipe = ::popen(command.c_str(), "r");
  if (!pipe) return run;
  char block[4096];
  for (std::size_t n = 0; (n = std::fread(block, 1, sizeof block, pipe)) > 0;) run.output.append(block, n);
  const int status = ::pclose(pipe);
  run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return run;
}

/// Reads the rest of a line as a path.
void ReadPath(std::istream& in, TraceMark& mark) {
  for (std::string word; in >> word;) {
    if (word == "h") {
      if (!mark.paths.empty()) mark.paths.back().push_back(mark.paths.back().front());
      continue;
    }
    TracePoint point;
    in >> point.x >> point.y;
    if (word == "m") mark.paths.emplace_back();
    if (!mark.paths.empty()) mark.paths.back().push_back(point);
  }
  std::erase_if(mark.paths, [](const auto& path) { return path.size() < 2; });
}

std::string FromHex(const std::string& hex) {
  std::string text;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
    text += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
  return text;
}

}  // namespace

bool HaveGhostscript() {
  static const bool have = std::system("command -v gs >/dev/null 2>&1") == 0;
  return have;
}

GhostscriptRun RunGhostscript(const std::string& file) {
  return Run("-sDEVICE=nullpage " + Quoted(file));
}

GhostscriptRun DrawPng(const std::string& file, const std::string& stem, int dpi) {
  return Run("-sDEVICE=pnggray -dTextAlphaBits=4 -dGraphicsAlphaBits=4 -r" + std::to_string(dpi) +
             " -sOutputFile=" + Quoted(stem + "%d.png") + " " + Quoted(file));
}

Trace TraceOf(const std::string& file) {
  const TempFolder folder;
  WriteWhole(folder.File("trace.ps"), kTracer);
  Trace trace;
  trace.run = Run("-sDEVICE=nullpage " + Quoted(folder.File("trace.ps")) + " " + Quoted(file));
  std::istringstream lines(trace.run.output);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream in(line);
    std::string kind;
    in >> kind;
    TraceMark mark;
    mark.page = trace.pages + 1;
    if (kind == "P") {
      ++trace.pages;
    } else if (kind == "T") {
      TracePoint point;
      std::string hex;
      in >> mark.gray >> mark.size >> point.x >> point.y >> hex;
      mark.kind = TraceMark::text;
      mark.paths = {{point}};
      mark.string = FromHex(hex);
      trace.marks.push_back(mark);
    } else if (kind == "S" || kind == "F") {
      mark.kind = kind == "S" ? TraceMark::stroke : TraceMark::fill;
      double dashes = 0.0;
      in >> mark.gray >> mark.width >> dashes;
      mark.dashes = static_cast<int>(dashes);
      ReadPath(in, mark);
      if (!mark.paths.empty()) trace.marks.push_back(mark);
    }
  }
  return trace;
}

}  // namespace sondera::test
