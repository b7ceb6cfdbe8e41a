// meassetup.cpp - see meassetup.h. Owns no state.
#include "panels/meassetup.h"

#include "records/session.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/meassetup.h"

namespace sondera {
namespace {

constexpr int kEvenSpacing = 1;

}  // namespace

int UpdateWLenFilterCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  session.alphaWlen = GetCtrlVal(meassetup::HYX_WLENFILTER);
  SetCtrlVal(loadtxdata::WLENGTHFILTER, session.alphaWlen);
  return 0;
}

int RSpacingOptionCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const bool even = GetCtrlVal(meassetup::RSPACING) == kEvenSpacing;
  SetVisible(meassetup::EVENSPACING, even);
  SetVisible(meassetup::CHNLLOC, !even);
  SetVisible(meassetup::NCHANNELS3, !even);
  SetVisible(meassetup::CHNLLOCLABEL, !even);
  return 0;
}

}  // namespace sondera
