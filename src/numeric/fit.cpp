// fit.cpp - polynomial fits and interpolation. Owns no state.
#include "numeric/fit.h"

#include <cmath>

#include "numeric/alloc.h"
#include "numeric/complex_one.h"
#include "numeric/lu.h"
#include "numeric/nrerror.h"
#include "numeric/scratch.h"
#include "numeric/svd.h"

namespace sondera {

namespace {

// Singular values below this fraction of the largest count as 0. Double precision allows a far smaller one;
// this one suppresses coefficients that the few, close points of a window hardly determine.
constexpr double kSingularValueTolerance = 1.0e-05;

/// Sets values strictly below the threshold to 0; a value equal to the threshold stays.
void DropSmallValues(double* w, int n) {
  double largest = 0.0;
  for (int j = 1; j <= n; ++j) {
    if (w[j] > largest) largest = w[j];
  }
  const double threshold = kSingularValueTolerance * largest;
  for (int j = 1; j <= n; ++j) {
    if (w[j] < threshold) w[j] = 0.0;
  }
}

}  // namespace

void dpoly(double x, double* p, int np) {
  p[1] = 1.0;
  for (int j = 2; j <= np; ++j) p[j] = x * p[j - 1];
}

void svdfit(const double* x, const double* y, const double* sig, int ndata, double* a, int ma, double* u,
            double* v, double* w, double* chisq, void (* /*funcs*/)(double, double*, int)) {
  const FlatMatrix U{u, ndata}, V{v, ma};
  Scratch<double> basis(ma);

  // 1. Design matrix, each row scaled by its weight.
  for (int i = 1; i <= ndata; ++i) {
    dpoly(x[i], basis.pointer(), ma);
    const double weight = 1.0 / sig[i];
    for (int j = 1; j <= ma; ++j) U(i, j) = basis[j] * weight;
  }

  // 2. Decompose it, and drop what the points do not determine.
  svdcmp(u, ndata, ma, w, v);
  DropSmallValues(w, ma);

  // 3. Coefficients a = V diag(1/w) U^T b as in svbksb, with the scaled ordinates b formed on the way, so
  //    that no vector of ndata elements is needed.
  Scratch<double> along(ma);
  for (int j = 1; j <= ma; ++j) along[j] = 0.0;
  for (int i = 1; i <= ndata; ++i) {
    const double b = y[i] * (1.0 / sig[i]);
    for (int j = 1; j <= ma; ++j) along[j] += U(i, j) * b;
  }
  for (int j = 1; j <= ma; ++j) a[j] = 0.0;
  for (int k = 1; k <= ma; ++k) {
    if (w[k] == 0.0) continue;
    const double part = along[k] / w[k];
    for (int j = 1; j <= ma; ++j) a[j] += V(j, k) * part;
  }

  // 4. Misfit.
  *chisq = 0.0;
  for (int i = 1; i <= ndata; ++i) {
    dpoly(x[i], basis.pointer(), ma);
    double fit = 0.0;
    for (int j = 1; j <= ma; ++j) fit += a[j] * basis[j];
    *chisq += Dsqr((y[i] - fit) / sig[i]);
  }
}

void FS_polyfit(const double* x, const double* y, int n, int order, double* yfit, double* coef, double* err) {
  const int m = order + 1;

  // 1. The caller counts from 0, the formulas from 1.
  OffsetVector<double> xs = dvector(1, n), ys = dvector(1, n);
  for (int i = 1; i <= n; ++i) {
    xs[i] = x[i - 1];
    ys[i] = y[i - 1];
  }

  // 2. Vandermonde array: column j holds the power m - j.
  OffsetVector<double> vandermonde = dvector(1, n * m);
  const FlatMatrix P{vandermonde.shifted(), n};
  for (int i = 1; i <= n; ++i) {
    P(i, m) = 1.0;
    for (int j = order; j >= 1; --j) P(i, j) = P(i, j + 1) * xs[i];
  }

  // 3. Normal equations: coefficients = (P^T P)^-1 P^T y, evaluated from left to right.
  OffsetVector<double> product = dvector(1, m * m), inverse = dvector(1, m * m);
  const FlatMatrix N{product.shifted(), m}, Inverse{inverse.shifted(), m};
  for (int j = 1; j <= m; ++j) {
    for (int k = 1; k <= m; ++k) {
      double sum = 0.0;
      for (int i = 1; i <= n; ++i) sum += P(i, j) * P(i, k);
      N(j, k) = sum;
    }
  }
  FS_InvMatrix(N.data, m, Inverse.data);
  for (int j = 1; j <= m; ++j) {
    double coefficient = 0.0;  // of column j
    for (int i = 1; i <= n; ++i) {
      double element = 0.0;  // (j, i) of (P^T P)^-1 P^T
      for (int k = 1; k <= m; ++k) element += Inverse(j, k) * P(i, k);
      coefficient += element * ys[i];
    }
    coef[m - j] = coefficient;
  }

  // 4. Fitted values. Kept: coef[k-1], of power k - 1, is multiplied with column k, of power m - k; and each
  //    element is set to 0 one step before its sum, so the first is added to the value that the caller left
  //    there.
  for (int i = 1; i <= n; ++i) {
    yfit[i] = 0.0;
    double sum = 0.0;
    for (int k = 1; k <= m; ++k) sum += coef[k - 1] * P(i, k);
    yfit[i - 1] += sum;
  }

  // 5. Misfit. Kept: fitted value and ordinate are shifted by one element, so y[n] is read.
  double sumSquares = 0.0;
  for (int i = 1; i <= n; ++i) sumSquares += Dsqr(yfit[i - 1] - y[i]);
  *err = std::sqrt(sumSquares);
}

void FS_polint(const double* xa, const double* ya, int n, double x, double* y, double* dy) {
  // Corrections of the scheme: c extends a polynomial by the next point after its range, d by the next point
  // before it.
  Scratch<double> c(n), d(n);

  // 1. Start at the nearest point; at equal distances the first counts.
  int nearest = 1;
  double least = std::fabs(x - xa[1]);
  for (int i = 1; i <= n; ++i) {
    const double distance = std::fabs(x - xa[i]);
    if (distance < least) {
      nearest = i;
      least = distance;
    }
    c[i] = d[i] = ya[i];
  }
  *y = ya[nearest];
  *dy = 0.0;

  // 2. Add one point after the other, on the side that keeps the path in the middle of the table.
  int before = nearest - 1;  // points of the table before the path
  for (int width = 1; width < n; ++width) {
    for (int i = 1; i <= n - width; ++i) {
      const double toFirst = xa[i] - x, toLast = xa[i + width] - x;
      const double gap = toFirst - toLast;
      if (gap == 0.0) nrerror("Error in routine POLinteger");
      const double quotient = (c[i + 1] - d[i]) / gap;
      d[i] = toLast * quotient;
      c[i] = toFirst * quotient;
    }
    *dy = 2 * before < n - width ? c[before + 1] : d[before--];
    *y += *dy;
  }
}

}  // namespace sondera
