// pair_data.cpp - see pair_data.h. Owns no state.
#include "signal/pair_data.h"

#include <memory>

#include "records/session.h"
#include "signal/spectra.h"

namespace sondera {
namespace {

constexpr int kFirstMarker = 12;    // solid circle
constexpr int kColorNotGiven = -1;  // assigned when the curve is first drawn

/// False, and nothing done, when the measurement has more lines than the record can hold.
bool FillFromAverages(const std::string& projID, const std::string& measID, PMeasInfo& pair) {
  const int hwPos = MeasDB.hwSetupList.findKey(pair.key);
  if (hwPos < 0 || MeasDB.hwSetupList.at(hwPos)->nLines > pair.capacity()) return false;
  const int a = pair.refChan, b = pair.dspChan;
  CalcSpectralData(spectral::kTransferFunction, projID, measID, a, b, pair.hRe.data(), pair.hIm.data());
  CalcSpectralData(spectral::kTransferAmplitude, projID, measID, a, b, pair.hAmp.data(), nullptr);
  CalcSpectralData(spectral::kTransferPhase, projID, measID, a, b, pair.hPhase.data(), nullptr);
  CalcSpectralData(spectral::kImpulseResponse, projID, measID, a, b, pair.irRe.data(), pair.irIm.data());
  return true;
}

}  // namespace

PMeasInfo* MakePairRecord(const std::string& projID, const std::string& measID, int chanA, int chanB,
                          const HWSetup& hwSetup, int phaseOption) {
  const int key = GetKeyFromID(projID, measID);
  const bool inside = chanA >= 0 && chanB >= 0 && chanA < hwSetup.nChannels && chanB < hwSetup.nChannels;
  const bool hasData = MeasDB.rawDataList.findKey(key) > 0;  // lines without data may hold any number
  if (key == -1 || !inside || !hasData || hwSetup.nLines <= 0) return nullptr;
  auto made = std::make_unique<PMeasInfo>();
  SetupPairMeasArrays(*made, hwSetup.nLines);
  made->key = key;
  made->refChan = chanA;
  made->dspChan = chanB;
  made->gaborTimeStep = 0.015625;
  made->gaborFreqStep = 0.0625;
  made->irfMode = 0;
  made->phaseOption = phaseOption;
  made->wlenCrit = 0.25;
  made->included = 1;
  made->marker = kFirstMarker;
  made->color = kColorNotGiven;
  made->band = 0.5;
  made->beta = 3.0;
  made->timeDiv = made->freqDiv = kGaborDivisions;
  made->nContLevel = 10;
  made->cntThreshold = session.gaborThreshold;
  made->finalTime = made->finalFreq = 0.0;
  if (!FillFromAverages(projID, measID, *made)) return nullptr;
  return MeasDB.pMeasList.append(std::move(made));
}

bool RefreshPairRecord(const std::string& projID, const std::string& measID, int chanA, int chanB,
                       const HWSetup& hwSetup, PMeasInfo* pair) {
  if (!pair || pair->key != GetKeyFromID(projID, measID)) return false;
  if (pair->refChan != chanA || pair->dspChan != chanB || pair->capacity() < hwSetup.nLines) return false;
  return FillFromAverages(projID, measID, *pair);
}

}  // namespace sondera
