// green_kernels.h - surface motion under a disk load on layered ground, by the thin-layer method.
//
// The ground is a stack of thin sublayers with motion linear in depth across each. The wave equation becomes
// the quadratic eigenproblem (D + k B + k^2 A) z = 0 in the horizontal wavenumber k, D = G - omega^2 M; all N
// modes are found, and the displacement is a sum over them. Time factor exp(i omega t): outgoing waves have
// Im k <= 0. Source of the method: thin-layer method with consistent transmitting boundary and paraxial
// half-space (Waas, Lysmer, Kausel).
//
// Numbering: node 1 at the surface; degree of freedom 2j-1 is the horizontal, 2j the vertical motion of node
// j; N = 2n. Matrices are symmetric and stored by diagonals, indices from 1, vectors of N + 2 entries:
//   X_d[i] entry (i, i);  X_o[i] entry (i, i+2);  B1[i] entry (i, i+1);  B2[i] entry (i, i+3);
//   M_d[j], M_o[j] mass of node j and coupling of node j with node j+1.
// The point-load solver calls it. Owns no state; the caller owns the work space and reuses it between calls.
#pragma once

#include <memory>
#include <vector>

#include "numeric/dcomplex.h"

namespace sondera {

/// Work space of FS_Wave and FS_Raylgh. Storage grows to the largest problem seen, and nothing is allocated
/// inside an eigenvalue search.
class ModeWork {
 public:
  ModeWork();
  ~ModeWork();
  ModeWork(ModeWork&&) noexcept;
  ModeWork& operator=(ModeWork&&) noexcept;

  /// Rayleigh-quotient passes of the last search: its cost is passes times N.
  long passes() const;

  bool narrow = false;  ///< use two-lane registers even where wider ones exist; same results, for tests

  struct Storage;
  Storage& storage() { return *storage_; }

 private:
  std::unique_ptr<Storage> storage_;
};

/// The matrices of a mesh by diagonals, see above, with the complex properties of the half-space below.
/// Vectors of N + 3 entries, which grow to the largest problem so far.
struct ThinLayerMatrices {
  int N = 0;  ///< degrees of freedom, two for each node
  std::vector<double> M_d, M_o;
  std::vector<dcomplex> G_d, G_o, B1, B2, A_d, A_o;
  std::vector<dcomplex> D_d, D_o;  ///< of one frequency
  dcomplex Gstar, VsStar, VpStar;  ///< half-space: shear modulus, velocities of S and P waves

