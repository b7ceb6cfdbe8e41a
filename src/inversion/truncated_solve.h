// truncated_solve.h - pseudo-inverse of the Hessian from its larger singular values.
//
// Callers: the update of an inversion with run.switches.iUseSVD on, which no control sets. The object
// lives for one update. Kept: it is chatty on standard output, and ends the process with status 1 when its
// limit of the singular value ratio has no room left.
#pragma once

#include "numeric/column_matrix.h"
#include "numeric/offset_array.h"
#include "run/system_state.h"

namespace sondera {

/// One update's decomposition of run.update.Hessian, with run.update.InvH made from its first singular values. Kept: they
/// are taken in the order of the decomposition, which does not sort them.
class TruncatedSolve {
 public:
  /// Decomposes and makes InvH from the values before the first one whose ratio w(1)/w(k) reaches run.switches.epsSVD.
  explicit TruncatedSolve(Run& run);
  /// Puts run.switches.epsSVD back to what it was at the start.
  ~TruncatedSolve();
  TruncatedSolve(const TruncatedSolve&) = delete;
  TruncatedSolve& operator=(const TruncatedSolve&) = delete;

  /// Makes InvH anew after an update that crossed bounds: every violation costs a singular value, and where
  /// that goes no further, or for the tenth time, the limit is divided by the root of 10.
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
