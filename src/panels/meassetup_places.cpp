// meassetup_places.cpp - see meassetup_places.h. Owns no state.
#include "panels/meassetup_places.h"

#include "panels/hwsetup.h"
#include "panels/hwsetup_fields.h"
#include "panels/meassetup.h"
#include "records/session.h"
#include "runtime/catalogue/meassetup.h"

namespace sondera {
namespace {

/// Geometry of the current measurement, null with a message when it has none.
MeasSetup* CurrentPlaces() {
  const MeasRecords records = CurrentSetup();
  return records.hwPos > 0 && records.measPos > 0 ? records.measSetup : nullptr;
}

template <class Change>
int ChangePlaces(Event event, Change change) {
  if (event != Event::Commit) return 0;
  MeasSetup* const places = CurrentPlaces();
  if (!places) return -1;
  change(*places);
  FillReceiverList(*places);
  MarkChecked(false);
  return 0;
}

bool HasReceiver(const MeasSetup& places, int channel) {
  return channel >= 0 && static_cast<std::size_t>(channel) < places.recLoc.size();
}

int ShowReceiver(int channel) {
  const MeasSetup* const places = CurrentPlaces();
  if (!places) return -1;
  if (!HasReceiver(*places, channel)) return 0;
  SetCtrlVal(meassetup::NCHANNELS3, channel);
  SetCtrlVal(meassetup::CHNLLOC, places->recLoc[static_cast<std::size_t>(channel)]);
  return 0;
}

}  // namespace

int UpdateSrcLocCallback(Panel, ControlId, Event event, long) {
  return ChangePlaces(event, [](MeasSetup& places) { places.srcLoc = GetCtrlVal(meassetup::SRCLOC); });
}

int UpdateChnlLocCallback(Panel, ControlId, Event event, long) {
  return ChangePlaces(event, [](MeasSetup& places) {
    const int channel = GetCtrlVal(meassetup::NCHANNELS3);
    if (HasReceiver(places, channel))
      places.recLoc[static_cast<std::size_t>(channel)] = GetCtrlVal(meassetup::CHNLLOC);
  });
}

int UpdateChnlLocInfoCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? ShowReceiver(GetCtrlVal(meassetup::NCHANNELS3)) : 0;
}

int UpdateRecLocListCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? ShowReceiver(GetCtrlIndex(meassetup::RECLOCLIST)) : 0;
}

int UpdateSingleChanelLocCallback(Panel panel, ControlId control, Event event, long data) {
  if (GetCtrlVal(meassetup::RSPACING) != kEvenSpacing)
    return UpdateChnlLocInfoCallback(panel, control, event, data);
  return ChangePlaces(event, [](MeasSetup& places) {
    const double spacing = GetCtrlVal(meassetup::EVENSPACING);
    for (std::size_t c = 0; c < places.recLoc.size(); ++c)
      places.recLoc[c] = places.srcLoc + static_cast<double>(c + 1) * spacing;
  });
}

int UpdateLengthUnitCallback(Panel, ControlId, Event event, long) {
  return ChangePlaces(event, [](MeasSetup& places) {
    places.lengthUnit = GetCtrlVal(meassetup::LENGTHUNIT);
    session.lengthUnit = places.lengthUnit;
  });
}

}  // namespace sondera
