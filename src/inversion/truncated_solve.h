// truncated_solve.h - pseudo-inverse of the Hessian from its larger singular values.
//
// Callers: the update of an inversion with run.switches.iUseSVD on, which no control sets. The object lives
// for one update. Kept: it prints much to standard output, and ends the process with status 1 when its limit
// of the singular value ratio cannot be reduced further.
#pragma once

#include "numeric/column_matrix.h"
#include "numeric/offset_array.h"
#include "run/system_state.h"

namespace sondera {

/// Decomposition of run.update.Hessian in one update; run.update.InvH is made from its first singular values.
/// Kept: they are used in the order of the decomposition, which does not sort them.
class TruncatedSolve {
 public:
  /// Decomposes and makes InvH from the values before the first one whose ratio w(1)/w(k) reaches
  /// run.switches.epsSVD.
  explicit TruncatedSolve(Run& run);
  /// Restores the original run.switches.epsSVD.
  ~TruncatedSolve();
  TruncatedSolve(const TruncatedSolve&) = delete;
  TruncatedSolve& operator=(const TruncatedSolve&) = delete;

  /// Makes InvH again after an update that crossed bounds: every violation removes a singular value. If none
  /// is left to remove, or for the tenth time, the limit is divided by the root of 10.
  void Tighten(int violations);

 private:
  void Count();
  void Loosen();
  void Invert(int violations);

  Run& run_;
  ColumnMatrix U_, V_;
  OffsetVector<double> w_;
  double entryEps_;
  int retries_ = 0, count_ = 0;
};

}  // namespace sondera
