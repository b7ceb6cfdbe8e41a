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

/// Records stand below the signal floor though they live in folders of higher ones.
const std::set<std::string> kRecordStems = {"project/session",       "project/measdb",
                                            "project/selection",     "project/measurement_rules",
                                            "forward/model_records", "inversion/inv_records"};

/// The ladder of the fourth floor, from the ground up; a file may include from its own rung or from below.
const std::vector<std::set<std::string>> kLadder = {
    {"forward/system_model", "forward/system_state", "forward/layer_table", "forward/record_growth",
     "forward/run_limits", "forward/run_progress", "forward/column_matrix", "forward/sublayers",
     "forward/cylinder_functions"},
    {"forward/green_kernels"},
    {"forward/plane_wave", "forward/plane_wave_layers", "forward/plane_wave_lanes",
     "forward/plane_wave_lane_body", "forward/point_load"},
    {"forward/synthetic_site"},
    {"forward/site_files"},
    {"inversion/preliminary_profile", "inversion/layer_stack", "inversion/analytic_profile",
     "inversion/empirical_profile"},
    {"inversion/observations"},
    {"forward/sweep"},
    {"inversion/result_files"},
    {"forward/run"},
    {"inversion/starting_model"},
    {"inversion/sensitivity"},
    {"inversion/max_likelihood", "inversion/inversion_run", "inversion/run_history", "inversion/run_advice",
     "inversion/update_bounds", "inversion/truncated_solve", "inversion/update_dump"},
    {"inversion/inv_session", "inversion/inv_entries", "inversion/inv_settings", "inversion/inv_run",
     "inversion/inv_view"},
};

int Floor(const std::string& path) {
  const std::string folder = Folder(path);
  if (folder == "numeric" || folder == "runtime") return 1;
  if (kRecordStems.count(Stem(path)) || folder == "gui" || folder == "plot_ps") return 2;
  if (folder == "signal") return 3;
  if (folder == "forward" || folder == "inversion") return 4;
  if (folder == "project" || folder == "acquisition") return 5;
  if (folder == "plot") return 6;
  if (folder == "app") return 7;
  return 0;
}

int Rung(const std::string& path) {
  for (std::size_t i = 0; i < kLadder.size(); ++i)
    if (kLadder[i].count(Stem(path))) return static_cast<int>(i);
  return -1;
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

TEST(Architecture, NoIncludeRunsBackUp) {
  for (const auto& [path, file] : Sources()) {
    for (const std::string& name : file.own) {
      if (path == "app/main.cpp") continue;  // main may know everything
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

TEST(Architecture, TheLadderOfForwardAndInversionIsClimbedInOrder) {
  for (const auto& [path, file] : Sources()) {
    if (Rung(path) < 0) continue;
    for (const std::string& name : file.own) {
      if (Rung(name) >= 0) {
        EXPECT_LE(Rung(name), Rung(path)) << path << " includes " << name;
      }
    }
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
