// update_dump.cpp - see update_dump.h.
#include "inversion/update_dump.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "run/run_files.h"
#include "run/system_state.h"
#include "runtime/atomic_writer.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

/// Writes complete texts and reports which of them could not be written.
class DumpFiles {
 public:
  explicit DumpFiles(Listener& listener) : listener_(listener) {}

  void Text(const std::string& name, const std::string& text) {
    TextWriter file(name);
    file.Put(text);
    if (!file.Close()) listener_.Tell(OpeningComplaint(name, file.Reason()));
  }
  template <class Element>
  void Matrix(const std::string& name, int rows, int cols, const char* format, Element element) {
    std::string text;
    for (int i = 1; i <= rows; ++i) {
      for (int j = 1; j <= cols; ++j) text += FormatText(format, element(i, j));
      text += "\n";
    }
    Text(name, text);
  }
  void Matrix(const std::string& name, const ColumnMatrix& a) {
    Matrix(name, a.rows(), a.cols(), "%le \t", a);
  }
  void Vector(const std::string& name, const OffsetVector<double>& v) {
    Matrix(name, v.size(), 1, "%lg", [&](int i, int) { return v[i]; });
  }

 private:
  Listener& listener_;
};

template <class Element>
void PrintVector(const char* head, int n, Element element) {
  std::printf("%s", head);
  for (int i = 1; i <= n; ++i) std::printf("%lg\n", element(i));
}

std::string VelocityTable(const Run& run, const OffsetVector<double>& velocity) {
  std::string text = "compvel\tobsvel\n";
  // Cd has the rows of the run; during an update nObsRows is the number of rows in use.
  const int rows =
      run.switches.iUseAmplitude == 1 ? run.observations.Cd.size() / 2 : run.observations.Cd.size();
  for (int i = 1; i <= std::min(rows, velocity.hi()); ++i)
    text += FormatText("%lf\t%lf\n", velocity[i], run.observations.runVel[i]);
  return text;
}

}  // namespace

void DumpUpdate(const Run& run, const OffsetVector<double>& velocity, Listener& listener) {
  DumpFiles files(listener);
  const int rows = run.update.CdActive.size();
  files.Text("compvel_obsvel.dat", VelocityTable(run, velocity));
  files.Matrix("Cm", run.parameters.Cm);
  files.Vector("DeltaVel", run.update.deltaVel);
  files.Matrix("G", run.update.GActive);
  files.Matrix("Hessian", run.update.Hessian);
  files.Matrix("InvH", run.update.InvH);
  files.Matrix("Weight", run.update.Weight);
  files.Matrix("InvCd", run.update.InvCd.size(), run.update.InvCd.size(), "%le \t", run.update.InvCd);
  files.Matrix("Gt_Cdi", run.update.InvCd.size() == rows ? run.update.GActive.cols() : 0, rows, "%le \t",
               [&run](int p, int r) { return run.update.GActive(r, p) * run.update.InvCd.diag(r); });
  files.Matrix("InvCm", run.update.InvCm);
  files.Vector("DeltaModel", run.update.deltaModel);
  files.Matrix(run.switches.baseName + ".sh", run.update.Hessian);

  std::printf("iCurIterNo ... %ld\n", static_cast<long>(run.course.iCurIterNo));
  PrintVector("rModel ... \n", run.parameters.rModel.size(),
              [&run](int i) { return run.parameters.rModel[i]; });
  PrintVector("delta Vel... \n", run.update.deltaVel.size(),
              [&run](int i) { return run.update.deltaVel[i]; });
  PrintVector("Cd ... \n", rows, [&run](int i) { return run.update.CdActive.diag(i); });
  PrintVector("Cm ... \n", run.parameters.Cm.rows(), [&run](int i) { return run.parameters.Cm(i, i); });
  PrintVector("delta rModel ... \n", run.update.deltaModel.size(),
              [&run](int i) { return run.update.deltaModel[i]; });
}

}  // namespace sondera
