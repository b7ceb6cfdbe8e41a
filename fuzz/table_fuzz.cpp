// table_fuzz.cpp - any bytes as tables of numbers, column text, curves and layers of other programs. The first byte
// chooses.
#include <cmath>
#include <cstdint>
#include <string_view>

#include "demand.h"
#include "project/number_table.h"
#include "project/shot_columns.h"
#include "project/table_forms.h"

using namespace sondera;
using fuzz::Demand;

namespace {

void DemandCurve(std::string_view text, CurveForm form) {
  CurvePoints curve;
  if (!ReadCurvePoints(text, form, "", curve).empty()) return;
  Demand(!curve.frequency.empty() && curve.velocity.size() == curve.frequency.size() &&
         curve.sd.size() == curve.frequency.size());
  for (double v : curve.velocity) Demand(std::isfinite(v) && v > 0.0);
  // What was read can be written and read again.
  CurvePoints again;
  Demand(ReadCurvePoints(SwprepostText(curve), CurveForm::Named, "", again).empty());
  Demand(again.velocity == curve.velocity && again.frequency == curve.frequency);
}

void DemandLayers(const LayeredModel& model) {
  LayeredModel again;
  Demand(model.size() > 0 && ReadLayers(LayersText(model), again).empty());
  Demand(again.vs == model.vs && again.thickness == model.thickness && again.density == model.density);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  LayeredModel model;
  Shot shot;
  switch (data[0] % 7) {
    case 0: {
      NumberTable table;
      if (ReadNumberTable(text, table).empty())
        for (const auto& column : table.columns) Demand(column.size() == table.rows());
      break;
    }
    case 1:
    case 2:
      if (ShotOfColumns("file", text, data[0] % 7 == 1 ? 0.0 : 0.001, shot).empty())
        for (const ShotTrace& t : shot.traces) Demand(t.interval > 0.0 && !t.samples.empty());
      break;
    case 3:
      DemandCurve(text, CurveForm::Named);
      break;
    case 4:
      DemandCurve(text, CurveForm::Dinver);
      break;
    case 5:
      if (ReadLayers(text, model).empty()) DemandLayers(model);
      break;
    default:
      if (ReadDisba(text, model).empty()) DemandLayers(model);
      break;
  }
  return 0;
}
