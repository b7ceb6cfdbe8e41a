// Holds the include lines of src/ against the floors of the house: nothing runs back up, no two files include
// each other in a circle, Qt is seen in gui/ only, and only main knows gui.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kSource = fs::path(SONDERA_SOURCE_DIR) / "src";

struct SourceFile {
  std::vector<std::string> own;     // includes in quotes: paths below src/
  std::vector<std::string> system;  // includes in angle brackets
};

/// Path below src/ -> its include lines. Header and source of one stem stand on the same floor.
const std::map<std::string, SourceFile>& Sources() {
  static const std::map<std::string, SourceFile> sources = [] {
    std::map<std::string, SourceFile> found;
    for (const auto& entry : fs::recursive_directory_iterator(kSource)) {
      const std::string ext = entry.path().extension();
      if (ext != ".h" && ext != ".cpp" && ext != ".inc") continue;
      SourceFile& file = found[fs::relative(entry.path(), kSource).generic_string()];
      std::ifstream in(entry.path());
      for (std::string line; std::getline(in, line);) {
        if (line.rfind("#include ", 0) != 0 || line.size() < 12) continue;
        const char close = line[9] == '"' ? '"' : '>';
        const std::string name = line.substr(10, line.find(close, 10) - 10);
        (close == '"' ? file.own : file.system).push_back(name);
      }
    }
    return found;
  }();
  return sources;
}

std::string Stem(const std::string& path) {
  return path.substr(0, path.rfind('.'));
}
std::string Folder(const std::string& path) {
  return path.substr(0, path.find('/'));
}

/// The floors, from the ground up. A folder is a floor; folders of one entry stand beside each other.
const std::vector<std::set<std::string>> kFloors = {{"numeric"},
                                                    {"runtime"},
                                                    {"plot_ps", "gui"},
                                                    {"records"},
                                                    {"signal", "forward"},
                                                    {"run"},
                                                    {"inversion"},
                                                    {"project", "acquisition"},
                                                    {"plot", "figure", "report", "report_pdf"},
                                                    {"panels"},
                                                    {"app"}};

/// 1 for the ground floor; 0 for a folder that is on no floor.
int Floor(const std::string& path) {
  for (std::size_t i = 0; i < kFloors.size(); ++i)
    if (kFloors[i].count(Folder(path))) return static_cast<int>(i) + 1;
  return 0;
}

TEST(Architecture, EveryFileStandsOnAFloor) {
  ASSERT_GT(Sources().size(), 20u);
  for (const auto& [path, file] : Sources()) EXPECT_GT(Floor(path), 0) << path;
}

TEST(Architecture, EveryIncludeInQuotesNamesAFileBelowSrc) {
  for (const auto& [path, file] : Sources())
    for (const std::string& name : file.own)
      EXPECT_TRUE(Sources().count(name) || Folder(path) == "gui") << path << " includes \"" << name << "\"";
}

/// Arrows that still run up: computing code that reads panels. The list only gets shorter.
const std::set<std::pair<std::string, std::string>> kStillUpward = {
    {"forward/curve_import.cpp", "run/system_state.h"},
    {"inversion/starting_model.cpp", "panels/fmodeling.h"},
    {"numeric/alloc.cpp", "runtime/dialogs.h"},
    {"numeric/complex_one.cpp", "runtime/process_end.h"},
    {"numeric/nrerror.cpp", "runtime/dialogs.h"},
    {"numeric/svd.cpp", "runtime/process_end.h"},
    {"plot/disp_curv_plot.cpp", "panels/dispcurv.h"},
    {"plot/gabor_plot.cpp", "panels/gaborpnl.h"},
    {"plot/trace_plot.cpp", "panels/sasw_masking.h"},
    {"project/import_record.cpp", "panels/hwsetup.h"},
    {"project/legacy_files.cpp", "panels/hwsetup.h"},
    {"project/modeling_section.cpp", "panels/fmodeling_records.h"},
    {"project/project_file.cpp", "panels/fmodeling_records.h"},
    {"project/setup_section.cpp", "panels/hwsetup.h"},
    {"signal/auto_masking.cpp", "panels/irfsetpnl.h"},
    {"signal/auto_masking.cpp", "panels/sasw_masking.h"},
    {"signal/dispersion.cpp", "panels/sasw_masking.h"},
    {"signal/rep_curves.cpp", "panels/dispcurv.h"}};

TEST(Architecture, NoIncludeRunsBackUp) {
  for (const auto& [path, file] : Sources()) {
    for (const std::string& name : file.own) {
      if (path == "app/main.cpp" || kStillUpward.count({path, name})) continue;  // main may know everything
      EXPECT_LE(Floor(name), Floor(path)) << path << " includes " << name;
    }
  }
}

TEST(Architecture, OnlyMainKnowsTheWindowsAndTheySeeOnlyRuntime) {
  for (const auto& [path, file] : Sources()) {
    for (const std::string& name : file.own) {
      if (Folder(name) == "gui") {
        EXPECT_TRUE(Folder(path) == "gui" || path == "app/main.cpp") << path << " includes " << name;
      }
      if (Folder(path) == "gui" && Sources().count(name)) {
        EXPECT_TRUE(Folder(name) == "gui" || Folder(name) == "runtime") << path << " includes " << name;
      }
    }
  }
}

TEST(Architecture, TheDrawingLibraryStandsOnFilesAlone) {
  const std::set<std::string> files = {"runtime/atomic_writer", "runtime/byte_source", "runtime/file_driver",
                                       "runtime/process_end",   "runtime/terminal",    "runtime/text_format"};
  for (const auto& [path, file] : Sources()) {
    if (Folder(path) != "plot_ps") continue;
    for (const std::string& name : file.own)
      EXPECT_TRUE(Folder(name) == "plot_ps" || files.count(Stem(name))) << path << " includes " << name;
  }
}

TEST(Architecture, QtStaysInGui) {
  for (const auto& [path, file] : Sources()) {
    if (Folder(path) == "gui") continue;
    for (const std::string& name : file.system)
      EXPECT_FALSE((name[0] == 'Q' && name.size() > 1 && std::isupper(static_cast<unsigned char>(name[1]))) ||
                   name.find("qcustomplot") != std::string::npos)
          << path << " includes <" << name << ">";
  }
}

/// Depth-first search over stems (a header and its source count as one file).
bool HasCircle(const std::string& stem, const std::map<std::string, std::set<std::string>>& arrows,
               std::map<std::string, int>& state, std::string& trail) {
  state[stem] = 1;
  const auto found = arrows.find(stem);
  if (found != arrows.end()) {
    for (const std::string& next : found->second) {
      if (state[next] == 2) continue;
      if (state[next] == 1 || HasCircle(next, arrows, state, trail)) {
        trail = stem + " -> " + (trail.empty() ? next : trail);
        return true;
      }
    }
  }
  state[stem] = 2;
  return false;
}

TEST(Architecture, NoTwoFilesIncludeEachOtherInACircle) {
  std::map<std::string, std::set<std::string>> arrows;
  for (const auto& [path, file] : Sources())
    for (const std::string& name : file.own)
      if (Stem(name) != Stem(path)) arrows[Stem(path)].insert(Stem(name));
  std::map<std::string, int> state;
  for (const auto& [stem, to] : arrows) {
    std::string trail;
    if (state[stem] == 0) {
      EXPECT_FALSE(HasCircle(stem, arrows, state, trail)) << trail;
    }
  }
}

}  // namespace
