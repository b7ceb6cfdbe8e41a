// cylinder_functions.cpp - J0, J1, H0, H1 of a complex argument, accurate to the last digits of a double.
//
// The disk-load kernels call these, mostly for H0: a point-load evaluation needs some thousand values. Owns
// no state.
//
// Hankel functions are computed from the modified function K of the second kind: H0(z) = (2i/pi) K0(w) and
// H1(z) = -(2/pi) K1(w) (second kind), w = i z, and Im z <= 0 means Re w >= 0, the half-plane in which K is
// easiest to compute. There
//     K0(w) = sqrt(pi / (2 w)) exp(-w) g(w),   g(w) = 1 - sum of e_j / (w + t_j),
// because exp(w) sqrt(2 w / pi) K0(w) is a Stieltjes function of 1/w: the sum is the Gaussian quadrature of
// its measure. It has no cancellation for Re w >= 0 and converges like exp(-4 sqrt(m |w|)) for m nodes, so 24
// nodes suffice from |w| = 3, and 4 nodes from |w| = 40 (the power series of Y would lose exp(2 |Im z|)
// digits, so it is used only up to 3). K1 follows from K1 = -K0'.
#include "forward/cylinder_functions.h"

#include <cmath>
#include <limits>

#include "numeric/pi.h"

