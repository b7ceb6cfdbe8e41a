// pairs.cpp - see pairs.h.
#include "app/script/pairs.h"

#include <algorithm>
#include <vector>

#include "app/script/fault.h"
#include "app/script/values.h"
#include "records/session.h"
#include "runtime/text_format.h"

namespace sondera::script {

void CheckChannels(const Arguments& a) {
  if (a.whole("REF") < 1 || a.whole("CHANNEL") < 1) throw Fault("channels count from 1");
}

NamedPair NamedPairOf(const Arguments& a) {
  NamedPair pair{a.text("ID"), a.whole("REF") - 1, a.whole("CHANNEL") - 1, -1};
  pair.key = GetKeyFromID(session.curProjID, pair.id);
  MeasRecords records;
  if (pair.key == -1 || GetInfoFromKey(pair.key, records) == -1 || records.hwPos <= 0) {
    std::vector<std::string> ids;
    for (const IDInfo& id : MeasDB.idList) ids.push_back(id.MeasID);
    throw Fault(UnknownText("measurement", pair.id, ids));
  }
  const int channels = records.hwSetup->nChannels;
  if (pair.ref >= channels || pair.channel >= channels)
    throw Fault(FormatText("the measurement %s has the channels 1 to %d", Quoted(pair.id).c_str(), channels));
  return pair;
}

PMeasInfo& PairOfArguments(const Arguments& a) {
  const NamedPair named = NamedPairOf(a);
  PMeasInfo* pair = FindPair(named.key, named.ref, named.channel);
  if (!pair)
    throw Fault(FormatText("nothing has been computed of the channels %d and %d of %s", named.ref + 1,
                           named.channel + 1, Quoted(named.id).c_str()));
  return *pair;
}

std::optional<double> VelocityOfPair(const PMeasInfo& pair, double frequency) {
  const std::size_t n = std::min(
      {static_cast<std::size_t>(std::max(pair.nDispPoints, 0)), pair.dispFreq.size(), pair.dispVel.size()});
  for (std::size_t i = 0; i < n; ++i) {
    if (pair.dispFreq[i] == frequency) return pair.dispVel[i];
    if (i == 0) continue;
    const double below = pair.dispFreq[i - 1], above = pair.dispFreq[i];
    if ((below - frequency) * (above - frequency) > 0.0 || above == below) continue;
    const double share = (frequency - below) / (above - below);
    return pair.dispVel[i - 1] + share * (pair.dispVel[i] - pair.dispVel[i - 1]);
  }
  return std::nullopt;
}

}  // namespace sondera::script
