// point_load_bench.cpp - time of a point-load evaluation, and its growth with the mesh.
//
// For meshes of N = 60, 130, 190 and 260 degrees of freedom: the mode search, its plain formula, a dense
// LAPACK generalised eigen-solve of the same pencil (where LAPACK is there), and a whole evaluation (mesh,
// modes, sum over the nodes). All in processor time; the best of the repeats, since what disturbs only adds.
// Ratios: dense over fast, plain over fast, and the exponent of N between neighbouring meshes. Results must
// agree, or the program says so and fails.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <vector>

#include "forward/dense_eigen.cpp"
#include "forward/plain_green_kernels.cpp"
#include "forward/point_load_site.cpp"

#ifdef SONDERA_HAVE_LAPACK
extern "C" void zggev_(const char* jobvl, const char* jobvr, const int* n, void* a, const int* lda, void* b,
                       const int* ldb, void* alpha, void* beta, void* vl, const int* ldvl, void* vr,
                       const int* ldvr, void* work, const int* lwork, double* rwork, int* info);
#endif

namespace {

using namespace sondera;
using Cx = plain::Complex;

double Now() {
  return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

template <class Work>
double Best(int repeats, Work work) {
  double best = 1e30;
  for (int i = 0; i < repeats; ++i) {
    const double start = Now();
    work();
    best = std::min(best, Now() - start);
  }
  return best;
}

#ifdef SONDERA_HAVE_LAPACK
/// Eigenvalues with right vectors of (0 I; -D -B) against diag(I, A), all in units that bring the entries
/// near 1.
std::vector<Cx> Dense(const plain::Pencil& P) {
  const int N = P.N, n = 2 * N;
  std::vector<Cx> a(static_cast<std::size_t>(n) * n), b(a.size()), alpha(n), beta(n), vr(a.size()), work(1);
  std::vector<double> rwork(8 * n);
  double unit = 0.0, modulus = 0.0;
  for (int i = 1; i <= N; ++i) {
    unit += std::sqrt(std::abs(P.D_d[i] / P.A_d[i])) / N;
    modulus += std::abs(P.A_d[i]) / N;
  }
  const auto at = [n](int i, int j) { return static_cast<std::size_t>(j) * n + i; };
  for (int i = 0; i < N; ++i) {
    a[at(i, N + i)] = b[at(i, i)] = 1.0;
    for (int j = 0; j < N; ++j) {
      a[at(N + i, j)] = -P.D(i + 1, j + 1) / (modulus * unit * unit);
      a[at(N + i, N + j)] = -P.B(i + 1, j + 1) / (modulus * unit);
      b[at(N + i, N + j)] = P.A(i + 1, j + 1) / modulus;
    }
  }
  const int one = 1;
  int size = -1, info = 0;
  zggev_("N", "V", &n, a.data(), &n, b.data(), &n, alpha.data(), beta.data(), nullptr, &one, vr.data(), &n,
         work.data(), &size, rwork.data(), &info);
  size = static_cast<int>(work[0].real());
  work.resize(static_cast<std::size_t>(size));
  zggev_("N", "V", &n, a.data(), &n, b.data(), &n, alpha.data(), beta.data(), nullptr, &one, vr.data(), &n,
         work.data(), &size, rwork.data(), &info);
  for (int i = 0; i < n; ++i) alpha[i] = info == 0 ? unit * alpha[i] / beta[i] : Cx();
  return alpha;
}
#endif

/// Largest relative distance of a mode's k from the closest of the others.
double Worst(const std::vector<dcomplex>& k, const std::vector<Cx>& others, int N) {
  double worst = 0.0;
  for (int j = 1; j <= N; ++j) {
    const Cx kj(k[j].re, k[j].im);
    double best = HUGE_VAL;
    for (const Cx& o : others) best = std::min(best, std::abs(o - kj));
    worst = std::max(worst, best / std::abs(kj));
  }
  return worst;
}

struct Case {
  int type;
  double fDispBulb;
};

}  // namespace

int main() {
  test::Site site({{2.0, 150.0, 1.8, 0.33, 0.02},
                   {3.0, 190.0, 1.85, 0.33, 0.02},
                   {5.0, 240.0, 1.9, 0.3, 0.02},
                   {8.0, 300.0, 1.95, 0.3, 0.02},
                   {1000.0, 380.0, 2.0, 0.3, 0.02}});
  const double L = 10.0, f = site.Seed(L) / L;
  bool good = true;
  double lastTime = 0.0;
  int lastN = 0;
  std::printf(
      "   N  passes  search ms  ns/pass/node  evaluation ms  sum ms   plain ms  plain/fast   zggev ms  "
      "zggev/fast"
      "  exponent\n");
  for (const Case& c : {Case{3, 1.75}, Case{3, 4.0}, Case{4, 1.75}, Case{4, 4.0}}) {
    site.Type(c.type, c.fDispBulb);
    const test::Matrices m = test::MatricesOf(site, L, f);
    const plain::Pencil pencil = test::PencilOf(m);
    std::vector<dcomplex> k(m.N + 1), Phi(2 * m.N + 1);
    ModeWork work;
    int ok = 0;
    const double fast = Best(60, [&] {
      FS_Raylgh(m.A_d.data(), m.A_o.data(), m.B1.data(), m.B2.data(), m.D_d.data(), m.D_o.data(), k.data(),
                Phi.data(), 2, work, m.N, ok);
    });
    good = good && ok == 1;

    PointLoadWork point;
    point.nSpatialNodes = FS_GetNoSpatialNodes(site.in, 0.25 * L, L);
    point.nReportNodes = FS_SetUpNodes(site.in, point, -1, 0.25 * L);
    const double evaluation = Best(60, [&] { FS_Chief(site.in, point, 1e-4 * L, f, L); });
    const double sum = Best(60, [&] {
      FS_Green(point.x.data(), point.nReportNodes, point.modes.k.data(), point.modes.Phi.data(), 2, 1e-4 * L,
               m.N, point.u.data(), point.green);
    });

    plain::Modes modes;
    const double plainTime = Best(3, [&] { modes = plain::SolveModes(pencil); });
    const double off = Worst(k, {modes.k.begin() + 1, modes.k.end()}, m.N);
    good = good && off < 1e-9;
    double denseTime = 0.0;
#ifdef SONDERA_HAVE_LAPACK
    std::vector<Cx> all;
    denseTime = Best(1, [&] { all = Dense(pencil); });
    const double offDense = Worst(k, all, m.N);
    good = good && offDense < 1e-9;
    if (!(offDense < 1e-9)) std::printf("dense solver: k differ by %g\n", offDense);
#endif
    std::printf("%4d  %6ld  %9.3f  %12.2f  %13.3f  %6.3f  %9.2f  %10.1f  %9.1f  %10.0f  ", m.N, work.passes(),
                1e3 * fast, 1e9 * fast / static_cast<double>(work.passes()) / (0.5 * m.N), 1e3 * evaluation,
                1e3 * sum, 1e3 * plainTime, plainTime / fast, 1e3 * denseTime, denseTime / fast);
    if (lastN) {
      std::printf("%8.2f\n", std::log(evaluation / lastTime) / std::log(static_cast<double>(m.N) / lastN));
    } else {
      std::printf("       -\n");
    }
    lastN = m.N;
    lastTime = evaluation;
  }
  if (!good) std::printf("The modes differ between the routes.\n");
  return good ? 0 : 1;
}
