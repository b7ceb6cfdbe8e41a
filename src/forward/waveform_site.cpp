// waveform_site.cpp - see waveform_site.h.
#include "forward/waveform_site.h"

#include <algorithm>
#include <cstddef>

#include "forward/layered_ground.h"
#include "records/run_limits.h"

namespace sondera {
namespace {

constexpr int kUsualSubLayers = 16;  // for a 0 in the record

}  // namespace

Refusal SiteOfModel(const ModelRecord& model, WaveformSite& site) {
  if (const std::string complaint = CheckRunLayers(model); !complaint.empty()) return complaint;
  LayeredGround ground(model.nLayers);
  TakeModelLayers(model, ground);
  WaveformSite made;
  for (int l = 1; l <= model.nLayers; ++l)
    made.layers.push_back(
        {ground.layerH[l], ground.layerVs[l], ground.layerRho[l], ground.layerNu[l], ground.layerDamp[l]});
  const auto receivers =
      std::min(static_cast<std::size_t>(std::max(model.nReceivers, 0)), model.recLoc.size());
  made.receivers.assign(model.recLoc.begin(), model.recLoc.begin() + static_cast<std::ptrdiff_t>(receivers));
  made.nSubLayers = model.nSubLayers == 0 ? kUsualSubLayers : model.nSubLayers;
  made.fDispBulb = model.fDispBulb;
  site = std::move(made);
  return {};
}

}  // namespace sondera
