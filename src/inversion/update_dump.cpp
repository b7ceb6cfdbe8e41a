// update_dump.cpp - see update_dump.h.
#include "inversion/update_dump.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "forward/system_state.h"
#include "inversion/run_files.h"
#include "project/session.h"
#include "runtime/atomic_writer.h"
#include "runtime/dialogs.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

/// Writes a whole text; a file that cannot be written is told and left out.
void WriteText(const std::string& name, const std::string& text) {
  TextWriter file(name);
  file.Put(text);
  if (!file.Close()) MessagePopup(session.appTitle, OpeningComplaint(name, file.Reason()));
}

template <class Element>
void WriteMatrix(const std::string& name, int rows, int cols, const char* format, Element element) {
  std::string text;
  for (int i = 1; i <= rows; ++i) {
    for (int j = 1; j <= cols; ++j) text += FormatText(format, element(i, j));
    text += "\n";
  }
  WriteText(name, text);
}

void WriteMatrix(const std::string& name, const ColumnMatrix& a) {
  WriteMatrix(name, a.rows(), a.cols(), "%le \t", a);
}

void WriteVector(const std::string& name, const OffsetVector<double>& v) {
  WriteMatrix(name, v.size(), 1, "%lg", [&](int i, int) { return v[i]; });
}

template <class Element>
void PrintVector(const char* head, int n, Element element) {
  std::printf("%s", head);
  for (int i = 1; i <= n; ++i) std::printf("%lg\n", element(i));
}

void WriteVelocities(const OffsetVector<double>& velocity) {
  std::string text = "compvel\tobsvel\n";
  // Cd has the rows of the run; nObsRows counts those in use while an update is made.
  const int rows = run.iUseAmplitude == 1 ? run.Cd.size() / 2 : run.Cd.size();
  for (int i = 1; i <= std::min(rows, velocity.hi()); ++i)
    text += FormatText("%lf\t%lf\n", velocity[i], run.runVel[i]);
  WriteText("compvel_obsvel.dat", text);
}

}  // namespace

void DumpUpdate(const OffsetVector<double>& velocity) {
  WriteVelocities(velocity);
  const int rows = run.CdActive.size();
  WriteMatrix("Cm", run.Cm);
  WriteVector("DeltaVel", run.deltaVel);
  WriteMatrix("G", run.GActive);
  WriteMatrix("Hessian", run.Hessian);
  WriteMatrix("InvH", run.InvH);
  WriteMatrix("Weight", run.Weight);
  WriteMatrix("InvCd", run.InvCd.size(), run.InvCd.size(), "%le \t", run.InvCd);
  WriteMatrix("Gt_Cdi", run.InvCd.size() == rows ? run.GActive.cols() : 0, rows, "%le \t",
              [](int p, int r) { return run.GActive(r, p) * run.InvCd.diag(r); });
  WriteMatrix("InvCm", run.InvCm);
  WriteVector("DeltaModel", run.deltaModel);
  WriteMatrix(run.baseName + ".sh", run.Hessian);

  std::printf("iCurIterNo ... %ld\n", static_cast<long>(run.iCurIterNo));
  PrintVector("rModel ... \n", run.rModel.size(), [](int i) { return run.rModel[i]; });
  PrintVector("delta Vel... \n", run.deltaVel.size(), [](int i) { return run.deltaVel[i]; });
  PrintVector("Cd ... \n", rows, [](int i) { return run.CdActive.diag(i); });
  PrintVector("Cm ... \n", run.Cm.rows(), [](int i) { return run.Cm(i, i); });
  PrintVector("delta rModel ... \n", run.deltaModel.size(), [](int i) { return run.deltaModel[i]; });
}

}  // namespace sondera
