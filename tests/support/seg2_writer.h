// seg2_writer.h - writes SEG-2 files for tests: all sample formats, both byte orders, and the odd things that
// recorders do.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sondera::test {

struct Seg2TraceSpec {
  int code = 4;
  std::vector<double> samples;
  std::vector<std::string> strings;
  std::optional<std::string> rawStrings;      ///< the bytes after the head, instead of strings
  std::optional<std::uint32_t> claimedBytes;  ///< Y, instead of the bytes there are
  std::optional<std::uint32_t> claimedSamples;
};

struct Seg2Spec {
  bool bigEndian = false;
  std::string terminator = std::string(1, '\0');
  std::string lineTerminator = "\n";
  std::size_t pointerBlock = 0;  ///< M; 0: as many as the pointers take
  std::vector<std::string> strings;
  std::vector<Seg2TraceSpec> traces;
  bool blocksBackwards = false;  ///< the last trace comes first in the file
};

std::string Seg2Bytes(const Seg2Spec& spec);

/// `count` bytes of a number in the order of the file.
std::string Seg2Number(std::uint64_t value, std::size_t count, bool bigEndian);
/// A string with its distance, terminator and padding.
std::string Seg2String(std::string_view text, std::string_view terminator, bool bigEndian,
                       std::string_view padding = {});
/// Samples in a format code.
std::string Seg2Samples(const std::vector<double>& samples, int code, bool bigEndian);

/// A shot over a line: receivers at the places, every 0.5 ms, 0.01 s before the shot.
struct Seg2Line {
  bool bigEndian = false;
  int code = 5;
  double source = 0.0;
  std::vector<double> receivers;
  int samples = 512;
  double interval = 0.0005, delay = -0.01;
  std::string units = "METERS";
  std::function<double(std::size_t receiver, double time)> value;  ///< in V; the factor makes counts of 1 uV
  std::function<std::string(double)> number;                       ///< text of a place; empty: %g
};
Seg2Spec Seg2OfLine(const Seg2Line& line);
/// The line with a short wave that leaves the source at time 0, at a velocity in units of length per second.
Seg2Line WithWave(Seg2Line line, double velocity);

}  // namespace sondera::test
