// plain_envelope.h - the envelope of a filtered spectrum in its plain form: the spectrum A continued to a
// real signal, B = jA likewise, one inverse transform of each, and the root of the sum of squares. Tests
// compare the library with it, and the benchmark its time. It is in the header, so that the benchmark needs
// no source of the tests.
#pragma once

#include <cmath>
#include <vector>

#include "numeric/analysis.h"

namespace sondera::plain {

/// Work arrays of N elements; every call writes all of them.
struct EnvelopeArrays {
  explicit EnvelopeArrays(int N) : table(CreateFFTTable(N)), A(N), B(N), outA(N), outB(N), cxEnv(N), env(N) {}
  FFTTable table;
  std::vector<dcomplex> A, B, outA, outB, cxEnv;
  std::vector<double> env;
};

inline void CalcEnvelope(const std::vector<double>& filter, const double* re, const double* im, int N,
                         EnvelopeArrays& w) {
  for (int i = 0; i < N; ++i) w.A[i] = w.B[i] = w.outA[i] = w.outB[i] = {0.0, 0.0};
  for (int i = 0; i <= N / 2 - 1; ++i) {
    w.A[i] = {re[i] * filter[i], im[i] * filter[i]};
    w.B[i] = {-w.A[i].im, w.A[i].re};
    if (i == 0) continue;  // its mirror would lie beyond the end
    w.A[N - i] = {w.A[i].re, -w.A[i].im};
    w.B[N - i] = {w.B[i].re, -w.B[i].im};
  }
  w.A[0] = w.A[N / 2] = w.B[0] = w.B[N / 2] = {0.0, 0.0};
  CxInvFFTEx(w.A.data(), w.outA.data(), w.table);
  CxInvFFTEx(w.B.data(), w.outB.data(), w.table);
  for (int i = 0; i < N; ++i) {
    if (std::isnan(w.outA[i].re) || std::isnan(w.outB[i].re)) {
      w.env[i] = 0.0;
      w.cxEnv[i] = {0.0, 0.0};
      continue;
    }
    const double p = N * w.outA[i].re / 2, q = N * w.outB[i].re / 2;
    w.cxEnv[i] = {p, q};
    w.env[i] = std::sqrt(p * p + q * q);
  }
}

}  // namespace sondera::plain
