// inv_records.cpp - see inv_records.h.
#include "inversion/inv_records.h"

#include <algorithm>

#include "runtime/panels/exdthd.h"
#include "runtime/panels/fmodeling.h"
#include "runtime/panels/inversion.h"

namespace sondera {

InvRecord InvParam;
InvRecord SMPParam;

namespace {

InvRecord FirstRecord() {
  InvRecord r;
  r.maxLayers = 50;
  r.maxCurves = 20;
  r.maxPoints = 200;
  r.maxData = 4000;
  r.maxEntries = 50;
  r.ufH = 0.2;
  r.ufVs = 0.05;
  r.minH = 0.01;
  r.maxH = 50.0;
  r.minVs = 10.0;
  r.maxVs = 100000.0;
  r.MODELPARM = 1;
  AllocateInvRecord(r);
  return r;
}

}  // namespace

void AllocateInvRecord(InvRecord& r) {
  const int entries = std::max(r.maxEntries, 0), layers = std::max(r.maxLayers, 0);
  const OffsetMatrix<double> byLayer(0, entries, 0, layers);
  for (auto table : kModelTables) (r.*table) = byLayer;
  r.resolution = byLayer;
  r.freq = OffsetMatrix<double>(0, entries, 0, std::max(r.maxPoints, 0));
  r.vel = OffsetMatrix<double>(0, entries, 0, std::max(r.maxData, 0));
  r.waveL = OffsetMatrix<double>(0, entries, 0, std::max(r.maxData, 0));
  r.rms = OffsetVector<double>(0, entries);
}

void InitializeInvAnal() {
  InvParam = FirstRecord();
  InvParam.nEntries = 5;
  SMPParam = FirstRecord();
  SMPParam.reserved = 20;
  SMPParam.nEntries = 10;
  SMPParam.alphaFrom = 0.35;
  SMPParam.alphaTo = 0.65;
}

void FinalizeInvAnal() {
  InvParam = InvRecord{};
  SMPParam = InvRecord{};
}

void ClearEntryLists() {
  ClearListCtrl(exdthd::ITERNO);
  ClearListCtrl(fmodeling::COPYPRF);
  ClearListCtrl(inversion::INV_SMP);
  InsertListItem(inversion::INV_SMP, 0, "Given Model P.", 0);
}

}  // namespace sondera
