// svd.cpp - Golub-Reinsch decomposition for svdcmp and FS_svdcmp, and the back substitution. Owns no state.
//
// A becomes upper bidiagonal by Householder reflections from both sides; the reflections are collected in V
// and U; then implicit QR sweeps with shift reduce the superdiagonal to zero, one singular value after the
// other from the last. A policy class holds the differences between the two entries.
#include "numeric/svd.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "numeric/complex_one.h"
#include "numeric/nrerror.h"
#include "numeric/offset_array.h"
#include "numeric/process_end.h"
#include "numeric/scratch.h"

namespace sondera {

double PYTHAG(double a, double b) {
  const double x = std::fabs(a), y = std::fabs(b);
  if (x <= y) return y * std::sqrt(Dsqr(x / y) + 1.0);
  return x * std::sqrt(Dsqr(y / x) + 1.0);
}

namespace {

constexpr int kMaxSweeps = 30;  // for each singular value

/// svdcmp: two zeros have the length 0, and a value that does not converge is skipped without a message.
struct Lenient {
  static double Hypotenuse(double a, double b) { return a == 0.0 && b == 0.0 ? 0.0 : PYTHAG(a, b); }
  static void OnLastSweep() {}
};

/// FS_svdcmp: no test for zero, and the last sweep is reported.
struct Strict {
  static double Hypotenuse(double a, double b) { return PYTHAG(a, b); }
  static void OnLastSweep() { nrerror("No convergence in 30 SVDCMP iterations"); }
};

/// Turns elements 1..rows of two columns by the rotation (c, s).
void RotateColumns(double* first, double* second, int rows, double c, double s) {
  for (int i = 1; i <= rows; ++i) {
    const double x = first[i], y = second[i];
    first[i] = x * c + y * s;
    second[i] = y * c - x * s;
  }
}

/// State of one decomposition. Letters as in the formulas: w is the diagonal of the bidiagonal form and later
/// the singular values, e its superdiagonal with e[j] above w[j]; e[1] is 0.
template <class Policy>
class Decomposition {
 public:
  Decomposition(FlatMatrix a, int m, int n, double* w, FlatMatrix v)
      : A(a), V(v), m_(m), n_(n), w_(w), e_(n) {}

  void Run() {
    Bidiagonalise();
    GatherRight();
    GatherLeft();
    for (int k = n_; k >= 1; --k) FindValue(k);
  }

 private:
  /// 1. Householder reflections: column i below the diagonal, then row i beyond the superdiagonal. The
  ///    vectors of the reflections stay in A. Each is scaled by its sum of magnitudes against overflow.
  void Bidiagonalise() {
    norm_ = 0.0;
    e_[1] = 0.0;
    for (int i = 1; i <= n_; ++i) {
      w_[i] = i <= m_ ? ReflectColumn(i) : 0.0;
      if (i < n_) e_[i + 1] = i <= m_ ? ReflectRow(i) : 0.0;
      norm_ = std::max(norm_, std::fabs(w_[i]) + std::fabs(e_[i]));
    }
  }

  /// Returns the new diagonal element.
  double ReflectColumn(int i) {
    double* x = A.column(i);
    double scale = 0.0;
    for (int k = i; k <= m_; ++k) scale += std::fabs(x[k]);
    if (scale == 0.0) return 0.0;

    double sumSquares = 0.0;
    for (int k = i; k <= m_; ++k) {
      x[k] /= scale;
      sumSquares += x[k] * x[k];
    }
    const double head = x[i];
    const double g = -Dsign(std::sqrt(sumSquares), head);
    const double h = head * g - sumSquares;
    x[i] = head - g;
    for (int j = i + 1; j <= n_; ++j) {
      double* y = A.column(j);
      double dot = 0.0;
      for (int k = i; k <= m_; ++k) dot += x[k] * y[k];
      const double f = dot / h;
      for (int k = i; k <= m_; ++k) y[k] += f * x[k];
    }
    for (int k = i; k <= m_; ++k) x[k] *= scale;
    return scale * g;
  }

