// windows_module.cpp - see windows_module.h.
#include "app/windows_module.h"

#include <dlfcn.h>
#include <sys/auxv.h>

#include <bit>
#include <filesystem>
#include <system_error>
#include <vector>

namespace sondera {
namespace {

namespace fs = std::filesystem;

/// Without /proc, as in a bare system folder, the name by which the program was started.
fs::path ProgramFile() {
  std::error_code failed;
  const fs::path file = fs::read_symlink("/proc/self/exe", failed);
  return failed ? fs::canonical(std::bit_cast<const char*>(getauxval(AT_EXECFN)), failed) : file;
}

std::vector<fs::path> PlacesOfTheModule() {
  const fs::path folder = ProgramFile().parent_path();
  return {folder / SONDERA_WINDOWS_FILE, folder / SONDERA_WINDOWS_FOLDER / SONDERA_WINDOWS_FILE};
}

}  // namespace

std::string OpenWindows() {
  void* module = nullptr;
  std::string reason = "the file of the windows, " SONDERA_WINDOWS_FILE ", is not there";
  for (const fs::path& file : PlacesOfTheModule()) {
    std::error_code failed;
    if (module || !fs::exists(file, failed)) continue;
    module = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!module) reason = std::string("the windows cannot be loaded: ") + dlerror();
  }
  if (!module) return reason;
  const auto install = reinterpret_cast<bool (*)()>(dlsym(module, "SonderaInstallWindows"));
  if (!install) return "the file of the windows belongs to another version of the program";
  return install() ? "" : "there is no display to show windows on";
}

}  // namespace sondera
