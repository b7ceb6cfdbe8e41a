// dense_eigen.h - eigenpairs of the thin-layer pencil by dense matrices: the independent method for the mode
// search.
//
// Eigenvalues by the QR method on the companion matrix of the quadratic pencil, vectors by inverse iteration
// with row pivoting. Slow (the cube of twice the order) and without any use of the band.
#pragma once

#include <vector>

#include "forward/plain_green_kernels.h"

namespace sondera::dense {

using plain::Complex;

/// All 2 N eigenvalues of D + k B + k^2 A.
std::vector<Complex> Eigenvalues(const plain::Pencil& pencil);

/// Null vector of D + k B + k^2 A, indices 1..N, normalised so that z^T (2 k A + B) z = 2 k.
std::vector<Complex> Eigenvector(const plain::Pencil& pencil, Complex k);

}  // namespace sondera::dense
