// board_reply.cpp - reads lines, fields and samples of a board program.
#include "acquisition/board_reply.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <system_error>

namespace sondera {
namespace {

constexpr std::size_t kLongestDeviceName = 4;
constexpr std::size_t kMostNames = 256;
constexpr std::size_t kMostLimits = 254;  // the session's table keeps 255 and a 0 after them

bool IsPrintable(char c) {
  return c >= ' ' && c <= '~';
}

double FromLittleEndian(double x) {
  if constexpr (std::endian::native == std::endian::little) return x;
  auto bytes = std::bit_cast<std::array<unsigned char, sizeof(double)>>(x);
  std::reverse(bytes.begin(), bytes.end());
  return std::bit_cast<double>(bytes);
}

/// Parts between single separators; an empty part is kept. An empty text has none.
std::vector<std::string_view> PartsOf(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  if (text.empty()) return parts;
  for (std::size_t from = 0;;) {
    const std::size_t to = text.find(separator, from);
    parts.push_back(text.substr(from, to - from));
    if (to == std::string_view::npos) return parts;
    from = to + 1;
  }
}

bool AllPrintable(std::string_view text) {
  return std::all_of(text.begin(), text.end(), IsPrintable);
}

bool TakeNames(std::string_view text, std::size_t longest, std::string_view forbidden,
               std::vector<std::string>& names) {
  std::vector<std::string> taken;
  for (const std::string_view part : PartsOf(text, ',')) {
    if (part.empty() || part.size() > longest || !AllPrintable(part) ||
        part.find_first_of(forbidden) != std::string_view::npos)
      return false;
    if (std::find(taken.begin(), taken.end(), part) != taken.end() || taken.size() == kMostNames)
      return false;
    taken.emplace_back(part);
  }
  names = std::move(taken);
  return true;
}

}  // namespace

void BoardReplyReader::ExpectLine() {
  *this = {};
}

void BoardReplyReader::ExpectSamples(double* samples, std::size_t count) {
  samples_ = samples;
  bytesWanted_ = count * sizeof(double);
  bytesTaken_ = 0;
  whole_ = count == 0;
}

std::size_t BoardReplyReader::Feed(const char* bytes, std::size_t count) {
  if (whole_ || !fault_.empty()) return 0;
  return samples_ ? FeedSamples(bytes, count) : FeedLine(bytes, count);
}

std::size_t BoardReplyReader::FeedLine(const char* bytes, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    if (bytes[i] == '\n') {
      whole_ = true;
      return i + 1;
    }
    if (!IsPrintable(bytes[i])) {
      fault_ = "its reply has a byte that is not printable ASCII";
      return i;
    }
    if (line_.size() + 1 == kLongestBoardLine) {
      fault_ = "its reply has a line of more than 4096 bytes";
      return i;
    }
    line_.push_back(bytes[i]);
  }
  return count;
}

std::size_t BoardReplyReader::FeedSamples(const char* bytes, std::size_t count) {
  const std::size_t taken = std::min(count, bytesWanted_ - bytesTaken_);
  std::memcpy(reinterpret_cast<char*>(samples_) + bytesTaken_, bytes, taken);
  const std::size_t from = bytesTaken_ / sizeof(double);
  bytesTaken_ += taken;
  for (std::size_t i = from; i < bytesTaken_ / sizeof(double); ++i) {
    samples_[i] = FromLittleEndian(samples_[i]);
    if (std::isfinite(samples_[i])) continue;
    fault_ = "its record has a sample that is not finite";
    return taken;
  }
  whole_ = bytesTaken_ == bytesWanted_;
  return taken;
}

bool ParseBoardReply(std::string_view line, BoardReply& reply) {
  if (line == "ok" || line.starts_with("ok ")) {
    reply = {.ok = true, .code = 0, .text = std::string(line.substr(std::min<std::size_t>(line.size(), 3)))};
    return true;
  }
  if (!line.starts_with("err ")) return false;
  line.remove_prefix(4);
  const std::string_view code = line.substr(0, line.find(' '));
  std::int64_t value = 0;
  if (!ParseWholeField(code, std::numeric_limits<int>::min(), -1, value)) return false;
  line.remove_prefix(std::min(line.size(), code.size() + 1));
  reply = {.ok = false, .code = static_cast<int>(value), .text = std::string(line)};
  return true;
}

bool ParseWholeField(std::string_view text, std::int64_t low, std::int64_t high, std::int64_t& value) {
  std::int64_t read = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), read);
  if (error != std::errc() || end != text.data() + text.size() || read < low || read > high) return false;
  value = read;
  return true;
}

bool ParseRealField(std::string_view text, double& value) {
  double read = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), read);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(read)) return false;
  value = read;
  return true;
}

bool ParseDeviceNames(std::string_view text, std::vector<std::string>& names) {
  return TakeNames(text, kLongestDeviceName, " :", names);
}

bool ParseInputNames(std::string_view text, std::vector<std::string>& names) {
  return !text.empty() && TakeNames(text, kLongestBoardLine, " ", names);
}

bool ParseRanges(std::string_view text, std::vector<double>& limits) {
  std::vector<double> taken;
  for (const std::string_view part : PartsOf(text, ' ')) {
    double limit = 0.0;
    if (!ParseRealField(part, limit) || taken.size() == kMostLimits) return false;
    if (taken.size() % 2 == 1 && !(taken.back() < limit)) return false;
    taken.push_back(limit);
  }
  if (taken.empty() || taken.size() % 2 == 1) return false;
  limits = std::move(taken);
  return true;
}

bool ParseRecordHead(std::string_view text, BoardRecordHead& head) {
  const std::vector<std::string_view> parts = PartsOf(text, ' ');
  constexpr std::int64_t kAny = std::numeric_limits<std::int64_t>::max();
  BoardRecordHead read;
  if (parts.size() != 3 || !ParseWholeField(parts[0], 0, kAny, read.samples) ||
      !ParseWholeField(parts[1], 0, kAny, read.channels))
    return false;
  const char* const end = parts[2].data() + parts[2].size();
  const auto mask = std::from_chars(parts[2].data(), end, read.overload, 16);
  if (mask.ec != std::errc() || mask.ptr != end) return false;
  head = read;
  return true;
}

}  // namespace sondera
