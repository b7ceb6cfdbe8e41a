// main.cpp - entry of the program.
#include <string>
#include <vector>

#include "app/command_line.h"

#ifdef SONDERA_HAS_GUI
#include "app/windows_module.h"
#endif

int main(int argc, char** argv) {
  sondera::WindowsOpener windows;
#ifdef SONDERA_HAS_GUI
  windows = sondera::OpenWindows;
#endif
  return sondera::RunProgram(std::vector<std::string>(argv, argv + argc), windows);
}
