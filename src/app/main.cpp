// main.cpp - entry of the program. The only file that knows both the logic and the windows.
#include <string>
#include <vector>

#include "app/command_line.h"

#ifdef SONDERA_HAS_GUI
#include "gui/windows.h"
#endif

int main(int argc, char** argv) {
  sondera::WindowsOpener windows;
#ifdef SONDERA_HAS_GUI
  windows = sondera::InstallWindows;
#endif
  return sondera::RunProgram(std::vector<std::string>(argv, argv + argc), windows);
}
