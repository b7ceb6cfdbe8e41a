// line.cpp - see line.h.
#include "app/script/line.h"

#include <cctype>
#include <cstdio>
#include <memory>
#include <utility>

#include "app/script/fault.h"
#include "app/script/values.h"
#include "runtime/text_format.h"

namespace sondera::script {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}
bool IsNameLetter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '-';
}

/// Removes words from the front of a text.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  bool skipBlanks() {
    while (!rest_.empty() && IsBlank(rest_.front())) rest_.remove_prefix(1);
    return !rest_.empty();
  }
  /// `name=` at the front, removed; empty when there is none.
  std::string takeName() {
    std::size_t n = 0;
    while (n < rest_.size() && IsNameLetter(rest_[n])) ++n;
    if (n == 0 || n == rest_.size() || rest_[n] != '=' || !std::isalpha(static_cast<unsigned char>(rest_[0])))
      return {};
    std::string name(rest_.substr(0, n));
    rest_.remove_prefix(n + 1);
    return name;
  }
  bool atQuote() const { return rest_.starts_with('"'); }
  std::string takeValue() { return atQuote() ? takeQuoted() : takePlain(); }

 private:
  std::string takePlain() {
    std::size_t n = 0;
    while (n < rest_.size() && !IsBlank(rest_[n])) {
      if (rest_[n] == '"') throw Fault("a quotation mark stands inside of a word; quote the whole word");
      ++n;
    }
    std::string word(rest_.substr(0, n));
    rest_.remove_prefix(n);
    return word;
  }
  std::string takeQuoted() {
    std::string word;
    for (std::size_t i = 1; i < rest_.size(); ++i) {
      if (rest_[i] == '"') {
        rest_.remove_prefix(i + 1);
        if (!rest_.empty() && !IsBlank(rest_.front()))
          throw Fault("a blank has to follow the closing quotation mark");
        return word;
      }
      if (rest_[i] == '\\') {
        ++i;
        if (i == rest_.size() || (rest_[i] != '"' && rest_[i] != '\\'))
          throw Fault("after a backslash in quotation marks only \" and \\ are allowed");
      }
      word += rest_[i];
    }
    throw Fault("a quotation mark is not closed");
  }

  std::string_view rest_;
};

void AddNamed(Line& line, std::string name, std::string value) {
  for (const NamedArgument& argument : line.named)
    if (argument.name == name) throw Fault(name + "= is given twice");
  line.named.push_back({std::move(name), std::move(value)});
}

}  // namespace

void SplitLine(std::string_view text, Line& line) {
  line.word.clear();
  line.fixed.clear();
  line.named.clear();
  if (text.starts_with('#') || text.starts_with('*')) return;
  Scanner scanner(text);
  if (!scanner.skipBlanks()) return;
  if (text.find('\0') != std::string_view::npos) throw Fault("the line holds a zero byte");
  line.word = scanner.takeValue();
  if (line.word.empty()) throw Fault("the first word is empty");
  while (scanner.skipBlanks()) {
    std::string name = scanner.takeName();
    const bool quoted = scanner.atQuote();
    std::string value = scanner.takeValue();
    if (!name.empty())
      AddNamed(line, std::move(name), std::move(value));
    else if (line.named.empty())
      line.fixed.push_back({std::move(value), quoted});
    else
      throw Fault(Quoted(value) + " stands behind " + line.named.back().name +
                  "=; fixed words come first, and a value with blanks needs quotation marks");
  }
}

bool IsHeader(std::string_view firstLine) {
  return firstLine == kHeader;
}

bool HasHeader(std::string_view script) {
  Source source = Source::OfText(script);
  std::string first;
  try {
    return source.Next(first) && IsHeader(first);
  } catch (const Fault&) {
    return false;  // a longer line is invalid
  }
}

bool FileHasHeader(const std::string& path) {
  TextReader file;
  std::string first;
  if (!file.Open(path) || !file.ReadPhysicalLine(first, kMark.size() + kHeader.size())) return false;
  std::string_view text = first;
  if (text.starts_with(kMark)) text.remove_prefix(kMark.size());
  return !file.LineWasCut() && IsHeader(text);
}

Source Source::OfText(std::string_view text) {
  auto reader = std::make_shared<TextReader>();
  reader->OpenMemory(text);
  Source source;
  source.read_ = [reader](std::string& line, bool& cut) {
    const bool there = reader->ReadPhysicalLine(line, kLongestLine);
    cut = reader->LineWasCut();
    return there;
  };
  return source;
}

Source Source::OfFile(const std::string& path) {
  auto reader = std::make_shared<TextReader>();
  std::string reason;
  if (!reader->Open(path, &reason)) throw Fault("the script cannot be read: " + reason);
  Source source;
  source.read_ = [reader, told = false](std::string& line, bool& cut) mutable {
    const bool there = reader->ReadPhysicalLine(line, kLongestLine);
    cut = reader->LineWasCut();
    if (!there && reader->ReadFailed() && !std::exchange(told, true))
      throw Fault("the script cannot be read any further");
    return there;
  };
  return source;
}

Source Source::OfStandardInput() {
  Source source;
  source.read_ = [](std::string& line, bool& cut) {
    line.clear();
    cut = false;
    int c = std::getchar();
    if (c == EOF) return false;
    for (; c != EOF && c != '\n'; c = std::getchar()) {
      cut = cut || line.size() > kLongestLine;
      if (!cut) line += static_cast<char>(c);
    }
    if (line.ends_with('\r')) line.pop_back();
    cut = cut || line.size() > kLongestLine;
    return true;
  };
  return source;
}

bool Source::Next(std::string& text) {
  bool cut = false;
  if (!read_(text, cut)) return false;
  ++number_;
  if (cut) throw Fault(FormatText("the line is longer than %zu bytes", kLongestLine));
  if (number_ == 1 && text.starts_with(kMark)) text.erase(0, kMark.size());
  return true;
}

}  // namespace sondera::script
