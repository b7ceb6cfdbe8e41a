// entry_lists.cpp - see entry_lists.h.
#include "panels/entry_lists.h"

#include <algorithm>

#include <vector>

#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

std::vector<int> NumbersIn(const RingControl& list) {
  std::vector<int> numbers;
  for (int i = 0; i < GetNumListItems(list); ++i)
    numbers.push_back(static_cast<int>(GetValueFromIndex(list, i)));
  return numbers;
}

void Append(const RingControl& list, const std::vector<int>& numbers) {
  for (const int v : numbers) {
    const std::string label =
        v < 0 ? FormatText("SMP %ld", -static_cast<long>(v)) : FormatText("INV %ld", static_cast<long>(v));
    InsertListItem(list, -1, label, v);
  }
}

}  // namespace

void ClearEntryLists() {
  ClearListCtrl(exdthd::ITERNO);
  ClearListCtrl(fmodeling::COPYPRF);
  ClearListCtrl(inversion::INV_SMP);
  InsertListItem(inversion::INV_SMP, 0, "Given Model P.", 0);
}

EntryNumbers ReadEntryLists() {
  EntryNumbers numbers{NumbersIn(exdthd::ITERNO), NumbersIn(fmodeling::COPYPRF),
                       NumbersIn(inversion::INV_SMP)};
  if (!numbers.startingModels.empty()) numbers.startingModels.erase(numbers.startingModels.begin());
  return numbers;
}

void ShowEntryLists(const EntryNumbers& numbers) {
  ClearEntryLists();
  Append(exdthd::ITERNO, numbers.iterations);
  Append(fmodeling::COPYPRF, numbers.profiles);
  Append(inversion::INV_SMP, numbers.startingModels);
}

std::vector<int> StoredEntries() {
  std::vector<int> entries = ReadEntryLists().iterations;
  std::sort(entries.begin(), entries.end());
  entries.erase(std::unique(entries.begin(), entries.end()), entries.end());
  std::erase_if(entries, [](int entry) { return entry < 0; });
  return entries;
}

}  // namespace sondera
