#include "support/seg2_writer.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <numeric>

#include "runtime/text_format.h"

namespace sondera::test {
namespace {

constexpr std::size_t kHead = 32;

/// Four samples: exponents, the first in the lowest bits, then mantissas in one's complement.
std::string PackedGroup(const double* samples, std::size_t count, bool bigEndian) {
  unsigned exponents = 0;
  std::string words;
  for (std::size_t k = 0; k < 4; ++k) {
    long value = k < count ? std::lround(samples[k]) : 0;
    unsigned exponent = 0;
    while (std::labs(value) > 0x7FFF) {
      value /= 2;
      ++exponent;
    }
    exponents |= exponent << (4 * k);
    const unsigned word = value < 0 ? ~static_cast<unsigned>(-value) & 0xFFFFu : static_cast<unsigned>(value);
    words += Seg2Number(word, 2, bigEndian);
  }
  return Seg2Number(exponents, 2, bigEndian) + words;
}

std::string TraceBlock(const Seg2TraceSpec& trace, const Seg2Spec& spec) {
  std::string strings;
  for (const std::string& text : trace.strings) strings += Seg2String(text, spec.terminator, spec.bigEndian);
  strings += std::string(2, '\0');
  if (trace.rawStrings) strings = *trace.rawStrings;
  const std::string data = Seg2Samples(trace.samples, trace.code, spec.bigEndian);
  std::string head =
      Seg2Number(0x4422, 2, spec.bigEndian) + Seg2Number(kHead + strings.size(), 2, spec.bigEndian) +
      Seg2Number(trace.claimedBytes.value_or(static_cast<std::uint32_t>(data.size())), 4, spec.bigEndian) +
      Seg2Number(trace.claimedSamples.value_or(static_cast<std::uint32_t>(trace.samples.size())), 4,
                 spec.bigEndian) +
      static_cast<char>(trace.code);
  head.resize(kHead, '\0');
  return head + strings + data;
}

}  // namespace

std::string Seg2Number(std::uint64_t value, std::size_t count, bool bigEndian) {
  std::string bytes;
  for (std::size_t i = 0; i < count; ++i)
    bytes += static_cast<char>(value >> 8 * (bigEndian ? count - 1 - i : i) & 0xFF);
  return bytes;
}

std::string Seg2String(std::string_view text, std::string_view terminator, bool bigEndian,
                       std::string_view padding) {
  std::string body = std::string(text) + std::string(terminator) + std::string(padding);
  return Seg2Number(body.size() + 2, 2, bigEndian) + body;
}

std::string Seg2Samples(const std::vector<double>& samples, int code, bool bigEndian) {
  std::string bytes;
  if (code == 3) {
    for (std::size_t i = 0; i < samples.size(); i += 4)
      bytes += PackedGroup(samples.data() + i, samples.size() - i, bigEndian);
    return bytes;
  }
  for (double v : samples) {
    const auto whole = static_cast<std::uint64_t>(static_cast<std::int64_t>(code < 3 ? v : 0.0));
    if (code == 1) bytes += Seg2Number(whole, 2, bigEndian);
    if (code == 2) bytes += Seg2Number(whole, 4, bigEndian);
    if (code == 4) bytes += Seg2Number(std::bit_cast<std::uint32_t>(static_cast<float>(v)), 4, bigEndian);
    if (code == 5) bytes += Seg2Number(std::bit_cast<std::uint64_t>(v), 8, bigEndian);
  }
  return bytes;
}

std::string Seg2Bytes(const Seg2Spec& spec) {
  const std::size_t n = spec.traces.size();
  const std::size_t room = spec.pointerBlock > 0 ? spec.pointerBlock : 4 * n;
  std::string strings;
  for (const std::string& text : spec.strings) strings += Seg2String(text, spec.terminator, spec.bigEndian);
  strings += std::string(2, '\0');
  std::vector<std::size_t> order(n);
  std::iota(order.begin(), order.end(), 0);
  if (spec.blocksBackwards) std::reverse(order.begin(), order.end());
  std::vector<std::size_t> pointers(n);
  std::string blocks;
  for (std::size_t i : order) {
    pointers[i] = kHead + room + strings.size() + blocks.size();
    blocks += TraceBlock(spec.traces[i], spec);
  }
  std::string head = Seg2Number(0x3A55, 2, spec.bigEndian) + Seg2Number(1, 2, spec.bigEndian) +
                     Seg2Number(room, 2, spec.bigEndian) + Seg2Number(n, 2, spec.bigEndian);
  for (const std::string* end : {&spec.terminator, &spec.lineTerminator}) {
    std::string field(1, static_cast<char>(end->size()));
    field += *end;
    field.resize(3, '\0');
    head += field;
  }
  head.resize(kHead, '\0');
  for (std::size_t at : pointers) head += Seg2Number(at, 4, spec.bigEndian);
  head.resize(kHead + room, '\0');
  return head + strings + blocks;
}

Seg2Spec Seg2OfLine(const Seg2Line& line) {
  constexpr double kMillivoltsPerCount = 0.001;
  const auto number = [&](double x) { return line.number ? line.number(x) : FormatText("%g", x); };
  Seg2Spec spec;
  spec.bigEndian = line.bigEndian;
  spec.strings = {"ACQUISITION_DATE 01/Jan/2020", "UNITS " + line.units, "NOTE \n BASE_INTERVAL 1 \n"};
  if (line.units.empty()) spec.strings.erase(spec.strings.begin() + 1);
  for (std::size_t r = 0; r < line.receivers.size(); ++r) {
    Seg2TraceSpec trace;
    trace.code = line.code;
    trace.strings = {FormatText("CHANNEL_NUMBER %zu", r + 1),
                     FormatText("DELAY %g", line.delay),
                     FormatText("DESCALING_FACTOR %g", kMillivoltsPerCount),
                     "RECEIVER_LOCATION " + number(line.receivers[r]),
                     FormatText("SAMPLE_INTERVAL %.9g", line.interval),
                     "SOURCE_LOCATION " + number(line.source),
                     "STACK 1"};
    for (int i = 0; i < line.samples; ++i) {
      const double volts = line.value ? line.value(r, line.delay + i * line.interval) : 0.0;
      const double counts = volts / (kMillivoltsPerCount * 1e-3);
      trace.samples.push_back(line.code < 4 ? std::round(counts) : counts);
    }
    spec.traces.push_back(std::move(trace));
  }
  return spec;
}

Seg2Line WithWave(Seg2Line line, double velocity) {
  line.value = [source = line.source, receivers = line.receivers, velocity](std::size_t r, double time) {
    const double t = time - std::fabs(receivers[r] - source) / velocity;
    return t <= 0.0 ? 0.0 : t * t * std::exp(-60.0 * t) * std::sin(88.0 * t);
  };
  return line;
}

}  // namespace sondera::test
