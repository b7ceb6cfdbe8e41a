// Any bytes as the answer of a board program: a line, fields of every kind, samples after it. The first byte
// says how the bytes are cut into pieces and how many samples are requested. The answer must not depend on
// the pieces, and nothing beyond the request may be used.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "acquisition/board_reply.h"
#include "demand.h"

namespace {

using namespace sondera;
using fuzz::Demand;

constexpr std::size_t kMostSamples = 16;

struct Answer {
  std::string line, fault;
  bool whole = false;
  std::vector<double> samples;
  std::size_t taken = 0;
};

/// Feeds what is expected in pieces of `piece` bytes, and a following record when the line is whole.
Answer Read(const char* bytes, std::size_t count, std::size_t piece, std::size_t nSamples) {
  Answer answer;
  BoardReplyReader reader;
  reader.ExpectLine();
  const auto feed = [&] {
    while (answer.taken < count && !reader.Whole() && reader.Fault().empty()) {
      const std::size_t given = std::min(piece, count - answer.taken);
      const std::size_t taken = reader.Feed(bytes + answer.taken, given);
      Demand(taken <= given);
      answer.taken += taken;
    }
  };
  feed();
  answer.line = reader.Line();
  Demand(answer.line.size() < kLongestBoardLine);
  if (reader.Whole()) {
    answer.samples.assign(nSamples, 0.0);
    reader.ExpectSamples(answer.samples.data(), nSamples);
    feed();
    if (reader.Whole())
      for (const double x : answer.samples) Demand(std::isfinite(x));
  }
  answer.whole = reader.Whole();
  answer.fault = reader.Fault();
  return answer;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const char* const bytes = reinterpret_cast<const char*>(data + 1);
  const std::size_t nSamples = data[0] % kMostSamples, piece = 1 + data[0] / kMostSamples;
  const Answer whole = Read(bytes, size - 1, size, nSamples), pieces = Read(bytes, size - 1, piece, nSamples);
  Demand(whole.whole == pieces.whole && whole.fault == pieces.fault && whole.line == pieces.line);
  if (whole.whole) Demand(whole.taken == pieces.taken);

  BoardReply reply;
  if (!ParseBoardReply(whole.line, reply)) return 0;
  Demand(reply.ok || reply.code < 0);
  std::int64_t number = 0;
  double real = 0.0;
  std::vector<std::string> names;
  std::vector<double> limits;
  BoardRecordHead head;
  if (ParseWholeField(reply.text, -5, 5, number)) Demand(number >= -5 && number <= 5);
  if (ParseRealField(reply.text, real)) Demand(std::isfinite(real));
  if (ParseDeviceNames(reply.text, names))
    for (const std::string& name : names) Demand(!name.empty() && name.size() <= 4);
  if (ParseInputNames(reply.text, names)) Demand(!names.empty());
  if (ParseRanges(reply.text, limits)) Demand(limits.size() % 2 == 0 && limits.size() <= 254);
  if (ParseRecordHead(reply.text, head)) Demand(head.samples >= 0 && head.channels >= 0);
  return 0;
}
