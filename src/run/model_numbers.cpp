// model_numbers.cpp - see model_numbers.h.
#include "run/model_numbers.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr const char* kWarningTitle = "Sondera - Warning";

/// Clears the entries of one quantity at the layers that a list names.
void Constrain(int quantity, const char* name, std::string text, int nLayers, Parameters& parameters,
               Listener& listener) {
  if (text.size() > kMaxConstraintText) {
    listener.ShowMessage(
        kWarningTitle,
        FormatText("The list of layers with the constraint of %s is longer than %d characters. "
                   "The rest of it is not used.",
                   name, kMaxConstraintText));
    text.resize(kMaxConstraintText);
  }
  int count = 0;
  const std::vector<int> layers = RetrieveLayerNoFromStr(text, count);
  if (count > kMaxConstraints)
    listener.ShowMessage(kWarningTitle,
                         FormatText("The list of layers with the constraint of %s has %d numbers. Only the "
                                    "first %d are used.",
                                    name, count, kMaxConstraints));
  for (const int l : layers) {
    if (l < 1 || l > nLayers) {
      listener.ShowMessage(kWarningTitle,
                           FormatText("The layer with the constraint of %s, %d, is not valid.", name, l));
      continue;
    }
    parameters.MapEntry(quantity, l) = 0;
  }
}

}  // namespace

std::vector<int> RetrieveLayerNoFromStr(std::string_view text, int& count) {
  constexpr std::string_view kSeparators = " ,\t\n";
  std::vector<int> numbers;
  count = 0;
  for (std::size_t begin = text.find_first_not_of(kSeparators); begin != std::string_view::npos;
       begin = text.find_first_not_of(kSeparators, begin)) {
    const std::size_t end = std::min(text.find_first_of(kSeparators, begin), text.size());
    if (count++ < kMaxConstraints) numbers.push_back(ParseInt(text.substr(begin, end - begin)));
    begin = end;
  }
  return numbers;
}

void NumberModelParameters(int nLayers, Parameters& parameters, int modelParm, const ConstrainedLayers& fixed,
                           Listener& listener) {
  std::fill(parameters.ModelMap.begin(), parameters.ModelMap.end(), 0);
  for (int l = 1; l <= nLayers; ++l) {
    if ((modelParm == 2 || modelParm == 3) && l < nLayers) parameters.MapEntry(kQuantityH, l) = 1;
    if (modelParm == 1 || modelParm == 3) parameters.MapEntry(kQuantityVs, l) = 1;
  }
  Constrain(kQuantityVs, "Vs", fixed.CONST_MP_VS, nLayers, parameters, listener);
  Constrain(kQuantityH, "H", fixed.CONST_MP_H, nLayers, parameters, listener);
  int number = 0;
  for (int l = 1; l <= nLayers; ++l) {
    for (const int q : {kQuantityH, kQuantityVs}) {
      if (parameters.MapEntry(q, l) != 0) parameters.MapEntry(q, l) = ++number;
    }
  }
  parameters.nModelParm = number;
}

void FS_ModelNoToLayerNo(const Run& run, int number, int& layer, int& quantity) {
  layer = quantity = 1;
  for (int l = 1; l <= run.ground.nLayersCur; ++l) {
    for (int q = 1; q <= kQuantities; ++q) {
      if (run.parameters.MapEntry(q, l) != number || number < 1) continue;
      layer = l;
      quantity = q;
      return;
    }
  }
}

}  // namespace sondera
