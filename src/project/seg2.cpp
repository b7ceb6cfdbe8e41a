// seg2.cpp - see seg2.h. Owns no state.
#include "project/seg2.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr std::size_t kHead = 32;  // bytes before pointers and strings
constexpr unsigned kTraceMark = 0x4422;
constexpr std::size_t kDistance = 2, kPointer = 4;
constexpr std::size_t kLongestTerminator = 2;
constexpr std::size_t kShortestString = 3;  // a key, a blank, a value
constexpr std::size_t kSmallestTrace = 50;  // bytes: head, SAMPLE_INTERVAL, one sample
constexpr std::size_t kMostSentences = 10;  // of one kind; a damaged file could give pages of them
constexpr std::size_t kGroup = 4, kGroupBytes = 10, kExponentBits = 4;
constexpr double kMostStack = 1e6;

/// The file, read in its byte order. Callers request existing bytes only.
class Bytes {
 public:
  Bytes(std::string_view all, bool bigEndian) : all_(all), big_(bigEndian) {}

  std::size_t size() const { return all_.size(); }
  bool holds(std::size_t at, std::size_t count) const { return at <= size() && count <= size() - at; }
  std::string_view part(std::size_t at, std::size_t count) const { return all_.substr(at, count); }

  /// Whether numbers have another byte order than the machine.
  bool isSwapped() const { return big_ != (std::endian::native == std::endian::big); }

  template <class Value>
  Value number(std::size_t at) const {
    std::array<char, sizeof(Value)> raw;
    std::copy_n(all_.data() + at, raw.size(), raw.begin());
    if (isSwapped()) std::reverse(raw.begin(), raw.end());
    return std::bit_cast<Value>(raw);
  }
  unsigned u8(std::size_t at) const { return number<std::uint8_t>(at); }
  unsigned u16(std::size_t at) const { return number<std::uint16_t>(at); }
  std::uint32_t u32(std::size_t at) const { return number<std::uint32_t>(at); }

 private:
  std::string_view all_;
  bool big_;
};

/// Ends a text: characters after it are padding. Empty: only the distance ends it.
using Terminator = std::string_view;

Terminator TerminatorOf(const Bytes& bytes) {
  const std::size_t length = bytes.u8(8);
  return length >= 1 && length <= kLongestTerminator ? bytes.part(9, length) : Terminator{};
}

std::string_view Trimmed(std::string_view text) {
  const auto isBlank = [](char c) { return c == '\0' || std::isspace(static_cast<unsigned char>(c)) != 0; };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

/// Calls take(text) for each string from `at` on. False when a distance is too short or goes beyond `end`.
template <class Take>
bool ForEachString(const Bytes& bytes, std::size_t at, std::size_t end, Terminator terminator, Take take) {
  end = std::min(end, bytes.size());
  while (at <= end && kDistance <= end - at) {
    const std::size_t distance = bytes.u16(at);
    if (distance == 0) return true;
    if (distance <= kDistance || distance > end - at) return false;
    std::string_view text = bytes.part(at + kDistance, distance - kDistance);
    if (!terminator.empty()) text = text.substr(0, text.find(terminator));
    if (text = Trimmed(text); text.size() >= kShortestString) take(text);
    at += distance;
  }
  return true;
}

/// False as above; the strings before the fault are kept.
bool ReadStrings(const Bytes& bytes, std::size_t at, std::size_t end, Terminator terminator,
                 std::vector<std::string>& strings) {
  std::size_t count = 0;
  ForEachString(bytes, at, end, terminator, [&](std::string_view) { ++count; });
  strings.reserve(count);  // growing would use more memory than the file justifies
  return ForEachString(bytes, at, end, terminator,
                       [&](std::string_view text) { strings.emplace_back(text); });
}

void Say(std::vector<std::string>& sentences, std::string text) {
  if (sentences.size() < kMostSentences) sentences.push_back(std::move(text));
}

// ---- samples --------------------------------------------------------------------------------------------

/// Bytes of n samples; 0 for a code that does not exist.
std::uint64_t BytesOf(int code, std::uint64_t n) {
  switch (static_cast<Seg2Code>(code)) {
    case Seg2Code::Int16:
      return 2 * n;
    case Seg2Code::Int32:
    case Seg2Code::Float32:
      return 4 * n;
    case Seg2Code::Packed20:
      return kGroupBytes * ((n + kGroup - 1) / kGroup);
    case Seg2Code::Float64:
      return 8 * n;
  }
  return 0;
}

/// Mantissa in one's complement, where FFFF is also zero, times 2^exponent.
double PackedSample(unsigned mantissa, unsigned exponent) {
  const std::int64_t value = mantissa & 0x8000u ? -static_cast<std::int64_t>(~mantissa & 0xFFFFu)
                                                : static_cast<std::int64_t>(mantissa);
  return static_cast<double>(value * (std::int64_t{1} << exponent));
}

void ReadPacked(const Bytes& bytes, std::size_t at, std::vector<double>& samples) {
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const std::size_t group = at + i / kGroup * kGroupBytes, k = i % kGroup;
    const unsigned exponent = bytes.u16(group) >> (kExponentBits * k) & 0xFu;
    samples[i] = PackedSample(bytes.u16(group + 2 + 2 * k), exponent);
  }
}

