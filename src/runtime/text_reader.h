// text_reader.h - lines and tokens of text files from elsewhere.
//
// Callers: command script, measurement imports, parameter and curve files. Bytes above 127 pass through; CR
// LF is one line end, as LF is; the last line needs none.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "runtime/byte_source.h"

namespace sondera {

/// Why and where a text is refused.
struct TextFault {
  std::int64_t line = 0;  ///< from 1; 0: not a single line
  std::string cause;      ///< empty: the text is valid
};

/// Lines of a text file or of a block of memory.
class TextReader {
 public:
  TextReader() = default;

  /// Opens a regular file; false with the reason in *reason (if given).
  bool Open(const std::string& path, std::string* reason = nullptr);
  /// Reads a block of memory, which must outlive the reading.
  void OpenMemory(std::string_view text);
  void Close();
  bool IsOpen() const { return source_.IsOpen(); }
  /// Back to the first line.
  void Rewind();

  /// Next line of at most maxBytes bytes, its LF included; a longer line comes in pieces, the last of which
  /// has the LF. A CR before LF is dropped and not counted. False at the end, with an empty line.
  bool ReadLine(std::string& line, std::size_t maxBytes = 256);

  /// Next line, complete and without its line end. Of a line longer than maxBytes only the first maxBytes
  /// bytes are returned, the rest is skipped, and LineWasCut() is true. False at the end, with an empty line.
  bool ReadPhysicalLine(std::string& line, std::size_t maxBytes = kLongestLine);
  bool LineWasCut() const { return cut_; }
  /// Whether that line had its line end. Only the last line of a text can lack it.
  bool LineHadEnd() const { return ended_; }
  /// Number of lines from ReadPhysicalLine since the text was opened or rewound.
  std::int64_t LinesRead() const { return linesRead_; }

  /// True after a read error of the system; the text then counts as ended.
  bool ReadFailed() const { return source_.Failed(); }

  static constexpr std::size_t kLongestLine = std::size_t{1} << 20;

 private:
  ByteSource source_;
  bool cut_ = false, ended_ = false;
  std::int64_t linesRead_ = 0;
};

/// Set of byte values, for a quick check whether a byte is in it.
class ByteSet {
 public:
  explicit ByteSet(std::string_view bytes) {
    for (const char c : bytes) bits_[Word(c)] |= Bit(c);
  }
  bool Has(char c) const { return (bits_[Word(c)] & Bit(c)) != 0; }

 private:
  static std::size_t Word(char c) { return static_cast<unsigned char>(c) / 64; }
  static std::uint64_t Bit(char c) { return std::uint64_t{1} << (static_cast<unsigned char>(c) % 64); }
  std::uint64_t bits_[4] = {};
};

/// Tokens between runs of delimiters, one by one. Leading delimiters are skipped; after a token its one
/// delimiter is skipped. The text ends at a zero byte. The text is viewed, not copied: it must outlive the
/// tokens.
class Tokenizer {
 public:
  explicit Tokenizer(std::string_view text, std::string_view delimiters = " ,\t\n");
  template <class T>
  requires std::is_same_v<T, std::string>
  // NOLINTNEXTLINE(bugprone-forwarding-reference-overload): a temporary std::string alone comes here
  explicit Tokenizer(T&& temporary, std::string_view delimiters = "") = delete;

  /// Next token, never empty; no value at the end of the text.
  std::optional<std::string_view> Next() { return Next(delimiters_); }
  /// The same with other delimiters for this call.
  std::optional<std::string_view> Next(std::string_view delimiters) { return Next(ByteSet(delimiters)); }
  /// The text after the last token and its delimiter.
  std::string_view Rest() const { return rest_; }

 private:
  std::optional<std::string_view> Next(const ByteSet& delimiters);

  std::string_view rest_;
  ByteSet delimiters_;
};

}  // namespace sondera
