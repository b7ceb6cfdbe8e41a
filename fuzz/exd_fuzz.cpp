// exd_fuzz.cpp - any bytes as experimental dispersion curves: each imported curve is a complete measurement
// with finite numbers, and a second reading overwrites it.
#include <cmath>
#include <cstdint>
#include <string_view>

#include "demand.h"
#include "numeric/analysis.h"
#include "panels/mainmenu_curves.h"
#include "project/exd_files.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/dialogs.h"

using namespace sondera;
using fuzz::Demand;

namespace {

void DemandWholeRecords() {
  Demand(MeasDB.idList.count() == MeasDB.hwSetupList.count());
  Demand(MeasDB.idList.count() == MeasDB.measSetupList.count());
  Demand(MeasDB.idList.count() == MeasDB.rawDataList.count());
  Demand(MeasDB.idList.count() == MeasDB.pMeasList.count());
  for (const PMeasInfo& p : MeasDB.pMeasList) {
    Demand(p.nDispPoints > 0 && p.nDispPoints < p.capacity() && p.included == 1);
    for (int i = 0; i < p.nDispPoints; ++i) {
      const auto k = static_cast<std::size_t>(i);
      Demand(std::isfinite(p.dispVel[k]) && std::isfinite(p.dispFreq[k]) && std::isfinite(p.dispWlen[k]));
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ResetSession();
  SetupGlobalArrays();
  FrontEnd frontEnd;
  frontEnd.confirm = [](std::string_view, std::string_view) { return true; };
  InstallFrontEnd(frontEnd);
  for (int round = 0; round < 2; ++round) {
    const int before = MeasDB.idList.count();
    TextReader text;
    text.OpenMemory({reinterpret_cast<const char*>(data), size});
    ReadExdCurves(text, "fuzz");
    DemandWholeRecords();
    Demand(round == 0 || MeasDB.idList.count() == before);
  }
  ReleaseFFTPlans();
  return 0;
}
