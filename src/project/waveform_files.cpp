// waveform_files.cpp - see waveform_files.h.
#include "project/waveform_files.h"

#include <algorithm>
#include <cctype>
#include <memory>
#include <numeric>
#include <utility>

#include "forward/waveform_text.h"
#include "project/import_text.h"
#include "runtime/atomic_writer.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr std::string_view kExtensions[] = {".tim", ".pls", ".spc"};

std::string TextOfFile(std::size_t file, int option, const WaveformSetup& setup, const WaveformResult& result,
                       const std::string& lengthUnit) {
  const std::size_t traces = option == kSaveSpectra ? 0 : result.record.trace.size();
  if (file < traces) return TimText(result.record, file);
  if (option == kSaveAll && file == traces) return PlsText(setup, result.record, lengthUnit);
  return SpcText(setup, result, lengthUnit);
}

}  // namespace

Refusal ReadSourceFile(const std::string& path, SourceSamples& source) {
  TextReader text;
  std::string reason;
  if (!text.Open(path, &reason)) return import_text::CannotRead(reason);
  TextColumns columns = ReadColumns(text, {.values = 1, .tokensNeeded = 2, .maxLines = 0});
  if (columns.damaged) return import_text::CannotRead(path, columns.fault);
  SourceSamples read{std::move(columns.axis), std::move(columns.a)};
  if (Refusal refusal = CheckSource(read)) return path + ": " + refusal.reason();
  source = std::move(read);
  return {};
}

std::string WaveformBase(const std::string& path) {
  for (const std::string_view extension : kExtensions)
    if (path.size() > extension.size() &&
        std::equal(extension.rbegin(), extension.rend(), path.rbegin(),
                   [](char a, char b) { return a == std::tolower(static_cast<unsigned char>(b)); }))
      return path.substr(0, path.size() - extension.size());
  return path;
}

std::vector<std::string> WaveformFiles(const std::string& base, int option, std::size_t receivers) {
  std::vector<std::string> files;
  if (option != kSaveSpectra)
    for (std::size_t r = 1; r <= receivers; ++r) files.push_back(base + FormatText("_r%zu.tim", r));
  if (option == kSaveAll) files.push_back(base + ".pls");
  if (option != kSaveTraces) files.push_back(base + ".spc");
  return files;
}

Refusal SaveWaveform(const std::string& base, int option, const WaveformSetup& setup,
                     const WaveformResult& result, const std::string& lengthUnit) {
  const std::vector<std::string> files = WaveformFiles(base, option, result.record.trace.size());
  std::vector<std::unique_ptr<AtomicWriter>> writers;
  for (std::size_t i = 0; i < files.size(); ++i) {
    writers.push_back(std::make_unique<AtomicWriter>(files[i]));
    writers.back()->Put(TextOfFile(i, option, setup, result, lengthUnit));
    if (!writers.back()->Finish()) return writers.back()->Reason();
  }
  for (const auto& writer : writers)
    if (!writer->Commit()) return writer->Reason();
  return {};
}

ImportRequest ImportOfRecord(const WaveformRecord& record, const std::string& measID, double lengthUnit) {
  ImportRequest request;
  request.measID = measID;
  request.nChannels = static_cast<int>(record.trace.size());
  request.lengthUnit = lengthUnit;
  request.locations.push_back(0.0);
  request.locations.insert(request.locations.end(), record.receivers.begin(), record.receivers.end());
  auto texts = std::make_shared<std::vector<std::string>>();  // the reader keeps a view of them
  for (std::size_t r = 0; r < record.trace.size(); ++r) {
    request.files.push_back(measID + FormatText("_r%zu.tim", r + 1));
    texts->push_back(TimText(record, r));
  }
  request.open = [texts, files = request.files](const std::string& name, TextReader& text, std::string&) {
    const auto at = std::find(files.begin(), files.end(), name) - files.begin();
    text.OpenMemory((*texts)[static_cast<std::size_t>(at)]);
    return true;
  };
  return request;
}

ShotRequest ImportOfBlows(const std::vector<WaveformRecord>& blows, const std::string& measID,
                          double lengthUnit, double alpha) {
  ShotRequest request;
  const std::vector<double>& receivers = blows.front().receivers;
  ShotChoices& choices = request.choices;
  choices.measID = measID;
  choices.channels.resize(receivers.size());
  std::iota(choices.channels.begin(), choices.channels.end(), 1);
  choices.pairs = false;
  choices.source = 0.0;
  choices.at = receivers;
  choices.lengthUnit = lengthUnit;
  choices.alpha = alpha;
  choices.overwrite = true;
  for (std::size_t b = 1; b <= blows.size(); ++b) request.files.push_back(FormatText("blow %zu", b));
  request.read = [&blows, files = request.files](const std::string& path, Shot& shot) {
    const auto at = std::find(files.begin(), files.end(), path) - files.begin();
    const WaveformRecord& blow = blows[static_cast<std::size_t>(at)];
    shot = {};
    shot.path = path;
    for (std::size_t r = 0; r < blow.trace.size(); ++r) {
      ShotTrace trace;
      trace.channel = static_cast<int>(r) + 1;
      trace.samples = blow.trace[r];
      trace.isScaled = true;
      trace.interval = blow.deltaT;
      shot.traces.push_back(std::move(trace));
    }
    return std::string();
  };
  return request;
}

}  // namespace sondera
