// sort_test.cpp - index tables against a plain heapsort written the classic way (ties included), the sorted
// values against the standard library.
#include "numeric/sort.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <numeric>
#include <random>
#include <vector>

namespace sondera {
namespace {

// The classic single-loop index heapsort over keys[1..n], for comparison also in the order of equal keys:
// first l goes down to 1 while the heap grows, then ir goes down while the heap shrinks.
std::vector<int> ClassicHeapIndex(const std::vector<double>& keys, int n) {
  std::vector<int> indx(keys.size());
  std::iota(indx.begin(), indx.end(), 0);
  if (n < 2) return indx;
  int l = n / 2 + 1, ir = n;
  for (;;) {
    int held;
    if (l > 1) {
      held = indx[--l];
    } else {
      held = indx[ir];
      indx[ir] = indx[1];
      if (--ir == 1) {
        indx[1] = held;
        return indx;
      }
    }
    int i = l, j = 2 * l;
    while (j <= ir) {
      if (j < ir && keys[indx[j]] < keys[indx[j + 1]]) j++;
      if (keys[held] < keys[indx[j]]) {
        indx[i] = indx[j];
        i = j;
        j = 2 * i;
      } else {
        j = ir + 1;
      }
    }
    indx[i] = held;
  }
}

// keys[0] is unused; `levels` small makes many ties.
std::vector<double> RandomKeys(int n, int levels, unsigned seed) {
  std::mt19937 engine(seed);
  std::uniform_int_distribution<int> level(0, levels - 1);
  std::vector<double> keys(n + 1, -1e99);
  for (int i = 1; i <= n; ++i) keys[i] = 0.25 * level(engine) - 1.0;
  return keys;
}

const int kSizes[] = {1, 2, 3, 4, 5, 7, 8, 10, 31, 64, 65, 200, 1000};

TEST(Indexx, OrderOfEqualKeysIsThatOfTheHeapAlgorithm) {
  for (const int n : kSizes) {
    for (const int levels : {1, 2, 3, 10, 100000}) {
      for (unsigned seed = 0; seed < 20; ++seed) {
        const std::vector<double> keys = RandomKeys(n, levels, seed);
        const std::vector<int> expected = ClassicHeapIndex(keys, n);
        std::vector<int> indx(n + 1, 0), indx3(n + 1, 0);
        indexx(n, keys.data(), indx.data());
        indexx3(n, keys.data(), indx3.data());
        ASSERT_EQ(indx, expected) << "n = " << n << ", levels " << levels << ", seed " << seed;
        ASSERT_EQ(indx3, expected);
      }
    }
  }
}

TEST(Indexx, FourEqualKeysByHand) {
  // The heap is at once 1 2 3 4, since no child is strictly greater. Then: 1 goes last, 4 on top; 4 goes to
  // place 3, 3 on top; 3 goes to place 2, 2 stays.
  const std::vector<double> keys = {0, 5.5, 5.5, 5.5, 5.5};
  std::vector<int> indx(5, 0);
  indexx(4, keys.data(), indx.data());
  EXPECT_EQ(indx, (std::vector<int>{0, 2, 3, 4, 1}));
}

TEST(Indexx, OneKeyIsTheIdentity) {
  const double keys[] = {0.0, 7.25};
  int indx[] = {-9, -9};
  indexx(1, keys, indx);
  EXPECT_EQ(indx[0], -9);
  EXPECT_EQ(indx[1], 1);
}

TEST(Indexx, SortedAndReversedKeys) {
  const int n = 100;
  std::vector<double> up(n + 1), down(n + 1);
  for (int i = 1; i <= n; ++i) up[i] = i, down[i] = -i;
  std::vector<int> indx(n + 1);
  indexx(n, up.data(), indx.data());
  for (int i = 1; i <= n; ++i) EXPECT_EQ(indx[i], i);
  indexx(n, down.data(), indx.data());
  for (int i = 1; i <= n; ++i) EXPECT_EQ(indx[i], n + 1 - i);
}

TEST(Indexx, StaysAPermutationWithNotANumbersAndInfinities) {
  std::vector<double> keys = RandomKeys(50, 20, 3);
  keys[7] = keys[20] = std::numeric_limits<double>::quiet_NaN();
  keys[9] = std::numeric_limits<double>::infinity();
  keys[11] = -std::numeric_limits<double>::infinity();
  std::vector<int> indx(51, 0);
  indexx(50, keys.data(), indx.data());
  std::sort(indx.begin() + 1, indx.end());
  for (int i = 1; i <= 50; ++i) EXPECT_EQ(indx[i], i);
}

TEST(Indexx3, ReturnsAtOnceForNoKeys) {
  int indx[] = {-9, -9};
  indexx3(0, nullptr, indx);
  indexx3(-4, nullptr, indx);
  EXPECT_EQ(indx[0], -9);
  EXPECT_EQ(indx[1], -9);
}

TEST(Sort1, GivesTheOrderOfTheLibrary) {
  for (const int n : kSizes) {
    std::vector<double> ra = RandomKeys(n, 50, n);
    std::vector<double> expected = ra;
    std::stable_sort(expected.begin() + 1, expected.end());
    sort1(n, ra.data());
    EXPECT_EQ(ra, expected) << n;
  }
}

TEST(Sort2, CarriesTheSecondArrayByTheIndexTable) {
  for (const int n : kSizes) {
    std::vector<double> ra = RandomKeys(n, 6, n), rb(n + 1);
    for (int i = 0; i <= n; ++i) rb[i] = 1000.0 + i;
    const std::vector<double> keys = ra;
    const std::vector<int> indx = ClassicHeapIndex(keys, n);
    sort2(n, ra.data(), rb.data());
    for (int i = 1; i <= n; ++i) {
      EXPECT_EQ(ra[i], keys[indx[i]]);
      EXPECT_EQ(rb[i], 1000.0 + indx[i]);
    }
    EXPECT_EQ(rb[0], 1000.0);
  }
}

class Sort3 : public testing::TestWithParam<int> {};

TEST_P(Sort3, CarriesThreeArraysByTheIndexTable) {
  const int base = GetParam();
  for (const int n : kSizes) {
    const std::vector<double> keys = RandomKeys(n, 6, n);
    const std::vector<int> indx = ClassicHeapIndex(keys, n);
    // One guard element on either side, whatever the base.
    std::vector<double> a(n + 2, -7.5), b(a), c(a), d(a);
    double *pa = &a[1] - base, *pb = &b[1] - base, *pc = &c[1] - base, *pd = &d[1] - base;
    for (int i = 1; i <= n; ++i) {
      a[i] = keys[i];
      b[i] = 10.0 + i, c[i] = 0.5 * i, d[i] = -i;
    }
    sort3(n, pa, pb, pc, pd, base);
    for (int i = 1; i <= n; ++i) {
      ASSERT_EQ(a[i], keys[indx[i]]);
      ASSERT_EQ(b[i], 10.0 + indx[i]);
      ASSERT_EQ(c[i], 0.5 * indx[i]);
      ASSERT_EQ(d[i], -indx[i]);
    }
    for (const auto* v : {&a, &b, &c, &d}) {
      EXPECT_EQ(v->front(), -7.5);
      EXPECT_EQ(v->back(), -7.5);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(EitherBase, Sort3, testing::Values(0, 1));

TEST(Sort3, BaseZeroWithNullColumnsCarriesTheSecondArrayOnly) {
  double a[] = {3.5, 1.25, 2.0, -8.0};
  double b[] = {30.0, 10.0, 20.0, 0.0};
  sort3(4, a, b, nullptr, nullptr, 0);
  EXPECT_THAT(a, testing::ElementsAre(-8.0, 1.25, 2.0, 3.5));
  EXPECT_THAT(b, testing::ElementsAre(0.0, 10.0, 20.0, 30.0));
}

TEST(Sort3, SortsAloneAndWithAGapInTheColumns) {
  double a[] = {0.0, 3.5, 1.25, 2.0};
  double d[] = {9.0, 30.0, 10.0, 20.0};
  sort3(3, a, nullptr, nullptr, d, 1);
  EXPECT_THAT(a, testing::ElementsAre(0.0, 1.25, 2.0, 3.5));
  EXPECT_THAT(d, testing::ElementsAre(9.0, 10.0, 20.0, 30.0));
  double alone[] = {2.0, 1.0};
  sort3(2, alone, nullptr, nullptr, nullptr, 0);
  EXPECT_THAT(alone, testing::ElementsAre(1.0, 2.0));
}

TEST(Sort3, LeavesAllAloneForNoElementsAndForAnUnknownBase) {
  double a[] = {3.5, 1.25, 2.0};
  sort3(0, a, nullptr, nullptr, nullptr, 0);
  sort3(-2, a, nullptr, nullptr, nullptr, 1);
  sort3(3, a, nullptr, nullptr, nullptr, 2);
  sort3(3, a, nullptr, nullptr, nullptr, -1);
  EXPECT_THAT(a, testing::ElementsAre(3.5, 1.25, 2.0));
}

}  // namespace
}  // namespace sondera