  /// Returns the new superdiagonal element. e beyond it serves as work space.
  double ReflectRow(int i) {
    const int l = i + 1;
    double scale = 0.0;
    for (int k = l; k <= n_; ++k) scale += std::fabs(A(i, k));
    if (scale == 0.0) return 0.0;

    double sumSquares = 0.0;
    for (int k = l; k <= n_; ++k) {
      A(i, k) /= scale;
      sumSquares += A(i, k) * A(i, k);
    }
    const double head = A(i, l);
    const double g = -Dsign(std::sqrt(sumSquares), head);
    const double h = head * g - sumSquares;
    A(i, l) = head - g;
    for (int k = l; k <= n_; ++k) e_[k] = A(i, k) / h;
    for (int j = l; j <= m_; ++j) {
      double dot = 0.0;
      for (int k = l; k <= n_; ++k) dot += A(j, k) * A(i, k);
      for (int k = l; k <= n_; ++k) A(j, k) += dot * e_[k];
    }
    for (int k = l; k <= n_; ++k) A(i, k) *= scale;
    return scale * g;
  }

  /// 2. V as the product of the reflections from the right, from the last to the first.
  void GatherRight() {
    for (int i = n_; i >= 1; --i) {
      const int l = i + 1;
      if (i < n_) {
        const double g = e_[l];
        if (g != 0.0) {
          double* x = V.column(i);
          // Two divisions instead of one by a product that might underflow.
          for (int k = l; k <= n_; ++k) x[k] = (A(i, k) / A(i, l)) / g;
          for (int j = l; j <= n_; ++j) {
            double* y = V.column(j);
            double dot = 0.0;
            for (int k = l; k <= n_; ++k) dot += A(i, k) * y[k];
            for (int k = l; k <= n_; ++k) y[k] += dot * x[k];
          }
        }
        for (int k = l; k <= n_; ++k) V(i, k) = V(k, i) = 0.0;
      }
      V(i, i) = 1.0;
    }
  }

  /// 3. U, in place of A, from the reflections from the left.
  void GatherLeft() {
    for (int i = std::min(m_, n_); i >= 1; --i) {
      double* x = A.column(i);
      for (int j = i + 1; j <= n_; ++j) A(i, j) = 0.0;
      if (w_[i] != 0.0) {
        const double reciprocal = 1.0 / w_[i];
        for (int j = i + 1; j <= n_; ++j) {
          double* y = A.column(j);
          double dot = 0.0;
          for (int k = i + 1; k <= m_; ++k) dot += x[k] * y[k];
          const double f = (dot / x[i]) * reciprocal;
          for (int k = i; k <= m_; ++k) y[k] += f * x[k];
        }
        for (int k = i; k <= m_; ++k) x[k] *= reciprocal;
      } else {
        for (int k = i; k <= m_; ++k) x[k] = 0.0;
      }
      x[i] += 1.0;
    }
  }

  /// 4. QR sweeps until the superdiagonal element above w[k] is negligible.
  void FindValue(int k) {
    for (int sweep = 1; sweep <= kMaxSweeps; ++sweep) {
      const int l = StartOfBlock(k);
      if (l == k) {
        MakeNonNegative(k);
        return;
      }
      if (sweep == kMaxSweeps) Policy::OnLastSweep();
      Sweep(l, k);
    }
  }

  /// Small against the whole matrix. False for NaNs.
  bool Negligible(double x) const { return std::fabs(x) + norm_ == norm_; }

  /// First row of the unreduced block that ends at k: the element e[l] above it is negligible, or becomes so
  /// because w[l - 1] is. e[1] is 0 and ends the search in any case, also among NaNs.
  int StartOfBlock(int k) {
    for (int l = k; l > 1; --l) {
      if (Negligible(e_[l])) return l;
      if (Negligible(w_[l - 1])) {
        CancelSuperdiagonal(l, k);
        return l;
      }
    }
    return 1;
  }

  /// Rotates e[l] away by row rotations with row l - 1, whose diagonal element is negligible.
  void CancelSuperdiagonal(int l, int k) {
    double c = 0.0, s = 1.0;
    for (int i = l; i <= k; ++i) {
      const double f = s * e_[i];
      e_[i] = c * e_[i];
      if (Negligible(f)) return;
      const double g = w_[i];
      const double h = Policy::Hypotenuse(f, g);
      w_[i] = h;
      c = g / h;
      s = -f / h;
      RotateColumns(A.column(l - 1), A.column(i), m_, c, s);
    }
  }

