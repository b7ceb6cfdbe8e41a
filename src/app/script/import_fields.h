// import_fields.h - the rows of the dialog "Load Measurement Data (Text Format)", for the word `read` and for
// the log.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "runtime/catalogue/loadtxdata.h"

namespace sondera::script {

/// In the order of the dialog's kinds of data.
inline constexpr std::string_view kDataKinds = "tim|hyx|gyx|uff-h|uff-g";
inline constexpr int kTim = 0, kGyx = 2, kUffG = 4;
inline constexpr std::size_t kMostReceivers = 8;

inline constexpr std::array<const TextControl*, 10> kFileFields = {
    &loadtxdata::FNAMESRC, &loadtxdata::FNAMECH1, &loadtxdata::FNAMECH2, &loadtxdata::FNAMECH3,
    &loadtxdata::FNAMECH4, &loadtxdata::FNAMECH5, &loadtxdata::FNAMECH6, &loadtxdata::FNAMECH7,
    &loadtxdata::FNAMECH8, &loadtxdata::FNAMECH9};
inline constexpr std::array<const NumericControl*, kMostReceivers> kLocations = {
    &loadtxdata::LOC_REC1, &loadtxdata::LOC_REC2, &loadtxdata::LOC_REC3, &loadtxdata::LOC_REC4,
    &loadtxdata::LOC_REC5, &loadtxdata::LOC_REC6, &loadtxdata::LOC_REC7, &loadtxdata::LOC_REC8};

constexpr bool IsCrossSpectrum(int kind) {
  return kind == kGyx || kind == kUffG;
}

/// Files of a kind for n receivers: of transfer functions the first receiver has one only with an
/// instrumented source, of cross spectra the source adds two more.
constexpr std::size_t FilesFor(int kind, std::size_t n, bool source) {
  if (kind == kTim) return n;
  if (IsCrossSpectrum(kind)) return source ? n + 2 : n;
  return source ? n : n - 1;
}

}  // namespace sondera::script