template <class Value>
void ReadPlain(const Bytes& bytes, std::size_t at, std::vector<double>& samples) {
  const std::string_view raw = bytes.part(at, samples.size() * sizeof(Value));
  if (bytes.isSwapped()) {
    for (std::size_t i = 0; i < samples.size(); ++i)
      samples[i] = static_cast<double>(bytes.number<Value>(at + i * sizeof(Value)));
    return;
  }
  for (std::size_t i = 0; i < samples.size(); ++i) {  // without a branch the compiler vectorises the loop
    Value value;
    std::memcpy(&value, raw.data() + i * sizeof(Value), sizeof(Value));
    samples[i] = static_cast<double>(value);
  }
}

void ReadSamples(const Bytes& bytes, std::size_t at, int code, std::vector<double>& samples) {
  switch (static_cast<Seg2Code>(code)) {
    case Seg2Code::Int16:
      return ReadPlain<std::int16_t>(bytes, at, samples);
    case Seg2Code::Int32:
      return ReadPlain<std::int32_t>(bytes, at, samples);
    case Seg2Code::Packed20:
      return ReadPacked(bytes, at, samples);
    case Seg2Code::Float32:
      return ReadPlain<float>(bytes, at, samples);
    case Seg2Code::Float64:
      return ReadPlain<double>(bytes, at, samples);
  }
}

// ---- traces ---------------------------------------------------------------------------------------------

/// Rest of the file for blocks that do not overlap: if all pointers point to one long trace, it must not be
/// copied many times.
struct Claims {
  std::uint64_t left;
  bool take(std::uint64_t count) {
    if (count > left) return false;
    left -= count;
    return true;
  }
};

/// Fills the fields that have keys. Empty, or why the trace cannot be used.
std::string TakeKeys(Seg2Trace& trace) {
  const auto value = [&](std::string_view key) { return Seg2Value(trace.strings, key).value_or(""); };
  const auto interval = Seg2Value(trace.strings, "SAMPLE_INTERVAL");
  if (!interval) return "SAMPLE_INTERVAL is missing";
  trace.interval = Seg2Number(*interval).value_or(0.0);
  if (!(trace.interval > 0.0)) return "SAMPLE_INTERVAL is not a time above 0";
  trace.delay = Seg2Number(value("DELAY"));
  trace.factor = Seg2Number(value("DESCALING_FACTOR"));
  if (trace.factor == 0.0) trace.factor.reset();
  const double stack = Seg2Number(value("STACK")).value_or(1.0);
  trace.stack = stack >= 1.0 && stack <= kMostStack ? static_cast<int>(stack) : 1;
  trace.receiver = Seg2Numbers(value("RECEIVER_LOCATION"));
  trace.source = Seg2Numbers(value("SOURCE_LOCATION"));
  trace.skew = Seg2Number(value("SKEW")).value_or(0.0);
  return {};
}

/// Reads the trace at a pointer. Empty, or why it is refused.
std::string ReadTrace(const Bytes& bytes, std::size_t at, Terminator terminator, Claims& claims,
                      Seg2Trace& trace, std::vector<std::string>& remarks) {
  if (!bytes.holds(at, kHead))
    return FormatText("its pointer leads to byte %zu, after the end of the file", at);
  if (bytes.u16(at) != kTraceMark) return FormatText("there is no trace at byte %zu", at);
  const std::size_t block = bytes.u16(at + 2);
  const std::uint64_t given = bytes.u32(at + 4), n = bytes.u32(at + 8);
  trace.code = static_cast<int>(bytes.u8(at + 12));
  if (block < kHead || !bytes.holds(at, block))
    return FormatText("its block of %zu bytes cannot be in the file", block);
  const std::uint64_t rest = bytes.size() - at - block, needed = BytesOf(trace.code, n);
  if (n == 0) return "it has no samples";
  if (needed == 0) return FormatText("its samples have the format code %d, which does not exist", trace.code);
  if (given > rest)
    return FormatText("its %llu bytes of data reach beyond the file", static_cast<unsigned long long>(given));
  if (needed > rest)
    return FormatText("its %llu samples reach beyond the file", static_cast<unsigned long long>(n));
  if (!claims.take(block + needed)) return "its block overlaps those of other traces";
  if (given < needed)
    Say(remarks, FormatText("trace %d: %llu samples need %llu bytes and its block states %llu; all are read",
                            trace.number, static_cast<unsigned long long>(n),
                            static_cast<unsigned long long>(needed), static_cast<unsigned long long>(given)));
  if (!ReadStrings(bytes, at + kHead, at + block, terminator, trace.strings))
    Say(remarks, FormatText("trace %d: the list of its keys is damaged and read up to there", trace.number));
  if (std::string reason = TakeKeys(trace); !reason.empty()) return reason;
  trace.samples.resize(static_cast<std::size_t>(n));
  ReadSamples(bytes, at + block, trace.code, trace.samples);
  return {};
}

