// main.cpp - entry of the program. The only file that knows both the logic and the windows.
#include <string>
#include <vector>

#include "app/command_line.h"

int main(int argc, char** argv) {
  return sondera::RunProgram(std::vector<std::string>(argv, argv + argc));
}
