// inv_records.cpp - see inv_records.h.
#include "records/inv_records.h"

#include <algorithm>
#include <utility>

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

double InvTableSizes::Doubles() const {
  const auto numbers = [](std::int64_t last) { return static_cast<double>(last) + 1.0; };
  return numbers(entries) * (8.0 * numbers(layers) + numbers(points) + 2.0 * numbers(data) + 1.0);
}

InvTableSizes UsedSizes(const InvRecord& r) {
  return {std::max(r.nEntries, 0), std::max(r.nLayers, 0), std::max(r.nPoints, 0),
          std::int64_t{std::max(r.nPoints, 0)} * std::max(r.nCurves, 0)};
}

InvTableSizes TableSizes(const InvRecord& r) {
  const InvTableSizes used = UsedSizes(r);
  return {std::max<std::int64_t>(r.maxEntries, used.entries),
          std::max<std::int64_t>(r.maxLayers, used.layers), std::max<std::int64_t>(r.maxPoints, used.points),
          std::max<std::int64_t>(r.maxData, used.data)};
}

void AllocateInvRecord(InvRecord& r, const InvTableSizes& sizes) {
  const int entries = static_cast<int>(sizes.entries), data = static_cast<int>(sizes.data);
  InvRecord sized;  // where memory runs out, the record stays as it was
  const OffsetMatrix<double> byLayer(0, entries, 0, static_cast<int>(sizes.layers));
  for (auto table : kModelTables) (sized.*table) = byLayer;
  sized.resolution = byLayer;
  sized.freq = OffsetMatrix<double>(0, entries, 0, static_cast<int>(sizes.points));
  sized.vel = OffsetMatrix<double>(0, entries, 0, data);
  sized.waveL = OffsetMatrix<double>(0, entries, 0, data);
  sized.rms = OffsetVector<double>(0, entries);
  for (auto table : kModelTables) (r.*table) = std::move(sized.*table);
  r.resolution = std::move(sized.resolution);
  r.freq = std::move(sized.freq);
  r.vel = std::move(sized.vel);
  r.waveL = std::move(sized.waveL);
  r.rms = std::move(sized.rms);
}

void AllocateInvRecord(InvRecord& r) {
  AllocateInvRecord(r, TableSizes(r));
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

}  // namespace sondera
