// board_reply.h - replies of a board program: lines and samples from outside, compared with the request.
//
// The protocol is in docs/board-protocol.md. Everything here works on bytes in memory; board_process.h has
// the process that they come from. Nothing is allocated but a line of bounded length. Owns no state.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sondera {

/// Longest line of the protocol, its LF included.
inline constexpr std::size_t kLongestBoardLine = 4096;

/// Collects one line, and the samples after it, from bytes that come in pieces.
class BoardReplyReader {
 public:
  /// Begins with a line.
  void ExpectLine();
  /// Continues with `count` little-endian doubles into `samples`, which must stay valid until they are
  /// complete.
  void ExpectSamples(double* samples, std::size_t count);

  /// Takes the bytes that it expects and returns their number: fewer than given when the input is complete,
  /// or invalid.
  std::size_t Feed(const char* bytes, std::size_t count);

  /// The expected input is complete.
  bool Whole() const { return whole_; }
  /// Why it takes no more bytes: a line that is too long or has a control byte, a sample that is not a finite
  /// number. "" for valid bytes.
  const std::string& Fault() const { return fault_; }
  /// The line without its LF.
  const std::string& Line() const { return line_; }

 private:
  std::size_t FeedLine(const char* bytes, std::size_t count);
  std::size_t FeedSamples(const char* bytes, std::size_t count);

  bool whole_ = false;
  std::string fault_, line_;
  double* samples_ = nullptr;  // null: a line is expected
  std::size_t bytesWanted_ = 0, bytesTaken_ = 0;
};

/// Parts of a line.
struct BoardReply {
  bool ok = false;
  int code = 0;      ///< of an error, negative
  std::string text;  ///< after "ok " or the code
};
/// False for a line that is neither "ok ..." nor "err <negative code> ...".
bool ParseBoardReply(std::string_view line, BoardReply& reply);

// Values of a reply. Each uses the whole text and is false, with the value unchanged, for anything that is
// not of its form.

/// A decimal number between two limits: digits with an optional minus, nothing else.
bool ParseWholeField(std::string_view text, std::int64_t low, std::int64_t high, std::int64_t& value);
/// A finite real number.
bool ParseRealField(std::string_view text, double& value);
/// Names of devices, separated by commas: at most four characters each, no blank, no colon, all different. An
/// empty text has none.
bool ParseDeviceNames(std::string_view text, std::vector<std::string>& names);
/// Names of inputs, separated by commas, at least one, no blanks.
bool ParseInputNames(std::string_view text, std::vector<std::string>& names);
/// Pairs of low and high limit, separated by blanks, low below high, at least one and at most 127 pairs.
bool ParseRanges(std::string_view text, std::vector<double>& limits);

/// Values before the samples of a record.
struct BoardRecordHead {
  std::int64_t samples = 0;  ///< per channel
  std::int64_t channels = 0;
  std::uint64_t overload = 0;  ///< bit 0 is the first channel
};
/// "<samples> <channels> <hexadecimal mask>".
bool ParseRecordHead(std::string_view text, BoardRecordHead& head);

}  // namespace sondera
