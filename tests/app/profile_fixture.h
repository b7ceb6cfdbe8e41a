// profile_fixture.h - tests that run a script to its end and check the resulting profile.
#pragma once

#include <algorithm>
#include <string>

#include "app/commands.h"
#include "panels/mainmenu_project.h"
#include "project/project_file.h"
#include "records/inv_records.h"
#include "records/session.h"
#include "runtime/events.h"
#include "support/app_fixture.h"

namespace sondera::testing {

class ProfileTest : public AppTest {
 protected:
  /// Runs a script to the end of the program, then opens the project that it saved. @return exit status
  int RunScript(const std::string& text) {
    session.projectFileName = "site.da";
    ProcessScriptText(text);
    const int status = RunUserInterface();
    StartSession();
    OpenFileProc(folder.File("site.da"));
    return status;
  }
  static double Vs(int iteration, int layer) { return InvParam.Vs(iteration, layer); }
  /// Mean Vs by travel time of an iteration between two depths.
  static double MeanVs(int iteration, double from, double to) {
    double time = 0.0, top = 0.0;
    for (int l = 0; l < InvParam.nLayers; ++l) {
      const double bottom = l + 1 < InvParam.nLayers ? top + InvParam.H(iteration, l) : 1e9;
      const double part = std::min(bottom, to) - std::max(top, from);
      if (part > 0.0) time += part / Vs(iteration, l);
      top = bottom;
    }
    return (to - from) / time;
  }
};

}  // namespace sondera::testing
