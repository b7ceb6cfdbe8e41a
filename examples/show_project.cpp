// show_project.cpp - prints the measurements of a project file and the dispersion curves of its pairs.
//   show_project <file.da> [<known curve>]
#include <cstdio>

#include "app/console.h"
#include "app/startup.h"
#include "curve_report.h"
#include "panels/mainmenu_project.h"
#include "project/project_file.h"

int main(int argc, char** argv) {
  using namespace sondera;
  using namespace sondera::example;
  if (argc < 2) {
    std::fputs("show_project <file.da> [<known curve>]\n", stderr);
    return 1;
  }
  InstallConsole({});
  StartSession();
  OpenFileProc(argv[1]);
  if (MeasDB.idList.empty()) return 1;

  std::printf("%s\n", argv[1]);
  for (const IDInfo& id : MeasDB.idList) {
    MeasRecords r;
    GetInfoFromKey(id.key, r);
    if (r.hwPos < 0) continue;
    std::printf("  measurement \"%s\": %d channels, %d lines of %.6g Hz\n", id.MeasID.c_str(),
                r.hwSetup->nChannels, r.hwSetup->nLines, r.hwSetup->deltaF);
  }
  const std::vector<CurvePoint> known = argc > 2 ? ReadCurve(argv[2]) : std::vector<CurvePoint>{};
  PrintTableHead();
  for (const PMeasInfo& pair : MeasDB.pMeasList)
    if (pair.nDispPoints > 0) PrintTableRow(PairLabel(pair), PointsOf(pair), known);
  if (!known.empty()) PrintTableRow("the ground", known, known);
  return 0;
}