namespace sondera {
namespace {

constexpr double kEuler = 0.57721566490153286061;
constexpr double kSqrt2OverPi = 0.79788456080286535588;  // sqrt(2 / pi)
constexpr double kSqrtHalf = 0.70710678118654752440;
constexpr double kSeriesLimitJ = 10.0;     // power series of J up to here
constexpr double kRecurrenceLimit = 25.0;  // backward recurrence up to here, asymptotic series beyond
constexpr double kSeriesLimitH = 3.0;      // power series of Y up to here
constexpr double kTermLimit = 1e-16;       // a term below this ends a power series

// Quadrature of the measure with moments prod_(k=1..n) (2k-1)^2 / (n! 8^n), from its Jacobi matrix at 260
// digits: nodes t_j and weights times nodes e_j.
// clang-format off
alignas(16) constexpr double kNodes24[24] = {
    0.0075566121949388289, 0.092709704738050349, 0.27718123062577997, 0.56385465204701447,
    0.95483141696798485, 1.4522649872061354, 2.0586598487977053, 2.7770344349714695, 3.6110494978904815,
    4.5651406195072242, 5.6446766296965099, 6.8561628301149747, 8.2075118222063108, 9.7084145632663523,
    11.370862433285185, 13.209903851649853, 15.244780063648822, 17.500705114599254, 20.011810172770801,
    22.826365468718471, 26.016949765757643, 29.703067958052568, 34.113004068951418, 39.832501682674512};
alignas(16) constexpr double kWeights24[24] = {
    0.0040694978515508043, 0.023660260157014589, 0.03445173824900572, 0.030362669239912612,
    0.019046414378602641, 0.0089871523862006651, 0.0032625628137911903, 0.00091925955936196325,
    0.00020133489287311268, 3.4168527502680794e-5, 4.4627593628428435e-6, 4.4406664164629663e-7,
    3.3208926067740202e-8, 1.8340211836155952e-9, 7.3145581852755796e-11, 2.0474529685749561e-12,
    3.8768805988511615e-14, 4.7306332887081193e-16, 3.4828774204052169e-18, 1.4096869497443569e-20,
    2.7280442651630757e-23, 2.0081774437259901e-26, 3.6469600320264414e-30, 5.488703172436626e-35};
alignas(16) constexpr double kNodes18[18] = {
    0.0098291030679213684, 0.12250296418289709, 0.3680937152411986, 0.75138190704763437, 1.2765115194879572,
    1.9483233962268534, 2.7729300394464536, 3.7581659044693921, 4.9141052905170806, 6.2537709814327867,
    7.7941838879368317, 9.5580048540852177, 11.576251034574257, 13.893113688870315, 16.575335195341718,
    19.733040831971019, 23.576619570817712, 28.644967319659448};
alignas(16) constexpr double kWeights18[18] = {
    0.005755198357087029, 0.031209706486205446, 0.039741169410771649, 0.02869280608958309,
    0.013738206251468177, 0.0045809428240030041, 0.0010796645326279961, 0.00017967665571049833,
    2.0878239143215428e-5, 1.6603891637538649e-6, 8.7747211643312129e-8, 2.9564331644713279e-9,
    5.991601961275828e-11, 6.7163887297458214e-13, 3.6672987629030332e-15, 7.9122013882546145e-18,
    4.5372390584182988e-21, 2.5540317188031136e-25};
alignas(16) constexpr double kNodes10[10] = {
    0.016744910524178533, 0.21665497690108383, 0.66018844111212959, 1.3643713533763205, 2.3513304536948908,
    3.6546878443566739, 5.3280284979954108, 7.4627111910578841, 10.236119773760185, 14.104411335222679};
alignas(16) constexpr double kWeights10[10] = {
    0.011500733204584486, 0.050892314376280847, 0.042860568680958493, 0.016285096247615895,
    0.003141994659574367, 0.00030521581306149945, 1.3826568337343562e-5, 2.4915538423858173e-7,
    1.2933547176497276e-9, 8.4811285054872306e-13};
alignas(16) constexpr double kNodes6[6] = {
    0.026465635877778525, 0.35677418327671696, 1.1115725582141431, 2.3634376419563283, 4.2590394569413834,
    7.1904227954701786};
alignas(16) constexpr double kWeights6[6] = {
    0.020566276922305042, 0.068842973508186608, 0.031300397323088572, 0.0041467597889383345,
    0.00014292113249373293, 6.7132498771025052e-7};
alignas(16) constexpr double kNodes4[4] = {
    0.037914389884954822, 0.53340681363161359, 1.7255683267079552, 3.955198045935237};
alignas(16) constexpr double kWeights4[4] = {
    0.032087534033836957, 0.077170203656514323, 0.015397604609051501, 0.00034465770059721827};
// clang-format on

using Cplx = dcomplex;
inline Cplx Conj(Cplx a) {
  return {a.re, -a.im};
}
inline Cplx Reciprocal(Cplx a) {  // Smith's form: |z| may be 1e-200 or 1e+200 on the way
  if (std::fabs(a.re) < std::fabs(a.im)) {
    const double r = a.re / a.im, d = a.im + r * a.re;
    return {r / d, -1.0 / d};
  }
  const double r = a.im / a.re, d = a.re + r * a.im;
  return {1.0 / d, -r / d};
}
inline Cplx ExpI(double phi) {
  return {std::cos(phi), std::sin(phi)};
}

/// Times exp(p); zero stays zero even if exp(p) is infinite.
dcomplex TimesExp(Cplx a, double p) {
  const double e = std::exp(p);
  return {a.re == 0.0 ? 0.0 : a.re * e, a.im == 0.0 ? 0.0 : a.im * e};
}

/// 1 / sqrt(z) for Im z <= 0, arg z from -pi to 0 (a zero imaginary part counts as -0).
Cplx InverseSqrtLower(double re, double im) {
  const double m = std::hypot(re, im);
  double sr, si;  // root: re >= 0, im <= 0
  if (re > 0.0) {
    sr = std::sqrt(0.5 * (re + m));
    si = 0.5 * im / sr;
  } else {
    si = -std::sqrt(0.5 * (m - re));
    sr = im == 0.0 ? 0.0 : 0.5 * im / si;
  }
  return {sr / m, -si / m};
}

/// S = sum of e_j / (w + t_j) over one quadrature rule, m even; w = wr + i wi with wr >= 0.
template <int m>
inline Cplx RuleSum(const double (&t)[m], const double (&e)[m], double wr, double wi) {
  const double wi2 = wi * wi;
  double sr[2] = {0.0, 0.0}, si[2] = {0.0, 0.0};
  for (int j = 0; j < m; j += 2) {
    for (int l = 0; l < 2; ++l) {
      const double a = wr + t[j + l];
      const double q = e[j + l] / (a * a + wi2);
      sr[l] += q * a;
      si[l] += q;
    }
  }
  return {sr[0] + sr[1], -wi * (si[0] + si[1])};
}

/// As RuleSum, and D = sum of e_j / (w + t_j)^2.
template <int m>
inline Cplx RuleSum2(const double (&t)[m], const double (&e)[m], double wr, double wi, Cplx& D) {
  const double wi2 = wi * wi;
  double sr = 0.0, si = 0.0, dr = 0.0, di = 0.0;
  for (int j = 0; j < m; ++j) {
    const double a = wr + t[j];
    const double d = 1.0 / (a * a + wi2), q = e[j] * d;
    sr += q * a;
    si += q;
    dr += q * d * (a * a - wi2);
    di += q * d * a;
  }
  D = {dr, -2.0 * wi * di};
  return {sr, -wi * si};
}

Cplx StieltjesSum(double wr, double wi, double size2) {
  if (size2 >= 1600.0) return RuleSum(kNodes4, kWeights4, wr, wi);
  if (size2 >= 256.0) return RuleSum(kNodes6, kWeights6, wr, wi);
  if (size2 >= 64.0) return RuleSum(kNodes10, kWeights10, wr, wi);
  if (size2 >= 16.0) return RuleSum(kNodes18, kWeights18, wr, wi);
  return RuleSum(kNodes24, kWeights24, wr, wi);
}

Cplx StieltjesSum2(double wr, double wi, double size2, Cplx& D) {
  if (size2 >= 1600.0) return RuleSum2(kNodes4, kWeights4, wr, wi, D);
  if (size2 >= 256.0) return RuleSum2(kNodes6, kWeights6, wr, wi, D);
  if (size2 >= 64.0) return RuleSum2(kNodes10, kWeights10, wr, wi, D);
  if (size2 >= 16.0) return RuleSum2(kNodes18, kWeights18, wr, wi, D);
  return RuleSum2(kNodes24, kWeights24, wr, wi, D);
}

/// Power series of J0 and J1; near the real axis the loss is of the order exp(|z|) / |z| times 1e-16.
void SeriesJ(Cplx z, Cplx& J0, Cplx& J1) {
  const Cplx h = 0.5 * z;
  const Cplx t = -1.0 * (h * h);
  Cplx S0{1.0, 0.0}, S1{1.0, 0.0}, a{1.0, 0.0};
  double m = 1.0;
  do {
    a = a * t;
    S0 = S0 + a;
    m += 1.0;
    a = (1.0 / m) * a;
    S1 = S1 + a;
    a = (1.0 / m) * a;
  } while (std::fabs(a.re) + std::fabs(a.im) > kTermLimit);
  J0 = S0;
  J1 = S1 * h;
}

/// J0, J1 times exp(-|Im z|) for 10 < |z| <= 25 in the fourth quadrant: Miller's backward recurrence,
/// normalised by exp(i z) = J0 + 2 sum i^n J_n, whose left side is the large one of both exponentials there.
void RecurrenceJ(Cplx z, double size, Cplx& j0, Cplx& j1) {
  const int start = static_cast<int>(size) + 42;
  const Cplx twoOverZ = 2.0 * Reciprocal(z);
  Cplx above{0.0, 0.0}, here{1e-60, 0.0};  // J_(n+1), J_n
  Cplx sum{0.0, 0.0};
  for (int n = start; n > 0; --n) {
    switch (n & 3) {  // i^n
      case 0:
        sum = sum + here;
        break;
      case 1:
        sum = sum + Cplx{-here.im, here.re};
        break;
      case 2:
        sum = sum - here;
        break;
      default:
        sum = sum + Cplx{here.im, -here.re};
    }
    const Cplx below = static_cast<double>(n) * (twoOverZ * here) - above;
    above = here;
    here = below;
  }
  const Cplx scale = ExpI(z.re) * Reciprocal(here + 2.0 * sum);
  j0 = here * scale;
  j1 = above * scale;
}

/// J0, J1 times exp(-|Im z|) for |z| > 25 in the fourth quadrant, half the sum of both Hankel functions, each
/// by its asymptotic series: sum of (+-i)^n a_n / z^n, a_n = prod (4 nu^2 - (2k-1)^2) / (n! 8^n).
void AsymptoticJ(Cplx z, Cplx& j0, Cplx& j1) {
  const Cplx u = 0.125 * Reciprocal(z);
  const Cplx grow = kSqrtHalf * (ExpI(z.re) * Cplx{1.0, -1.0});  // exp(i (z - pi/4)), scaled
  const Cplx fall = std::exp(2.0 * z.im) * Conj(grow);           // exp(-i (z - pi/4)), scaled
  const Cplx factor = (0.5 * kSqrt2OverPi) * InverseSqrtLower(z.re, z.im);
  for (int order = 0; order < 2; ++order) {
    const double nu4 = 4.0 * order;
    Cplx even{1.0, 0.0}, odd{0.0, 0.0}, term{1.0, 0.0};
    for (int n = 1; n <= 40; ++n) {
      const double k = 2.0 * n - 1.0;
      term = ((nu4 - k * k) / n) * (term * u);
      // i^n: the sign of the pairs (even, odd), i itself comes with the sum
      const Cplx signedTerm = (n & 2) ? -1.0 * term : term;
      if (n & 1) {
        odd = odd + signedTerm;
      } else {
        even = even + signedTerm;
      }
      if (std::fabs(term.re) + std::fabs(term.im) <= kTermLimit) break;
    }
    const Cplx iOdd{-odd.im, odd.re};
    const Cplx up = grow * (even + iOdd), down = fall * (even - iOdd);
    if (order == 0) {
      j0 = factor * (up + down);
    } else {  // exp(-+ i pi / 2)
      j1 = factor * Cplx{up.im - down.im, down.re - up.re};
    }
  }
}

/// H0, H1 of the second kind for |z| < 3, Im z <= 0, not scaled: J - i Y, both by power series.
void SeriesH(Cplx z, Cplx& H0, Cplx& H1) {
  const Cplx h = 0.5 * z;
  const Cplx t = -1.0 * (h * h);
  Cplx S0{1.0, 0.0}, S1{1.0, 0.0}, a{1.0, 0.0};
  Cplx T0{0.0, 0.0}, T1{1.0, 0.0};  // the same sums with harmonic numbers
  double m = 1.0, harmonic = 0.0;
  do {
    a = a * t;
    harmonic += 1.0 / m;
    S0 = S0 + a;
    T0 = T0 + harmonic * a;
    m += 1.0;
    const double inv = 1.0 / m;
    a = inv * a;
    S1 = S1 + a;
    T1 = T1 + (2.0 * harmonic + inv) * a;
    a = inv * a;
  } while (std::fabs(a.re) + std::fabs(a.im) > 1e-3 * kTermLimit);
  const double arg = std::atan2(z.im == 0.0 ? -0.0 : z.im, z.re);
  const Cplx logTerm{std::log(0.5 * std::hypot(z.re, z.im)) + kEuler, arg};
  const Cplx J1 = h * S1;
  const Cplx Y0 = (2.0 / kPi) * (logTerm * S0 - T0);
  const Cplx Y1 = (1.0 / kPi) * (2.0 * (logTerm * J1 - Reciprocal(z)) - h * T1);
  H0 = {S0.re + Y0.im, S0.im - Y0.re};
  H1 = {J1.re + Y1.im, J1.im - Y1.re};
}

inline bool InSeriesRange(double size2) {
  return size2 < kSeriesLimitH * kSeriesLimitH;
}

/// sqrt(2 / (pi z)) exp(i pi / 4), the factor of both scaled functions.
inline Cplx HankelFactor(Cplx z) {
  const Cplx r = (kSqrt2OverPi * kSqrtHalf) * InverseSqrtLower(z.re, z.im);
  return {r.re - r.im, r.re + r.im};
}

/// exp(i z)
inline Cplx ExpIZ(Cplx z) {
  return std::exp(-z.im) * ExpI(z.re);
}

/// Second kind where Im z <= 0.
void HankelLower(dcomplex z, dcomplex& H0, dcomplex& H1) {
  dcomplex h0, h1;
  HankelScaled(z, h0, h1);
  const Cplx turn = ExpI(-z.re);
  H0 = TimesExp(turn * Cplx{h0.re, h0.im}, z.im);
  H1 = TimesExp(turn * Cplx{h1.re, h1.im}, z.im);
}

void HankelSecond(dcomplex z, dcomplex& H0, dcomplex& H1) {
  const bool lower = z.im < 0.0 || (z.im == 0.0 && (z.re > 0.0 || std::signbit(z.im)));
  if (lower) {
    HankelLower(z, H0, H1);
    return;
  }
  // above the axis the first kind is the small one: H2 = 2 J - H1, H1(z) = conj H2(conj z)
  dcomplex f0, f1, J0, J1, ratio;
  HankelLower({z.re, -z.im}, f0, f1);
  Bessel(z, J0, J1, ratio);
  H0 = {2.0 * J0.re - f0.re, 2.0 * J0.im + f0.im};
  H1 = {2.0 * J1.re - f1.re, 2.0 * J1.im + f1.im};
}

}  // namespace

void BesselScaled(dcomplex z, dcomplex& j0, dcomplex& j1) {
  // J0 is even, J1 odd, both real on the real axis: all four quadrants follow from the fourth
  const bool mirror = z.re < 0.0;
  const bool conjugate = mirror ? z.im < 0.0 : z.im > 0.0;
  const Cplx q{std::fabs(z.re), -std::fabs(z.im)};
  const double size2 = q.re * q.re + q.im * q.im;
  Cplx a, b;
  if (size2 <= kSeriesLimitJ * kSeriesLimitJ) {
    SeriesJ(q, a, b);
    const double scale = std::exp(q.im);
    a = scale * a;
    b = scale * b;
  } else if (size2 <= kRecurrenceLimit * kRecurrenceLimit) {
    RecurrenceJ(q, std::sqrt(size2), a, b);
  } else {
    AsymptoticJ(q, a, b);
  }
  if (conjugate) a = Conj(a), b = Conj(b);
  if (mirror) b = -1.0 * b;
  j0 = a;
  j1 = b;
}

void Bessel(dcomplex z, dcomplex& J0, dcomplex& J1, dcomplex& ratio) {
  dcomplex j0, j1;
  BesselScaled(z, j0, j1);
  const double growth = std::fabs(z.im);
  J0 = TimesExp({j0.re, j0.im}, growth);
  J1 = TimesExp({j1.re, j1.im}, growth);
  if (j1.re == 0.0 && j1.im == 0.0) {
    ratio = {std::numeric_limits<double>::infinity(), 0.0};
  } else {
    ratio = Cplx{j0.re, j0.im} * Reciprocal({j1.re, j1.im});
  }
}

void HankelScaled(dcomplex z, dcomplex& h0, dcomplex& h1) {
  const Cplx c{z.re, z.im};
  const double size2 = z.re * z.re + z.im * z.im;
  if (InSeriesRange(size2)) {
    Cplx a, b;
    SeriesH(c, a, b);
    const Cplx e = ExpIZ(c);
    h0 = a * e;
    h1 = b * e;
    return;
  }
  const double wr = -z.im, wi = z.re;
  Cplx D;
  const Cplx S = StieltjesSum2(wr, wi, size2, D);
  const Cplx factor = HankelFactor(c);
  const Cplx g{1.0 - S.re, -S.im};
  // K1 = -K0': g (1 + 1/(2w)) - g', g' = D; and H1 = i times the same factor as H0
  const Cplx g1 = g + 0.5 * (g * Reciprocal({wr, wi})) - D;
  const Cplx f1 = factor * g1;
  h0 = factor * g;
  h1 = {-f1.im, f1.re};
}

dcomplex Hankel0Scaled(dcomplex z) {
  const Cplx c{z.re, z.im};
  const double size2 = z.re * z.re + z.im * z.im;
  if (InSeriesRange(size2)) {
    Cplx a, b;
    SeriesH(c, a, b);
    return a * ExpIZ(c);
  }
  const Cplx S = StieltjesSum(-z.im, z.re, size2);
  return HankelFactor(c) * Cplx{1.0 - S.re, -S.im};
}

void Hankel(dcomplex z, dcomplex& H0, dcomplex& H1, dcomplex& ratio, int kind) {
  if (kind == 1) {
    dcomplex s0, s1;
    HankelSecond({z.re, -z.im}, s0, s1);
    H0 = {s0.re, -s0.im};
    H1 = {s1.re, -s1.im};
  } else {
    HankelSecond(z, H0, H1);
  }
  // the ratio from the scaled pair if available, so that it stays right when both are 0
  const double inward = kind == 1 ? -z.im : z.im;
  const bool scaled = inward < 0.0 || (inward == 0.0 && z.re > 0.0);
  Cplx top{H0.re, H0.im}, bottom{H1.re, H1.im};
  if (scaled) {
    dcomplex s0, s1;
    HankelScaled({z.re, kind == 1 ? -z.im : z.im}, s0, s1);
    top = {s0.re, kind == 1 ? -s0.im : s0.im};
    bottom = {s1.re, kind == 1 ? -s1.im : s1.im};
  }
  ratio = top * Reciprocal(bottom);
}

}  // namespace sondera
