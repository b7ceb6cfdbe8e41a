// waveform_site.h - the ground and the receivers of a computed record, from the settings of the model.
//
// The layers are completed as for a forward run. Owns no state.
#pragma once

#include "forward/waveform_lines.h"
#include "records/model_records.h"

namespace sondera {

/// Layers, mesh and receivers (distances from the source at 0) of a model. Refuses layers that no run accepts;
/// CheckWaveformSite checks whether the site allows a record.
Refusal SiteOfModel(const ModelRecord& model, WaveformSite& site);

}  // namespace sondera
