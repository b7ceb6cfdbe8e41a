// result_files.cpp - see result_files.h.
#include "run/result_files.h"

#include <cstdlib>

#include "run/receiver_setups.h"
#include "run/report_file.h"
#include "run/result_entries.h"
#include "run/run_clock.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

double Ratio(double value, double by) {
  return by > 0.0 ? value / by : 0.0;
}

double At(const OffsetVector<double>& v, int i) {
  return i >= v.lo() && i <= v.hi() ? v[i] : 0.0;
}

// --- Global curve ---

void PlaneWaveRows(const Run& run, ReportFile& file, const OffsetVector<double>& velocity) {
  file.Put("wavelength  freq(obs)   vel(obs)  freq(cal) vel(cal)   \n");
  for (int i = 1; i <= run.observations.nDispPoints; ++i) {
    const double wavelength = run.observations.runLambda[i], observed = run.observations.runVel[i],
                 computed = velocity[i];
    file.Printf("%11.5lf %11.5lf %11.5lf ", wavelength, Ratio(observed, wavelength), observed);
    file.Printf("%11.5lf %11.5lf", Ratio(computed, wavelength), computed);
    file.Put("\n");
  }
}

void PointLoadRows(const Run& run, ReportFile& file, const OffsetVector<double>& velocity) {
  file.Put("frequency wavel(obs)   vel(obs)  ");
  for (int k = 1; k <= run.receivers.nRecSetupsUsed; ++k) file.Put("wavel(cal) vel(cal)   ");
  file.Put("\n");
  for (int i = 1; i <= run.observations.nDispPoints; ++i) {
    const double frequency = run.observations.runFreq[i], observed = run.observations.runVel[i];
    file.Printf("%11.5lf %11.5lf %11.5lf ", frequency, Ratio(observed, frequency), observed);
    for (int k = 1; k <= run.receivers.nRecSetupsUsed; ++k) {
      const double computed = FS_CheckRecNo(run.receivers, run.observations.nDispPoints, i,
                                            run.receivers.recSetupList[k], velocity);
      file.Printf("%11.5lf %11.5lf", Ratio(computed, frequency), computed);
    }
    file.Put("\n");
  }
}

// --- Array curves ---

/// A table with the frequency in front: two values for each curve, of its row.
template <class Pair>
void FrequencyBlock(const Observations& observations, ReportFile& file, const ObsCurve& o,
                    const char* curveHead, Pair&& pairOfRow) {
  file.Put("      freq. ");
  for (int c = 1; c <= o.nCurves; ++c) file.Put(curveHead);
  file.Put("\n");
  for (int p = 1; p <= o.nFreq; ++p) {
    file.Printf("%11.5lf ", o.freq[p]);
    for (int c = 1; c <= o.nCurves; ++c) {
      const int row = observations.iArrayIndex(c, p);
      if (row <= 0) {
        file.Put(kNoVelocities);
        continue;
      }
      const auto [observed, computed] = pairOfRow(row);
      file.Printf("%11.5lf %11.5lf ", observed, computed);
    }
    file.Put("\n");
  }
}

void WavelengthBlock(const Observations& observations, ReportFile& file, const ObsCurve& o,
                     const OffsetVector<double>& velocity) {
  for (int c = 1; c <= o.nCurves; ++c) file.Put(" waveL(obs)   vel(obs)  waveL(calc)   vel(calc)   ");
  file.Put("\n");
  for (int p = 1; p <= o.nFreq; ++p) {
    for (int c = 1; c <= o.nCurves; ++c) {
      const int row = observations.iArrayIndex(c, p);
      if (row <= 0) {
        file.Put(kNoWavelengths);
        continue;
      }
      const double frequency = observations.runFreq[row], observed = observations.runVel[row],
                   computed = At(velocity, row);
      file.Printf("%11.5lf %11.5lf %11.5lf %11.5lf   ", Ratio(observed, frequency), observed,
                  Ratio(computed, frequency), computed);
    }
    file.Put("\n");
  }
}

void ArrayBlocks(const Run& run, ReportFile& file, const ObsCurve& o, const OffsetVector<double>& velocity,
                 const OffsetVector<double>& amplitude) {
  struct Two {
    double observed, computed;
  };
  FrequencyBlock(run.observations, file, o, "   vel(obs)    vel(cal) ", [&](int row) {
    return Two{run.observations.runVel[row], At(velocity, row)};
  });
  file.Put("\n\n");
  WavelengthBlock(run.observations, file, o, velocity);
  file.Put("\n\n");
  FrequencyBlock(run.observations, file, o, "   Amp(obs)    Amp(cal) ", [&](int row) {
    return Two{run.observations.runAmp[row] / run.course.ampScale, At(amplitude, row) / run.course.ampScale};
  });
}