  void MakeNonNegative(int k) {
    if (!(w_[k] < 0.0)) return;
    w_[k] = -w_[k];
    double* x = V.column(k);
    for (int i = 1; i <= n_; ++i) x[i] = -x[i];
  }

  /// Shift from the last two rows of the block l..k, as the first element of the vector for the first
  /// rotation.
  double ShiftedHead(int l, int k) const {
    const double x = w_[l], y = w_[k - 1], z = w_[k];
    const double g = e_[k - 1], h = e_[k];
    const double f = ((y - z) * (y + z) + (g - h) * (g + h)) / (2.0 * h * y);
    const double root = Policy::Hypotenuse(f, 1.0);
    return ((x - z) * (x + z) + h * (y / (f + Dsign(root, f)) - h)) / x;
  }

  /// One implicit QR sweep over rows l..k: each rotation from the right makes an element below the diagonal;
  /// the next rotation from the left removes it and makes one beyond the superdiagonal.
  void Sweep(int l, int k) {
    double f = ShiftedHead(l, k);
    double x = w_[l];
    double c = 1.0, s = 1.0;
    for (int j = l; j < k; ++j) {
      const int i = j + 1;
      double g = c * e_[i];
      double h = s * e_[i];
      double y = w_[i];

      double z = Policy::Hypotenuse(f, h);
      e_[j] = z;
      c = f / z;
      s = h / z;
      f = x * c + g * s;
      g = g * c - x * s;
      h = y * s;
      y = y * c;
      RotateColumns(V.column(j), V.column(i), n_, c, s);

      z = Policy::Hypotenuse(f, h);
      w_[j] = z;
      if (z != 0.0) {  // any rotation serves when z is 0: keep the last one
        c = f / z;
        s = h / z;
      }
      f = c * g + s * y;
      x = c * y - s * g;
      RotateColumns(A.column(j), A.column(i), m_, c, s);
    }
    e_[l] = 0.0;
    e_[k] = f;
    w_[k] = x;
  }

  FlatMatrix A, V;
  int m_, n_;
  double* w_;
  Scratch<double> e_;
  double norm_ = 0.0;  // greatest sum of magnitudes in a column of the bidiagonal form
};

}  // namespace

void svdcmp(double* a, int m, int n, double* w, double* v) {
  Decomposition<Lenient>({a, m}, m, n, w, {v, n}).Run();
}

void FS_svdcmp(int m, int n, double* a, double* w, double* v) {
  if (m < n) {
    std::fputs("SVDCMP: You must augment A with extra zero rows", stdout);
    EndProcess(EXIT_FAILURE);
  }
  Decomposition<Strict>({a, m}, m, n, w, {v, m}).Run();
}

void svbksb(const double* u, const double* w, const double* v, int m, int n, const double* b, double* x) {
  const ConstFlatMatrix U{u, m}, V{v, n};
  for (int i = 1; i <= n; ++i) x[i] = 0.0;
  for (int j = 1; j <= n; ++j) {
    if (w[j] == 0.0) continue;
    const double* uj = U.column(j);
    const double* vj = V.column(j);
    double dot = 0.0;
    for (int i = 1; i <= m; ++i) dot += uj[i] * b[i];
    const double along = dot / w[j];
    for (int i = 1; i <= n; ++i) x[i] += vj[i] * along;
  }
}

void svdvar(const double* v, int ma, const double* w, double* cvm) {
  const ConstFlatMatrix V{v, ma};
  const FlatMatrix C{cvm, ma};
  Scratch<double> inverseSquare(ma);
  for (int k = 1; k <= ma; ++k) inverseSquare[k] = w[k] != 0.0 ? 1.0 / Dsqr(w[k]) : 0.0;
  for (int i = 1; i <= ma; ++i) {
    for (int j = 1; j <= i; ++j) {
      double sum = 0.0;
      for (int k = 1; k <= ma; ++k) sum += V(i, k) * V(j, k) * inverseSquare[k];
      C(i, j) = C(j, i) = sum;
    }
  }
}

}  // namespace sondera