  void Size(int degrees);
};

/// Modes of one frequency, 1..N; Phi holds columns of ld rows.
struct ThinLayerModes {
  std::vector<dcomplex> k, Phi;
  int ld = 2;
  ModeWork work;
};

/// FS_Wave with hsFlag 1 on the matrices that FS_Boupro filled: D, the transmitting boundary, all modes.
/// @return whether all modes are good
bool ModesOf(ThinLayerMatrices& m, double omega2, ThinLayerModes& modes);

/// Work space of FS_Green; grows to the largest number of modes so far.
struct GreenWork {
  struct Mode {
    dcomplex phi2, factor;
    double size;
  };
  std::vector<Mode> mode;  ///< 1..nModes
  void Size(int nModes) {
    if (mode.size() < static_cast<std::size_t>(nModes) + 1) mode.resize(static_cast<std::size_t>(nModes) + 1);
  }
};

/// Assembles the matrices of a mesh.
/// @param[out] M_d..A_o   by diagonals as above, all entries overwritten
/// @param[in]  t, G, lambda, damp, rho   sublayer thickness, shear modulus, Lame constant, damping ratio,
/// density; 1..n
/// @param[in]  n, N       nodes, N = 2n
/// @param[in]  hsFlag     1: node n is the surface of the half-space below sublayer n - 1 (its boundary comes
///                        with FS_Wave); 0: sublayer n rests on rigid ground
void FS_Boupro(double* M_d, double* M_o, dcomplex* G_d, dcomplex* G_o, dcomplex* B1, dcomplex* B2,
               dcomplex* A_d, dcomplex* A_o, const double* t, const double* G, const double* lambda,
               const double* damp, const double* rho, int n, int N, int hsFlag);

/// Forms D = G - omega2 M, adds (with hsFlag) the paraxial transmitting boundary of the half-space (complex
/// shear modulus Gstar and wave velocities VsStar, VpStar) at node n, and finds all modes (FS_Raylgh).
/// Kept: the boundary is added to A_d and B1 too, so a second call needs a new FS_Boupro.
/// @param[out] D_d, D_o   vectors of N + 2 entries
/// The other arguments are those of FS_Boupro and FS_Raylgh.
void FS_Wave(dcomplex* k, dcomplex* Phi, int ld, const double* M_d, const double* M_o, const dcomplex* G_d,
             const dcomplex* G_o, dcomplex* B1, const dcomplex* B2, dcomplex* A_d, const dcomplex* A_o,
             dcomplex* D_d, dcomplex* D_o, double omega2, int N, int hsFlag, dcomplex Gstar, dcomplex VsStar,
             dcomplex VpStar, ModeWork& work, int& ok);

/// The part of FS_Wave before the search: D and the boundary.
void FormBoundary(const double* M_d, const double* M_o, const dcomplex* G_d, const dcomplex* G_o,
                  dcomplex* B1, dcomplex* A_d, dcomplex* D_d, dcomplex* D_o, double omega2, int N, int hsFlag,
                  dcomplex Gstar, dcomplex VsStar, dcomplex VpStar);

/// All N eigenpairs of (D + k B + k^2 A) z = 0 with Im k <= 0, by Rayleigh-quotient iteration on the
/// linearised pencil. The modes found so far (and their mirror images -k) are removed from the start vectors.
/// @param[in]  A_d .. D_o   matrices by diagonals; even entries of B2 are 0
/// @param[out] k            1..N
/// @param[out] Phi          columns of ld rows, element (i, mode j) at Phi[(j-1) * ld + i]; ld = N for
///                          whole modes, ld = 2 for the motion of the surface alone
/// @param[out] ok           1 if all N modes converged and are orthogonal to each other, otherwise 0:
///                          then the search ended early and k, Phi are incomplete
/// Normalised so that Phi^T (2 k A + B) Phi = 2 k for the pair as found. At the end the code negates k of a
/// pair with Im k > 0, and the even rows of any other pair. To the pencil both are the same except for the
/// sign of B: the returned pairs belong to D - k B + k^2 A, with Phi^T (2 k A - B) Phi = 2 k.
void FS_Raylgh(const dcomplex* A_d, const dcomplex* A_o, const dcomplex* B1, const dcomplex* B2,
               const dcomplex* D_d, const dcomplex* D_o, dcomplex* k, dcomplex* Phi, int ld, ModeWork& work,
               int N, int& ok);

/// Radial functions of one mode at distance r for a disk of radius r0, Im k <= 0.
/// I1 (vertical motion), I2, I3, I4: integrals of products of Bessel functions in closed form, with one form
/// for r0 < r and one for r <= r0 (the rim belongs to the disk). Finite for every Im k, because the products
/// are formed from scaled functions. k = 0 or r0 = 0 gives no finite number.
void FS_evint(dcomplex& I1, dcomplex& I2, dcomplex& I3, dcomplex& I4, dcomplex k, double r, double r0);

/// Vertical surface displacement at distances x[1..nNodes] for a vertical load of unit total force, spread
/// evenly over a disk of radius r0 (unit: force over modulus times length).
/// @param[in]  k, Phi, ld, nModes   modes of FS_Raylgh; only degree of freedom 2 of each is read
/// @param[out] u                    1..nNodes
void FS_Green(const double* x, int nNodes, const dcomplex* k, const dcomplex* Phi, int ld, double r0,
              int nModes, dcomplex* u, GreenWork& work);

/// Slope of the least-squares line through points i1..i2 of y(x), times (xa - xb). Indices from 1. 0 where
/// the points have no extent in x.
double FS_SmoothPhase(const double* x, const double* y, int i1, int i2, double xa, double xb);

}  // namespace sondera
