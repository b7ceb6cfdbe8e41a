// plain_green_kernels.h - the thin-layer eigenproblem by its plain formulas, one matrix entry at a time.
//
// The fast solver of src/forward/green_kernels is compared with it. Shares no code with it: standard complex
// numbers, row-by-row elimination on a full band, no scaling by powers of two, no elimination from both ends.
#pragma once

#include <complex>
#include <vector>

namespace sondera::plain {

using Complex = std::complex<double>;

/// The pencil D + k B + k^2 A of N = 2n degrees of freedom, by diagonals, indices from 1 (size N + 3).
struct Pencil {
  int N = 0;
  std::vector<Complex> A_d, A_o, B1, B2, D_d, D_o;

  explicit Pencil(int size);
  /// Entry (i, j) of one of the three matrices, 0 outside the band.
  Complex A(int i, int j) const;
  Complex B(int i, int j) const;
  Complex D(int i, int j) const;
};

struct Modes {
  bool ok = true;
  long passes = 0;
  std::vector<Complex> k;                 // 1..N
  std::vector<std::vector<Complex>> phi;  // phi[j][i], both from 1
};

/// All eigenpairs by Rayleigh-quotient iteration with deflated starts.
Modes SolveModes(const Pencil& pencil);

}  // namespace sondera::plain
