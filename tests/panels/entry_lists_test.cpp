// Tests of the lists that name the stored results.
#include "panels/entry_lists.h"

#include <gtest/gtest.h>

#include "panels/fmodeling_records.h"
#include "records/model_records.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "support/session_fixture.h"

namespace sondera::testing {
namespace {

class EntryLists : public SessionTest {};

TEST_F(EntryLists, ClearedKeepTheGivenModelAsTheOnlyStartingModel) {
  InsertListItem(exdthd::ITERNO, -1, "INV 1", 1);
  InsertListItem(fmodeling::COPYPRF, -1, "INV 1", 1);
  InsertListItem(inversion::INV_SMP, -1, "SMP 4", -4);
  ClearEntryLists();
  EXPECT_EQ(GetNumListItems(exdthd::ITERNO), 0);
  EXPECT_EQ(GetNumListItems(fmodeling::COPYPRF), 0);
  ASSERT_EQ(GetNumListItems(inversion::INV_SMP), 1);
  EXPECT_EQ(GetLabelFromIndex(inversion::INV_SMP, 0), "Given Model P.");
  EXPECT_EQ(GetValueFromIndex(inversion::INV_SMP, 0), 0.0);
}

TEST_F(EntryLists, FirstValuesOfTheForwardModelEmptyThem) {
  InitializeFModel();
  InsertListItem(exdthd::ITERNO, -1, "INV 3", 3);
  InsertListItem(fmodeling::COPYPRF, -1, "SMP 2", -2);
  InsertListItem(inversion::INV_SMP, -1, "INV 3", 3);
  ResetFModel_D();
  EXPECT_EQ(GetNumListItems(exdthd::ITERNO), 0);
  EXPECT_EQ(GetNumListItems(fmodeling::COPYPRF), 0);
  ASSERT_EQ(GetNumListItems(inversion::INV_SMP), 1);
  EXPECT_EQ(GetLabelFromIndex(inversion::INV_SMP, 0), "Given Model P.");
  EXPECT_EQ(GetCtrlVal(inversion::INV_SMP), 0);
}

TEST_F(EntryLists, ShowTheNumbersThatWereRead) {
  const EntryNumbers numbers{{0, 1, 2}, {-3, 2}, {-3, -2, 1}};
  ShowEntryLists(numbers);
  EXPECT_EQ(GetLabelFromIndex(exdthd::ITERNO, 2), "INV 2");
  EXPECT_EQ(GetLabelFromIndex(fmodeling::COPYPRF, 0), "SMP 3");
  EXPECT_EQ(GetNumListItems(inversion::INV_SMP), 4);
  const EntryNumbers read = ReadEntryLists();
  EXPECT_EQ(read.iterations, numbers.iterations);
  EXPECT_EQ(read.profiles, numbers.profiles);
  EXPECT_EQ(read.startingModels, numbers.startingModels);
}

}  // namespace
}  // namespace sondera::testing
