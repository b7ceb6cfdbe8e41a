// text_reader_fuzz.cpp - any bytes as text: lines lose nothing, numbers are those of the C library.
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>

#include "demand.h"
#include "runtime/text_format.h"
#include "runtime/text_reader.h"

using namespace sondera;
using fuzz::Demand;

namespace {

/// The text with every CR LF as LF.
std::string WithPlainLineEnds(const std::string& text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i)
    if (text[i] != '\r' || i + 1 == text.size() || text[i + 1] != '\n') plain += text[i];
  return plain;
}

void CheckNumber(std::string_view token) {
  const std::string text(token);
  char* end = nullptr;
  const double expected = std::strtod(text.c_str(), &end);
  std::size_t used = 0;
  const double found = ParseReal(text, &used);
  Demand(found == expected || (std::isnan(found) && std::isnan(expected)));
  Demand(used == static_cast<std::size_t>(end - text.c_str()));
  ParseRealD(text, &used);
  Demand(used <= text.size());
  ParseInt(text, &used);
  Demand(used <= text.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::size_t pieceBytes = 1 + data[0] % 64;
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  TextReader reader;
  reader.OpenMemory(text);
  std::string line, all;
  while (reader.ReadLine(line, pieceBytes)) {
    Demand(!line.empty() && line.size() <= pieceBytes);
    all += line;
  }
  Demand(all == WithPlainLineEnds(text));

  reader.Rewind();
  while (reader.ReadPhysicalLine(line, 2 * pieceBytes)) {
    Demand(line.size() <= 2 * pieceBytes && line.find('\n') == std::string::npos);
    Tokenizer tokens(line, " ,\t");
    while (const auto token = tokens.Next()) CheckNumber(*token);
  }
  return 0;
}
