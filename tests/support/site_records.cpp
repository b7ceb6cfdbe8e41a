#include "support/site_records.h"

#include "support/temp_folder.h"

namespace sondera::test {

void WriteSitePair(const std::string& path, double first, double second, std::size_t lines) {
  SyntheticSite settings;
  settings.noise = settings.hum = 0.001;
  SiteRecording recording;
  recording.receivers = {first, second};
  recording.firstTime = -0.1;
  const SiteSpectra spectra = MeanSpectra(SiteSimulator(settings), recording, 1);
  WriteWhole(path, SpectrumFileText(spectra.deltaF, spectra.Transfer(1), lines));
}

void WriteSiteRecords(const std::string& folder) {
  const SiteRecording recording = ExampleRecording();
  const SiteRecord record = SiteSimulator(ExampleSite()).Record(recording, 1);
  for (std::size_t i = 0; i < record.size(); ++i)
    WriteWhole(folder + "/rec" + std::to_string(i + 1) + ".tim", TimFileText(recording, record[i]));
}

}  // namespace sondera::test