/// Derived values are written as 0: a reader derives them again.
struct ForwardModelRow {
  double H, Vp, Vs, density, nu, damping;
};

ForwardModelRow ForwardModelOf(const LayeredGround& ground, int l) {
  const bool poissonGiven = ground.iPoissonGiven[l] == 1;
  return {ground.layerH[l],
          poissonGiven ? 0.0 : ground.layerVp[l],
          ground.layerVs[l],
          ground.iDensityDerived[l] == 1 ? 0.0 : ground.layerRho[l],
          poissonGiven ? ground.layerNu[l] : 0.0,
          ground.layerDamp[l]};
}

}  // namespace

void FS_SaveDspCurve(Run& run, int iteration, const OffsetVector<double>& velocity,
                     const OffsetVector<double>& amplitude, double rmsVel, double rmsAmp,
                     Listener& listener) {
  ReportFile file(run.switches, ".fdp");
  file.Put(IterationHead(run.course, run.switches, iteration, rmsVel, rmsAmp));
  if (RowsAreGlobal(run)) {
    if (std::abs(run.switches.iAnalysis) == 2) {
      PlaneWaveRows(run, file, velocity);
    } else {
      PointLoadRows(run, file, velocity);
    }
  } else {
    for (const ObsCurve& o : run.observations.obsCurves) ArrayBlocks(run, file, o, velocity, amplitude);
    file.Put("\n\n");
  }
  file.Append(listener);
  FS_ReportTime(run.course, 1);
}

std::string ModelTableRow(int index, int i, double firstLimit, double secondLimit) {
  const InvRecord& r = RecordOfIndex(index);
  const int e = EntryOfIndex(index);
  return FormatText("%11.3lf  %11.3lf %12.3lf%12.3lf%12.3lf%12.3lf %9.3lf %11.3lf %11.3lf\n", r.depth(e, i),
                    r.H(e, i), r.Vp(e, i), r.Vs(e, i), firstLimit, secondLimit, r.density(e, i), r.nu(e, i),
                    r.damping(e, i));
}

void FS_SaveModelPar(const Run& run, int iteration, double rmsVel, double rmsAmp, Listener& listener) {
  const InvRecord& r = RecordOfIndex(iteration);
  const int entry = EntryOfIndex(iteration);
  ReportFile file(run.switches, ".fmp");
  file.Put(IterationHead(run.course, run.switches, iteration, rmsVel, rmsAmp));
  file.Put(
      "Layer No.    Depth       Thick.        Cp           Cs      Cs(Lower)   Cs(Upper)     Rho          Nu "
      "      damping\n");
  file.Put(
      "--------- ----------- ----------- ----------- ----------- ----------- ----------- ----------- "
      "----------- -----------\n");
  for (int i = 0; entry <= r.rms.hi() && i < r.nLayers; ++i) {
    const double Vs = r.Vs(entry, i), band = 2.0 * PosteriorDeviation(iteration, i);
    file.Printf("%5ld  ", static_cast<long>(i + 1));
    file.Put(ModelTableRow(iteration, i, Vs - band, Vs + band));
  }
  file.Put("\n");
  file.Append(listener);
}

void FS_SaveProfile(const Run& run, int iteration, double rmsVel, double rmsAmp, Listener& listener) {
  ReportFile file(run.switches, ".pfl");
  file.Put(IterationHead(run.course, run.switches, iteration, rmsVel, rmsAmp));
  file.Put("Velocity  Depth\n");
  double top = 0.0;
  for (int l = 1; l < run.ground.nLayersCur; ++l) {
    const double bottom = top + run.ground.layerH[l];
    file.Printf("%12.5lf %12.5lf\n", run.ground.layerVs[l], top);
    file.Printf("%12.5lf %12.5lf\n", run.ground.layerVs[l], bottom);
    top = bottom;
  }
  if (run.ground.nLayersCur > 0)
    file.Printf("%12.5lf %12.5lf\n", run.ground.layerVs[run.ground.nLayersCur], top);
  file.Put("\n");
  file.Append(listener);
}

void FS_SaveSMPfile(Run& run, int iteration, double rmsVel, double rmsAmp, Listener& listener) {
  ReportFile file(run.switches, ".fsp");
  file.Put(IterationHead(run.course, run.switches, iteration, rmsVel, rmsAmp));
  for (int l = 1; l <= run.ground.nLayersCur; ++l) {
    const ForwardModelRow m = ForwardModelOf(run.ground, l);
    file.Printf("%14.5lf %14.5lf %14.5lf %14.5lf %14.5lf %14.5lf\n", m.H, m.Vp, m.Vs, m.density, m.nu,
                m.damping);
  }
  file.Put("\n");
  file.Append(listener);
  FS_ReportTime(run.course, 1);
}

}  // namespace sondera
