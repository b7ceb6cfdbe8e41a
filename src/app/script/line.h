// line.h - splits a line of a script into its words, and a script into its lines.
//
// The second dialect: the first line is exactly "*sondera 2". Text is UTF-8; a byte order mark and CR LF are
// accepted. A blank line, or one with "#" or "*" in column 1, has no effect. Words are separated by blanks or
// tabs, or are in quotation marks with \" and \\ inside; name=value pairs follow the fixed words.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/text_reader.h"

namespace sondera::script {

inline constexpr std::size_t kLongestLine = 4096;  ///< bytes, line end not counted
inline constexpr std::string_view kHeader = "*sondera 2";

/// One argument of a line.
struct Argument {
  std::string value;
  bool quoted = false;
};
struct NamedArgument {
  std::string name, value;
};

/// A line split into its words.
struct Line {
  int number = 0;    ///< from 1
  std::string word;  ///< first word; empty for a line without effect
  std::vector<Argument> fixed;
  std::vector<NamedArgument> named;
};

/// Splits one line, without its line end. Throws Fault; then `line` has the first word as far as it was read.
void SplitLine(std::string_view text, Line& line);

/// True for the first line of a script of this dialect, as a reader gives it.
bool IsHeader(std::string_view firstLine);
/// True when a text, or a file, begins with that line. A file that cannot be read: false.
bool HasHeader(std::string_view script);
bool FileHasHeader(const std::string& path);

/// The lines of a script, one after the other.
class Source {
 public:
  /// A text in memory, which must outlive the reading.
  static Source OfText(std::string_view text);
  /// A regular file; throws Fault when it cannot be opened.
  static Source OfFile(const std::string& path);
  /// Standard input, read line by line, so that a script may be typed or piped.
  static Source OfStandardInput();

  /// Next line without its end, and without a byte order mark at the beginning of the script; false at the
  /// end. A line that is too long throws Fault.
  bool Next(std::string& text);
  int Number() const { return number_; }  ///< of the last line returned, from 1

 private:
  std::function<bool(std::string& text, bool& cut)> read_;
  int number_ = 0;
};

}  // namespace sondera::script
