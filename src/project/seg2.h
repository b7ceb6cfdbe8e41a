// seg2.h - reads SEG-2 files, the shot format of most seismographs: bytes in, traces out.
//
// The layout, in the byte order that the first two bytes define:
//
//     0-1    3A55 hex; bytes 55 3A: little endian, 3A 55: big endian
//     2-3    revision
//     4-5    M, bytes of the block of pointers, often far more than the pointers take
//     6-7    N, traces
//     8-10   string terminator: length 1 or 2, characters; 11-13 line terminator inside NOTE, likewise
//     32...  N pointers (32 bits, from the start of the file) to the traces
//     32+M   strings of the file
//
//     trace: 0-1 4422 hex; 2-3 X, bytes of this block; 4-7 Y, bytes of data; 8-11 samples; 12 format code;
//            32... strings; the data begin at pointer + X
//     string: 16-bit distance from its own first byte to the next string (0 ends the list), "KEY value",
//             terminator, padding
//
// Blocks may have any order. No dialogs: a sentence describes each part that cannot be read. Callers:
// import_seg2, its tests, the fuzz target.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sondera {

/// More traces than any recorder has; a file that states more is refused.
inline constexpr int kMostSeg2Traces = 4096;

/// Sample formats.
enum class Seg2Code : int { Int16 = 1, Int32 = 2, Packed20 = 3, Float32 = 4, Float64 = 5 };

struct Seg2Trace {
  int number = 0;  ///< position among the pointers, from 1
  int code = 0;
  std::vector<double> samples;       ///< as recorded, mostly counts
  std::vector<std::string> strings;  ///< "KEY value"

  double interval = 0.0;         ///< SAMPLE_INTERVAL, s, above 0
  std::optional<double> delay;   ///< DELAY, s: time of the first sample against the shot
  std::optional<double> factor;  ///< DESCALING_FACTOR, mV per count
  int stack = 1;                 ///< STACK, blows summed in the recorder
  std::vector<double> receiver,
      source;         ///< RECEIVER_LOCATION, SOURCE_LOCATION: 1 to 3 numbers, empty: missing
  double skew = 0.0;  ///< SKEW, s
};

struct Seg2File {
  bool bigEndian = false;
  int revision = 0;
  int pointers = 0;                  ///< number of traces that the file states
  std::vector<std::string> strings;  ///< of the file
  std::vector<Seg2Trace> traces;     ///< the complete ones, in the order of the pointers
  std::vector<std::string> refused;  ///< a sentence for each of the others, the first ones
  std::vector<std::string> remarks;  ///< unusual contents that were read in spite of it
};

/// Whether the first two bytes are those of a SEG-2 file.
bool IsSeg2(std::string_view bytes);

/// Reads a file that is completely in memory. Returns "", or the sentence that refuses it: not a SEG-2 file,
/// or no complete trace in it. Sizes are compared with the file before anything is allocated; overlapping
/// blocks are read once.
std::string ReadSeg2(std::string_view bytes, Seg2File& file);

/// Value of a key, in upper or lower case; the first one of several. No value without the key.
std::optional<std::string_view> Seg2Value(const std::vector<std::string>& strings, std::string_view key);

/// Leading number of a value: decimal point or comma, any exponent, a unit after it. No value without a
/// finite one.
std::optional<double> Seg2Number(std::string_view value);

/// Up to three leading numbers between blanks (or commas, where those cannot be decimal commas).
std::vector<double> Seg2Numbers(std::string_view value);

}  // namespace sondera
