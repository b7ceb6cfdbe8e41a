// board_choice.cpp - the table of board drivers.
#include "acquisition/board_choice.h"

#ifdef SONDERA_HAS_ALSA
#include "acquisition/alsa_driver.h"
#endif
#include "acquisition/daq_driver.h"
#include "acquisition/process_driver.h"
#include "acquisition/sim_driver.h"
#include "runtime/terminal.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

struct DriverRow {
  const char* name;
  const char* usage;
  std::string (*install)(std::string_view options);
  std::string (*found)();
};

constexpr DriverRow kDrivers[] = {
    {"none", "none\n",
     [](std::string_view options) {
       if (!options.empty()) return std::string("Board driver none has no options.");
       InstallDaqDriver(&daqNone);
       return std::string();
     },
     [] { return std::string("  no board: the state at the start\n"); }},
    {"sim",
     "sim[:seed=1,channels=4,noise=0.01,hum=0.005,hum_hz=50,blow=0.2,minrate=1,pace=1,\n"
     "     miss=N,overload=N,fail=N]\n",
     InstallSimulatedBoard, SimulatedBoardText},
    {"process", "process:PROGRAM ARGUMENTS\n", InstallProcessBoard, ProcessBoardText},
#ifdef SONDERA_HAS_ALSA
    {"alsa", "alsa[:volts=1,channels=N,bits=N,device=hw:CARD]\n", InstallAlsaBoard, AlsaBoardText},
#endif
};

}  // namespace

std::string ChooseBoard(std::string_view choice) {
  const std::string_view name = choice.substr(0, choice.find(':'));
  const std::string_view options =
      name.size() < choice.size() ? choice.substr(name.size() + 1) : std::string_view();
  for (const DriverRow& row : kDrivers)
    if (name == row.name) return row.install(options);
  std::string names;
  for (const DriverRow& row : kDrivers) names += (names.empty() ? "" : ", ") + std::string(row.name);
  return FormatText("There is no board driver \"%s\"; this build has %s.", VisibleText(name).c_str(),
                    names.c_str());
}

std::string BoardListText() {
  std::string text;
  for (const DriverRow& row : kDrivers) text += row.usage + row.found();
  return text;
}

}  // namespace sondera
