// project_bytes.h - a second writer of the project file, straight from its tables and sharing no code with
// the first; and small and random projects to write.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "records/measdb.h"

namespace sondera::testing {

/// Bytes in file order.
class ByteStream {
 public:
  ByteStream& I(int v);
  ByteStream& D(double v);
  /// 256 bytes: the text, then zeros.
  ByteStream& T(const std::string& text);
  /// An integer that sizes what follows; its position is kept.
  ByteStream& Count(int v);
  /// The first n values.
  ByteStream& Is(const std::vector<int>& v, int n);
  ByteStream& Ds(const std::vector<double>& v, int n);
  ByteStream& Add(const ByteStream& other);

  std::string bytes;
  std::vector<std::size_t> counts;  ///< positions of the integers that size something
};

// The sections with the present database and records.
ByteStream SetupBytes();
ByteStream RawBytes();
ByteStream AnalysisBytes();
ByteStream ModelingBytes();
ByteStream ProjectBytes();

/// A fresh session with model records, and an empty database.
void StartEmptyProject();
/// One measurement of 2 channels and 2 lines with a mask, a pair (4 by 3 Gabor cells), a global and an array
/// curve, small model records and two stored iterations.
void MakeSmallProject();
/// Measurements, pairs, masks, curves and records full of random values, sizes by the seed. Keys have gaps.
void MakeRandomProject(unsigned seed);

/// Writes 0x7fffffff and the like over an integer.
void PutInt(std::string& bytes, std::size_t position, std::int32_t value);
std::int32_t IntAt(const std::string& bytes, std::size_t position);

}  // namespace sondera::testing
