// point_load_site.cpp - see the header.
#include "forward/point_load_site.h"

#include "forward/plane_wave.h"
#include "numeric/complex_two.h"

namespace sondera::test {

Site::Site(std::vector<truth::Layer> list) : layers(std::move(list)) {
  const int n = static_cast<int>(layers.size());
  for (auto* v : {&h, &Vs, &G, &rho, &nu, &damp, &E}) v->assign(n + 1, 0.0);
  for (int l = 1; l <= n; ++l) {
    const truth::Layer& s = layers[l - 1];
    h[l] = s.h;
    Vs[l] = s.Vs;
    rho[l] = s.rho;
    nu[l] = s.nu;
    damp[l] = s.damp;
    G[l] = s.rho * s.Vs * s.Vs;
    E[l] = 2.0 * G[l] * (1.0 + s.nu);
  }
  in.layers = {n, h.data(), Vs.data(), G.data(), rho.data(), nu.data(), damp.data()};
  in.nPoints = 1;
  in.nRecCfgPerPoint = count.data();
  in.recCfgOfPoint = setup.data();
}

void Site::Type(int type, double fDispBulb) {
  in.mesh = {16, fDispBulb, type == 4};
}

void Site::Pair(double r1, double r2) {
  rec1.assign(5, 0.0);
  rec2.assign(5, 0.0);
  rec1[4] = r1;
  rec2[4] = r2;
  in.nRecSetups = 4;
  in.rec1Loc = rec1.data();
  in.rec2Loc = rec2.data();
  setup[1] = 4;
}

double Site::Seed(double wavelength) const {
  const int n = in.layers.nLayersCur, one = 1;
  const double L[2] = {0.0, wavelength};
  double c[2] = {0.0, 0.0};
  FS_SASW2D(&n, h.data(), Vs.data(), Vs.data(), G.data(), rho.data(), E.data(), nu.data(), &one, L, c);
  return c[1];
}

std::vector<truth::Layer> RandomLayers(std::mt19937& random, double damp) {
  std::uniform_real_distribution<double> u(0.0, 1.0);
  std::vector<truth::Layer> layers(1 + static_cast<std::size_t>(6.0 * u(random)));
  double v = 100.0 + 200.0 * u(random);
  for (truth::Layer& l : layers) {
    l = {1.0 + 5.0 * u(random), v, 1.8 + 0.3 * u(random), 0.2 + 0.2 * u(random),
         damp >= 0.0 ? damp : 0.005 + 0.04 * u(random)};
    v *= 0.9 + 0.8 * u(random);
  }
  layers.back().h = 1000.0;
  return layers;
}

Matrices MatricesOf(const Site& site, double wavelength, double freq) {
  PointLoadWork work;
  Matrices m;
  if (!FS_PreMesh(site.in, work, wavelength)) return m;
  const double omega = 2.0 * 3.14159265358979323846 * freq;
  ThinLayerMatrices& w = work.matrices;
  FormBoundary(w.M_d.data(), w.M_o.data(), w.G_d.data(), w.G_o.data(), w.B1.data(), w.A_d.data(),
               w.D_d.data(), w.D_o.data(), omega * omega, w.N, 1, w.Gstar, w.VsStar, w.VpStar);
  m = {w.N, w.A_d, w.A_o, w.B1, w.B2, w.D_d, w.D_o};
  return m;
}

Matrices RigidBase(int n, double thickness, double Vs, double rho, double nu, double damp, double freq) {
  const int N = 2 * n;
  const double G = rho * Vs * Vs;
  const std::vector<double> t(n + 1, thickness), g(n + 1, G), lambda(n + 1, 2.0 * nu * G / (1.0 - 2.0 * nu)),
      d(n + 1, damp), r(n + 1, rho);
  std::vector<double> M_d(N + 3), M_o(N + 3);
  std::vector<dcomplex> G_d(N + 3), G_o(N + 3);
  Matrices m;
  m.N = N;
  for (auto* v : {&m.A_d, &m.A_o, &m.B1, &m.B2, &m.D_d, &m.D_o}) v->assign(N + 3, {});
  FS_Boupro(M_d.data(), M_o.data(), G_d.data(), G_o.data(), m.B1.data(), m.B2.data(), m.A_d.data(),
            m.A_o.data(), t.data(), g.data(), lambda.data(), d.data(), r.data(), n, N, 0);
  const double omega = 2.0 * 3.14159265358979323846 * freq;
  FormBoundary(M_d.data(), M_o.data(), G_d.data(), G_o.data(), m.B1.data(), m.A_d.data(), m.D_d.data(),
               m.D_o.data(), omega * omega, N, 0, {}, {}, {});
  return m;
}

plain::Pencil PencilOf(const Matrices& m) {
  plain::Pencil p(m.N);
  for (int i = 1; i <= m.N; ++i) {
    const auto c = [](dcomplex z) { return plain::Complex(z.re, z.im); };
    p.A_d[i] = c(m.A_d[i]);
    p.A_o[i] = c(m.A_o[i]);
    p.B1[i] = c(m.B1[i]);
    p.B2[i] = c(m.B2[i]);
    p.D_d[i] = c(m.D_d[i]);
    p.D_o[i] = c(m.D_o[i]);
  }
  return p;
}

ModeTable ModesOf(const Matrices& m, ModeWork& work) {
  ModeTable t;
  t.k.assign(m.N + 1, {});
  t.Phi.assign(static_cast<std::size_t>(m.N) * m.N + 1, {});
  FS_Raylgh(m.A_d.data(), m.A_o.data(), m.B1.data(), m.B2.data(), m.D_d.data(), m.D_o.data(), t.k.data(),
            t.Phi.data(), m.N, work, m.N, t.ok);
  return t;
}

}  // namespace sondera::test