/// End of the strings of the file: the first trace after their begin.
std::size_t EndOfFileStrings(const Bytes& bytes, std::size_t begin, int pointers) {
  std::size_t end = bytes.size();
  for (int i = 0; i < pointers; ++i) {
    const std::size_t at = kHead + kPointer * static_cast<std::size_t>(i);
    if (!bytes.holds(at, kPointer)) break;
    if (const std::size_t target = bytes.u32(at); target >= begin) end = std::min(end, target);
  }
  return end;
}

std::string NoWholeTrace(const Seg2File& file) {
  std::string text = "the file has no complete trace";
  if (!file.refused.empty()) text += "; " + file.refused.front();
  return text;
}

bool SameWord(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return std::toupper(static_cast<unsigned char>(x)) == std::toupper(static_cast<unsigned char>(y));
  });
}

}  // namespace

bool IsSeg2(std::string_view bytes) {
  return bytes.starts_with("\x55\x3A") || bytes.starts_with("\x3A\x55");
}

std::string ReadSeg2(std::string_view all, Seg2File& file) {
  file = {};
  if (!IsSeg2(all)) return "not a SEG-2 file";
  if (all.size() < kHead) return "the file ends inside its first block";
  const Bytes bytes(all, all.front() == '\x3A');
  file.bigEndian = all.front() == '\x3A';
  file.revision = static_cast<int>(bytes.u16(2));
  const std::size_t room = bytes.u16(4);
  file.pointers = static_cast<int>(bytes.u16(6));
  if (file.pointers == 0) return "the file holds no traces";
  if (file.pointers > kMostSeg2Traces)
    return FormatText("the file states %d traces, and at most %d are read", file.pointers, kMostSeg2Traces);
  const Terminator terminator = TerminatorOf(bytes);
  const std::size_t begin = kHead + room;
  Claims claims{bytes.size()};
  if (const std::size_t end = EndOfFileStrings(bytes, begin, file.pointers);
      begin < end && !ReadStrings(bytes, begin, end, terminator, file.strings))
    Say(file.remarks, "the list of the file's keys is damaged and read up to there");

  int refused = 0;
  const auto refuse = [&](int number, const std::string& reason) {
    ++refused;
    if (file.refused.size() < kMostSentences)
      file.refused.push_back(FormatText("trace %d: ", number) + reason);
  };
  file.traces.reserve(
      std::min<std::size_t>(static_cast<std::size_t>(file.pointers), bytes.size() / kSmallestTrace));
  const int held = static_cast<int>(
      std::min(static_cast<std::size_t>(file.pointers), std::min(room, bytes.size() - kHead) / kPointer));
  for (int i = 0; i < held; ++i) {
    Seg2Trace trace;
    trace.number = i + 1;
    const std::size_t at = bytes.u32(kHead + kPointer * static_cast<std::size_t>(i));
    const std::string reason = ReadTrace(bytes, at, terminator, claims, trace, file.remarks);
    if (reason.empty())
      file.traces.push_back(std::move(trace));
    else
      refuse(trace.number, reason);
  }
  for (int i = held; i < file.pointers; ++i) refuse(i + 1, "its pointer is missing");
  if (const int more = refused - static_cast<int>(file.refused.size()); more > 0)
    file.refused.push_back(FormatText("%d more traces are damaged", more));
  return file.traces.empty() ? NoWholeTrace(file) : std::string();
}

std::optional<std::string_view> Seg2Value(const std::vector<std::string>& strings, std::string_view key) {
  for (const std::string& text : strings) {
    const std::size_t end = std::min(text.find_first_of(" \t\r\n"), text.size());
    if (SameWord(std::string_view(text).substr(0, end), key))
      return Trimmed(std::string_view(text).substr(end));
  }
  return std::nullopt;
}

std::optional<double> Seg2Number(std::string_view value) {
  std::string text(Trimmed(value).substr(0, 64));
  if (const std::size_t comma = text.find(','); comma != std::string::npos) text[comma] = '.';
  std::size_t used = 0;
  const double number = ParseRealD(text, &used);
  if (used == 0 || !std::isfinite(number)) return std::nullopt;
  return number;
}

std::vector<double> Seg2Numbers(std::string_view value) {
  constexpr std::size_t kMostNumbers = 3;
  value = Trimmed(value);
  const auto commas = std::count(value.begin(), value.end(), ',');
  const bool blanks = value.find_first_of(" \t") != std::string_view::npos;
  // "10,0" is a number with a decimal comma; "10.0,0.0" and "1,2,3" are several.
  const bool split = commas > 0 && (value.find('.') != std::string_view::npos || (commas > 1 && !blanks));
  const std::string_view between = split ? " \t," : " \t";
  std::vector<double> numbers;
  numbers.reserve(kMostNumbers);
  for (std::size_t at = 0; numbers.size() < kMostNumbers;) {
    at = value.find_first_not_of(between, at);
    if (at == std::string_view::npos) break;
    const std::size_t end = std::min(value.find_first_of(between, at), value.size());
    const auto number = Seg2Number(value.substr(at, end - at));
    if (!number) break;
    numbers.push_back(*number);
    at = end;
  }
  return numbers;
}

}  // namespace sondera
