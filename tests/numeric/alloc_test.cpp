// alloc_test.cpp - vectors and matrices with offset ranges, the dmMatrix record, MallocOrDie and nrerror.
#include "numeric/alloc.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

#include "numeric/nrerror.h"
#include "support/popup_recorder.h"

// Makes an impossible allocation return null under the address sanitizer too, as it does without.
extern "C" const char* __asan_default_options() {
  return "allocator_may_return_null=1";
}

namespace sondera {
namespace {

using test::PopupRecorder;

TEST(Dvector, IsZeroAtEveryIndexFromOneToN) {
  const OffsetVector<double> v = dvector(1, 17);
  for (int i = 1; i <= 17; ++i) EXPECT_EQ(v[i], 0.0) << i;
  EXPECT_EQ(v.size(), 17);
}

TEST(Dvector, ShiftedPointerStartsAtTheLowerBound) {
  for (const int nl : {-3, 0, 1, 7}) {
    OffsetVector<double> v = dvector(nl, nl + 4);
    double* p = v.shifted();
    for (int i = nl; i <= nl + 4; ++i) p[i] = 2.5 * i;
    EXPECT_EQ(v[nl], 2.5 * nl);
    EXPECT_EQ(v[nl + 4], 2.5 * (nl + 4));
    EXPECT_EQ(v.data()[0], 2.5 * nl);
  }
}

TEST(Dvector, EmptyRangeHoldsNothing) {
  EXPECT_TRUE(dvector(1, 0).empty());
  EXPECT_EQ(dvector(1, 0).shifted(), nullptr);
}

TEST(Ivector, IsZeroAndFreed) {
  OffsetVector<int> v = ivector(0, 3);
  for (int i = 0; i <= 3; ++i) EXPECT_EQ(v[i], 0);
  free_ivector(v, 0);
  EXPECT_TRUE(v.empty());
  free_ivector(v, 0);  // a second call is harmless
}

TEST(Dcvector, IsZeroAndFreed) {
  OffsetVector<dcomplex> v = dcvector(2, 5);
  for (int i = 2; i <= 5; ++i) {
    EXPECT_EQ(v[i].re, 0.0);
    EXPECT_EQ(v[i].im, 0.0);
  }
  free_dcvector(v, 2);
  EXPECT_TRUE(v.empty());
}

// The initial values of a matrix are unspecified; each element has its own place.
template <class T, class Make>
void ExpectEveryElementItsOwnPlace(Make make, T (*value)(int, int)) {
  OffsetMatrix<T> m = make(-1, 2, 3, 6);
  for (int i = -1; i <= 2; ++i)
    for (int j = 3; j <= 6; ++j) m(i, j) = value(i, j);
  for (int i = -1; i <= 2; ++i)
    for (int j = 3; j <= 6; ++j) EXPECT_EQ(m(i, j), value(i, j)) << i << ' ' << j;
}

TEST(Dmatrix, KeepsEveryElementAndIsFreed) {
  ExpectEveryElementItsOwnPlace<double>(dmatrix, [](int i, int j) { return 10.0 * i + j; });
  OffsetMatrix<double> m = dmatrix(1, 2, 1, 3);
  free_dmatrix(m, 1, 2, 1, 3);
  EXPECT_TRUE(m.empty());
}

TEST(Imatrix, KeepsEveryElementAndIsFreed) {
  ExpectEveryElementItsOwnPlace<int>(imatrix, [](int i, int j) { return 10 * i + j; });
  OffsetMatrix<int> m = imatrix(1, 2, 1, 3);
  free_imatrix(m, 1, 2, 1, 3);
  EXPECT_TRUE(m.empty());
}

TEST(Dcmatrix, KeepsEveryElementAndIsFreed) {
  OffsetMatrix<dcomplex> m = dcmatrix(1, 3, 0, 2);
  for (int i = 1; i <= 3; ++i)
    for (int j = 0; j <= 2; ++j) m(i, j) = {i + 0.25, j - 0.5};
  EXPECT_EQ(m(3, 2).re, 3.25);
  EXPECT_EQ(m(1, 0).im, -0.5);
  free_dcmatrix(m, 1, 3, 0, 2);
  EXPECT_TRUE(m.empty());
}

#ifdef SONDERA_CHECK_BOUNDS
TEST(DvectorDeathTest, IndexOutsideTheRangeIsCaughtInCheckedBuilds) {
  OffsetVector<double> v = dvector(1, 3);
  EXPECT_DEATH(v[0] = 1.0, "index 0 outside 1..3");
  EXPECT_DEATH(v[4] = 1.0, "index 4 outside 1..3");
}
#endif

TEST(FlatMatrix, IsStoredByColumns) {
  OffsetVector<double> store = dvector(1, 6);
  for (int i = 1; i <= 6; ++i) store[i] = i;
  const FlatMatrix a{store.shifted(), 3};  // 3 rows, 2 columns
  EXPECT_EQ(a(1, 1), 1.0);
  EXPECT_EQ(a(3, 1), 3.0);
  EXPECT_EQ(a(1, 2), 4.0);
  EXPECT_EQ(a(3, 2), 6.0);
  EXPECT_EQ(a.column(2)[3], 6.0);
}

TEST(DmMatrixSetup, GivesZeroedRowMajorStorage) {
  dmMatrix m;
  dmMatrixSetup(&m, 3, 5);
  ASSERT_NE(m.data, nullptr);
  EXPECT_EQ(m.rows, 3);
  EXPECT_EQ(m.cols, 5);
  for (int k = 0; k < 15; ++k) EXPECT_EQ(m.data[k], 0.0);
  *Md(m, 2, 4) = 7.125;
  EXPECT_EQ(m.data[2 * 5 + 4], 7.125);
  EXPECT_EQ(Md(m, 0, 0), m.data);
  dmMatrixFree(m);
}

TEST(DmMatrixSetup, NegativeSizeGivesNoData) {
  dmMatrix m;
  dmMatrixSetup(&m, -1, 4);
  EXPECT_EQ(m.data, nullptr);
  EXPECT_EQ(m.rows, -1);
}

TEST(DmMatrixFree, LeavesTheFieldsOfTheCallerStale) {
  dmMatrix m;
  dmMatrixSetup(&m, 2, 2);
  double* before = m.data;
  dmMatrixFree(m);
  EXPECT_EQ(m.rows, 2);
  EXPECT_EQ(m.cols, 2);
  EXPECT_EQ(m.data, before);
}

TEST(DmMatrixFree, AcceptsARecordWithoutData) {
  dmMatrixFree(dmMatrix{});
}

TEST(DmMatrixEmpty, AsksForRowsOnly) {
  EXPECT_EQ(dmMatrixEmpty(dmMatrix{0, 4, nullptr}), 1);
  EXPECT_EQ(dmMatrixEmpty(dmMatrix{4, 0, nullptr}), 0);
}

TEST(MallocOrDie, GivesAWritableBlock) {
  PopupRecorder popups;
  auto* block = static_cast<char*>(MallocOrDie(64));
  ASSERT_NE(block, nullptr);
  for (int i = 0; i < 64; ++i) block[i] = 'x';
  std::free(block);
  EXPECT_TRUE(popups.shown.empty());
}

TEST(MallocOrDie, TellsAndReturnsNullWhenThereIsNoMemory) {
  PopupRecorder popups;
  const volatile std::size_t hopeless = std::numeric_limits<std::size_t>::max() / 2 - 4096;
  EXPECT_EQ(MallocOrDie(hopeless), nullptr);
  ASSERT_EQ(popups.shown.size(), 1u);
  EXPECT_EQ(popups.shown[0].first, "Sondera 2.0");
  EXPECT_EQ(popups.shown[0].second, "MallocOrDie: out of memory\n");
}

TEST(Nrerror, ShowsTheFixedTextWhateverItIsToldAndReturns) {
  PopupRecorder popups;
  nrerror("a text that nobody sees");
  nrerror("");
  ASSERT_EQ(popups.shown.size(), 2u);
  for (const auto& [title, text] : popups.shown) {
    EXPECT_EQ(title, "Sondera 2.0");
    EXPECT_EQ(text, "Numerical run-time error...\n");
  }
}

}  // namespace
}  // namespace sondera
