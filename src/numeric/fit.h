// fit.h - least-squares polynomials and polynomial interpolation.
//
// svdfit makes the windowed fits of the representative curves, once per output cell; FS_polint interpolates
// the sampled dispersion curve. FS_polyfit has no caller in this program.
#pragma once

namespace sondera {

/// Basis of powers: p[1] = 1, p[j] = x p[j - 1].
/// @param[out] p  1..np
void dpoly(double x, double* p, int np);

/// Weighted least-squares fit of y(x) on the basis dpoly, by singular values. All arrays count from 1.
/// @param[in]  x, y, sig  points and their standard deviations, 1..ndata; sig not 0
/// @param[in]  ndata      number of points, at least 1
/// @param[out] a          coefficients in ascending powers, 1..ma
/// @param[in]  ma         number of coefficients, at least 1
/// @param[out] u          work, flat, ndata x ma with leading dimension ndata: U of the decomposition
/// @param[out] v          work, flat, ma x ma with leading dimension ma: V
/// @param[out] w          work, 1..ma: the singular values, those below 1e-5 of the largest set to 0
/// @param[out] chisq      sum over the points of ((y - fit) / sig)^2
/// @param      funcs      Kept: the basis routine is always dpoly; this argument is not used and may be null
/// u, v and w serve svdvar afterwards. Nothing is allocated for up to 64 coefficients, whatever ndata is.
/// Source: Golub and Reinsch 1970; Press et al., Numerical Recipes, general linear least squares.
void svdfit(const double* x, const double* y, const double* sig, int ndata, double* a, int ma, double* u,
            double* v, double* w, double* chisq, void (*funcs)(double, double*, int));

/// Least-squares polynomial by normal equations.
/// @param[in]     x      abscissae, x[0]..x[n-1]
/// @param[in]     y      ordinates, y[0]..y[n]. Kept: one element more than there are points is read, see err
/// @param[in]     n      number of points, at least 1
/// @param[in]     order  degree; order + 1 coefficients
/// @param[in,out] yfit   yfit[0]..yfit[n], one element more than there are points; yfit[0] is 0 at entry.
///                       Kept: the fit is evaluated with the coefficients in reverse order (the value is that
///                       of the polynomial whose coefficient of power p is coef[order - p]), the sum of the
///                       first element is added to its old value, and yfit[n] becomes 0
/// @param[out]    coef   coef[0]..coef[order], ascending powers; these are right
/// @param[out]    err    root of the sum over i = 1..n of (yfit[i-1] - y[i])^2. Kept: shifted by one element
void FS_polyfit(const double* x, const double* y, int n, int order, double* yfit, double* coef, double* err);

/// Interpolates y(x) by the polynomial through n points (Neville's scheme, from the nearest point outwards).
/// @param[in]  xa, ya  points, 1..n; xa distinct, in any order
/// @param[in]  n       number of points, at least 1
/// @param[in]  x       abscissa
/// @param[out] y       value at x
/// @param[out] dy      last correction, an indication of the error; 0 for a single point
/// Equal abscissae call nrerror; the division continues and y and dy become infinite or NaN.
void FS_polint(const double* xa, const double* ya, int n, double x, double* y, double* dy);

}  // namespace sondera
