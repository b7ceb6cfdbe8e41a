// truncated_solve.cpp - see truncated_solve.h.
#include "inversion/truncated_solve.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "numeric/process_end.h"
#include "numeric/svd.h"

namespace sondera {
namespace {

constexpr int kMostRetries = 10;
constexpr double kSmallestEps = 1.0;

}  // namespace

TruncatedSolve::TruncatedSolve(Run& run)
    : run_(run),
      U_(run.update.Hessian),
      V_(run.parameters.nModelParm, run.parameters.nModelParm),
      w_(1, run.parameters.nModelParm),
      entryEps_(run.switches.epsSVD) {
  FS_svdcmp(run_.parameters.nModelParm, run_.parameters.nModelParm, U_.shifted(), w_.shifted(), V_.shifted());
  Count();
}

TruncatedSolve::~TruncatedSolve() {
  run_.switches.epsSVD = entryEps_;
}

void TruncatedSolve::Tighten(int violations) {
  if (++retries_ >= kMostRetries || count_ < run_.parameters.nModelParm - violations + 1) {
    Loosen();
    Count();
    return;
  }
  std::printf("*** %d layer(s) violated layer property constraints.\n", violations);
  Invert(violations);
}

/// Position of the first value beyond the limit, and the inverse from the values before it.
void TruncatedSolve::Count() {
  retries_ = 0;
  count_ = run_.parameters.nModelParm + 1;
  for (int k = run_.parameters.nModelParm; k >= 2; --k)
    if (w_[1] / w_[k] >= run_.switches.epsSVD) count_ = k;
  Invert(0);
}

void TruncatedSolve::Loosen() {
  run_.switches.epsSVD /= std::sqrt(10.0);
  if (run_.switches.epsSVD < kSmallestEps) {
    std::printf("*** epsSVD is less than 1.0. Inversion Stopped.\n");
    EndProcess(1);
  }
  std::printf("*** epsSVD is adjusted to %lg.\n", run_.switches.epsSVD);
}

void TruncatedSolve::Invert(int violations) {
  const int m = run_.parameters.nModelParm;
  const int cutOff = std::min(count_, m - violations + 1);
  std::printf("*** No. of singular values for Hessian matrix ... %ld\n", static_cast<long>(cutOff - 1));
  run_.update.InvH.fill(0.0);
  for (int l = 1; l < cutOff; ++l)
    for (int c = 1; c <= m; ++c)
      for (int r = 1; r <= m; ++r) run_.update.InvH(r, c) += V_(r, l) * U_(c, l) / w_[l];
}

}  // namespace sondera
