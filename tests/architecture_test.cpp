// Compares the include lines of src/ with the floors: no file includes one from a higher floor, no two files
// include each other in a cycle, only gui/ uses Qt, and no other folder uses gui.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kSource = fs::path(SONDERA_SOURCE_DIR) / "src";

struct SourceFile {
  std::vector<std::string> own;     // includes in quotes: paths below src/
  std::vector<std::string> system;  // includes in angle brackets
  std::string text;                 // the whole file
};

/// Path below src/ -> its include lines. Header and source of one stem are on the same floor.
const std::map<std::string, SourceFile>& Sources() {
  static const std::map<std::string, SourceFile> sources = [] {
    std::map<std::string, SourceFile> found;
    for (const auto& entry : fs::recursive_directory_iterator(kSource)) {
      const std::string ext = entry.path().extension();
      if (ext != ".h" && ext != ".cpp" && ext != ".inc") continue;
      SourceFile& file = found[fs::relative(entry.path(), kSource).generic_string()];
      std::ifstream in(entry.path());
      for (std::string line; std::getline(in, line);) {
        file.text += line + "\n";
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

/// The floors, from the bottom up. A floor is a list of folders; folders of one entry are on the same floor.
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

/// Files that windows share with figures, so that screen and paper agree.
const std::set<std::string> kSharedWithWindows = {"figure/ticks.h", "figure/palette.h", "figure/symbols.h",
                                                  "figure/graph_lines.h", "figure/graph_notes.h"};

TEST(Architecture, NoIncludeRunsBackUp) {
  for (const auto& [path, file] : Sources()) {
    for (const std::string& name : file.own) {
      if (Folder(path) == "gui" && kSharedWithWindows.count(name)) continue;
      if (path == "app/main.cpp") continue;  // main may include everything
      EXPECT_LE(Floor(name), Floor(path)) << path << " includes " << name;
    }
  }
}

/// Folders that compute or read and write files: they take plain structures and return reasons.
const std::set<std::string> kWithoutPanels = {"numeric", "records",   "signal",  "forward",
                                              "run",     "inversion", "project", "acquisition"};

/// Headers that only code of a panel needs: controls, boxes, events, graphs.
bool IsPanelHeader(const std::string& name) {
  static const std::set<std::string> headers = {"runtime/controls.h", "runtime/dialogs.h", "runtime/events.h",
                                                "runtime/graphs.h"};
  return name.rfind("runtime/catalogue/", 0) == 0 || headers.count(name) > 0;
}

/// The text without comments and without quoted text.
std::string CodeOf(const std::string& text) {
  static const std::regex comment("//[^\n]*"), quoted("\"(\\\\.|[^\"\\\\\n])*\"");
  return std::regex_replace(std::regex_replace(text, comment, ""), quoted, "\"\"");
}

/// First call of a control, a list, a table, a panel or a box; "" without one.
std::string PanelCall(const std::string& text) {
  static const std::regex call(
      "(^|[^.>\\w])((GetCtrl|SetCtrl|GetTable|SetTable)\\w*|GetNumTableRows|SetNumTableRows|InsertListItem|"
      "DeleteListItem|ClearListCtrl|GetNumListItems|GetLabelFromIndex|GetValueFromIndex|FindListItem|"
      "SetVisible|SetDimmed|IsVisible|IsDimmed|DisplayPanel|HidePanel|SetPanelTitle|SetActiveTabPage|Commit|"
      "SendEvent|MessagePopup|ConfirmPopup|PromptPopup|FileSelectPopup|ShowRefusal)\\s*\\(");
  std::smatch found;
  const std::string code = CodeOf(text);
  return std::regex_search(code, found, call) ? found[2].str() : std::string();
}

TEST(Architecture, ThePanelCallCheckSeesCallsAndNothingElse) {
  EXPECT_EQ(PanelCall("  x = GetCtrlVal(sasw::BETA);"), "GetCtrlVal");
  EXPECT_EQ(PanelCall("MessagePopup (title, text);"), "MessagePopup");
  EXPECT_EQ(PanelCall("// GetCtrlVal(sasw::BETA)\nfile.Commit(); f(\"Commit(\");"), "");
}

TEST(Architecture, ComputingCodeKnowsNoPanel) {
  for (const auto& [path, file] : Sources()) {
    if (!kWithoutPanels.count(Folder(path))) continue;
    for (const std::string& name : file.own)
      EXPECT_FALSE(IsPanelHeader(name)) << path << " includes " << name;
    EXPECT_EQ(PanelCall(file.text), "") << path;
  }
}

TEST(Architecture, ComputingCodeTakesThePartsOfARunAndNotThePresentRun) {
  ASSERT_TRUE(Sources().count("run/run_state.h"));
  EXPECT_TRUE(std::regex_search(Sources().at("run/run_state.h").text, std::regex("extern Run run;")));
  for (const auto& [path, file] : Sources()) {
    if (!kWithoutPanels.count(Folder(path)) || Stem(path) == "run/run_state") continue;
    EXPECT_EQ(std::count(file.own.begin(), file.own.end(), "run/run_state.h"), 0) << path;
    EXPECT_FALSE(std::regex_search(CodeOf(file.text), std::regex("extern Run\\b"))) << path;
  }
}

TEST(Architecture, OnlyPanelsAndFrontEndsReadTheCatalogue) {
  const std::set<std::string> may = {"panels", "app", "gui"};
  for (const auto& [path, file] : Sources()) {
    const bool catalogue = path.rfind("runtime/catalogue/", 0) == 0;
    if (catalogue || may.count(Folder(path))) continue;
    for (const std::string& name : file.own)
      EXPECT_FALSE(name.rfind("runtime/catalogue/", 0) == 0) << path << " includes " << name;
  }
}

TEST(Architecture, NoOtherFolderKnowsTheWindowsAndTheySeeOnlyRuntime) {
  for (const auto& [path, file] : Sources()) {
    for (const std::string& name : file.own) {
      if (Folder(name) == "gui") {
        EXPECT_TRUE(Folder(path) == "gui") << path << " includes " << name;
      }
      if (Folder(path) == "gui" && Sources().count(name)) {
        EXPECT_TRUE(Folder(name) == "gui" || Folder(name) == "runtime" || kSharedWithWindows.count(name))
            << path << " includes " << name;
      }
    }
  }
}

TEST(Architecture, FiguresSeeGraphModelsAndFilesAlone) {
  const std::set<std::string> runtime = {"runtime/atomic_writer", "runtime/graphs", "runtime/refusal",
                                         "runtime/text_format", "runtime/utf8"};
  for (const auto& [path, file] : Sources()) {
    if (Folder(path) != "figure") continue;
    for (const std::string& name : file.own)
      EXPECT_TRUE(Folder(name) == "figure" || runtime.count(Stem(name))) << path << " includes " << name;
  }
}

TEST(Architecture, OneFileSeesTheDrawingLibrariesOfPdfAndPng) {
  for (const auto& [path, file] : Sources()) {
    if (path == "figure/canvas_cairo.cpp") continue;
    for (const std::string& name : file.system)
      EXPECT_TRUE(name.find("cairo") == std::string::npos && name.find("pango") == std::string::npos)
          << path << " includes <" << name << ">";
  }
}

TEST(Architecture, TheDrawingLibraryStandsOnFilesAlone) {
  const std::set<std::string> files = {"runtime/atomic_writer", "runtime/byte_source", "runtime/file_driver",
                                       "numeric/process_end",   "runtime/terminal",    "runtime/text_format"};
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

TEST(Architecture, OneFileKnowsThePlotLibrary) {
  std::vector<std::string> files;
  for (const auto& [path, file] : Sources())
    for (const std::string& name : file.system)
      if (name == "qcustomplot.h") files.push_back(path);
  EXPECT_EQ(files, (std::vector<std::string>{"gui/graph_view.cpp"}));
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

/// The developer guide says which files a change touches; when a file moves, its line must change too.
TEST(DeveloperGuide, FilesThatAChangeTouchesExist) {
  std::ifstream in(fs::path(SONDERA_SOURCE_DIR) / "docs/developer.md");
  std::stringstream text;
  text << in.rdbuf();
  const std::string guide = text.str();
  const std::size_t begin = guide.find("## What a change touches"), end = guide.find("\n## ", begin + 1);
  ASSERT_NE(begin, std::string::npos);
  const std::string section = guide.substr(begin, end - begin);
  const std::regex path("`((src|docs)/[^`]*)`");
  int rows = 0, files = 0;
  for (std::sregex_iterator it(section.begin(), section.end(), path), none; it != none; ++it) {
    const std::string name = (*it)[1];
    if (name.find('<') != std::string::npos) continue;  // a name that the change chooses
    ++files;
    EXPECT_TRUE(fs::exists(fs::path(SONDERA_SOURCE_DIR) / name)) << name;
  }
  for (std::size_t at = section.find("\n| "); at != std::string::npos; at = section.find("\n| ", at + 1))
    ++rows;
  EXPECT_GE(rows, 1 + 10);  // the heading and ten changes
  EXPECT_GT(files, 10);
}

// Two types of one name in one namespace are one type to the linker, and whichever file comes first wins.
TEST(Architecture, ANameOfTheNamespaceIsDefinedInOneFile) {
  static const std::regex space(R"(^(inline )?namespace ([\w:]*) ?\{)"), end(R"(^\}  // namespace)"),
      type(R"(^(struct|class|enum class) (\w+)( final)?( : [^;]*)?( )?\{)");
  std::map<std::string, std::string> home;
  for (const auto& [path, file] : Sources()) {
    std::vector<std::string> spaces;
    std::istringstream in(file.text);
    std::smatch found;
    for (std::string line; std::getline(in, line);) {
      if (std::regex_search(line, found, space)) {
        spaces.push_back(found[2]);
      } else if (std::regex_search(line, end)) {
        if (!spaces.empty()) spaces.pop_back();
      } else if (std::regex_search(line, found, type)) {
        std::string name;
        for (const std::string& s : spaces) name += s + "::";
        if (name.find("::::") != std::string::npos || name.starts_with("::")) continue;  // only of this file
        const auto [at, added] = home.emplace(name + found[2].str(), path);
        EXPECT_TRUE(added || at->second == path) << name << found[2] << ": " << at->second << " and " << path;
      }
    }
  }
  EXPECT_GT(home.size(), 100u);
}

}  // namespace
