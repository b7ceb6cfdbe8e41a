// curve_labels.cpp - see curve_labels.h. Owns no state.
#include "records/curve_labels.h"

#include <string_view>

#include "records/session.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr std::string_view kCswPrefix = "CSW";
constexpr std::size_t kCswPrefixLength = 4;  // with the dash

}  // namespace

std::string DispCurveLabel(const std::string& measID, long long refChan, long long dspChan, bool csw) {
  return FormatText(csw ? "CSW-%s[%lld:%lld]" : "%s[%lld:%lld]", measID.c_str(), refChan + 1, dspChan + 1);
}

std::string RepCurveLabel(int key, int refChan, int dspChan, int base) {
  std::string projID, measID;
  GetIDfromKey(key, projID, measID);
  return DispCurveLabel(measID, 0LL + refChan + base - 1, 0LL + dspChan + base - 1);
}

int RetrieveChnlInfo(const std::string& label, int& chan1, int& chan2, std::string& measID) {
  const std::size_t bracket = label.rfind('[');
  if (bracket == std::string::npos) return -1;
  const std::size_t first = label.find_first_not_of(":,", bracket + 1);
  if (first == std::string::npos) return -1;
  const std::size_t split = label.find_first_of(":,", first);
  if (split == std::string::npos) return -1;
  const std::string_view text = label;
  std::size_t used1 = 0, used2 = 0;
  const int number1 = ParseInt(text.substr(first, split - first), &used1);
  const std::size_t end = label.find_first_of("]\n\t", split + 1);
  const int number2 =
      ParseInt(text.substr(split + 1, end == std::string::npos ? end : end - split - 1), &used2);
  if (used1 == 0 || used2 == 0 || number1 < 0 || number2 < 0) return -1;
  std::string id = label.substr(0, bracket);
  if (id.starts_with(kCswPrefix)) id.erase(0, kCswPrefixLength);
  chan1 = number1 - 1;
  chan2 = number2 - 1;
  measID = std::move(id);
  return 0;
}

PMeasInfo* PairOfLabel(const std::string& label) {
  int chan1 = 0, chan2 = 0;
  std::string measID;
  if (RetrieveChnlInfo(label, chan1, chan2, measID) < 0) return nullptr;
  return FindPair(GetKeyFromID(session.curProjID, measID), chan1, chan2);
}

}  // namespace sondera
