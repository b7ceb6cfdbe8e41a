// Finds every writable object of the library in the symbol tables of the object files, and compares it with
// the state header of its folder. A new object at file scope, or a static one in a function, fails until it
// is declared or listed there; the reset of the folder is declared there too.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kSource = fs::path(SONDERA_SOURCE_DIR) / "src";

/// State headers, by folder, and the function that resets the folder's state; "" where nothing is to be reset.
struct StateHeader {
  std::vector<std::string> headers;
  std::string reset;
};
const std::map<std::string, StateHeader> kStateHeaders = {
    {"acquisition", {{"acquisition/acquisition_state.h"}, "ResetAcquisitionState"}},
    {"inversion", {{"inversion/inversion_state.h"}, "ResetInversionState"}},
    {"panels", {{"panels/panels_state.h"}, "ResetPanelsState"}},
    {"plot_ps", {{"plot_ps/state.h"}, ""}},
    {"records", {{"records/records_state.h"}, "ResetRecordsState"}},
    {"report", {{"report/graph_state.h"}, "ResetGraphState"}},
    {"run", {{"run/run_state.h", "run/sweep_state.h"}, "ResetRunState"}},
    {"runtime", {{"runtime/runtime_state.h"}, "ResetRuntimeState"}},
    {"signal", {{"signal/signal_state.h"}, "ResetSignalState"}}};

using ObjectsByFile = std::map<std::string, std::vector<std::string>>;

/// Objects of the process, not of a session: what is installed once at the start, boards that are open, and caches.
const ObjectsByFile kOfTheProcess = {
    {"acquisition/alsa_driver.cpp", {"alsa"}},     {"acquisition/daq_driver.cpp", {"installed"}},
    {"acquisition/process_driver.cpp", {"board"}}, {"app/console.cpp", {"console"}},
    {"app/run_report.cpp", {"reportOptions"}},     {"app/script/session_log.cpp", {"sessionLog"}},
    {"app/script/words.cpp", {"names"}},           {"numeric/analysis.cpp", {"fftPlanCache"}},
    {"numeric/nrerror.cpp", {"kernelPopup"}},      {"numeric/process_end.cpp", {"lastStep"}}};

bool Lists(const ObjectsByFile& objects, const std::string& path, const std::string& name) {
  const auto found = objects.find(path);
  return found != objects.end() &&
         std::find(found->second.begin(), found->second.end(), name) != found->second.end();
}

std::string TextOf(const fs::path& path) {
  std::ifstream in(path);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// Last name of a demangled symbol: "sondera::(anonymous namespace)::store" gives "store".
std::string LastName(std::string symbol) {
  static const std::regex abi(R"(\[abi:\w+\])");
  symbol = std::regex_replace(symbol, abi, "");
  const std::size_t colon = symbol.rfind("::");
  return colon == std::string::npos ? symbol : symbol.substr(colon + 2);
}

/// Whether a source declares this name as a constant: const, and not a pointer that could be changed.
bool IsConstant(const std::string& source, const std::string& name) {
  return std::regex_search(source, std::regex("\\b(const|constexpr)\\b[^;={}()*]*\\b" + name + "\\b"));
}

/// Whether the text of a state header declares the object, or lists it with its file.
bool IsDeclared(const std::string& header, const std::string& file, const std::string& name) {
  return std::regex_search(header, std::regex("\\bextern [^;]*\\b" + name + "\\b")) ||
         std::regex_search(header, std::regex("//   " + file + " +([^\\n]*[, ])?" + name + "\\b"));
}

struct Object {
  std::string path;  // of the source, below src/
  std::string name;
};

/// Writable objects of the library, by its object files. Sections with relocations that the loader makes read-only
/// hold constants.
std::vector<Object> ChangingObjects(const fs::path& objects) {
  std::string command = "nm -C -f sysv --defined-only";
  for (const auto& entry : fs::recursive_directory_iterator(objects)) {
    fs::path source = fs::relative(entry.path(), objects);
    source.replace_extension();  // "app/main.cpp.o" -> "app/main.cpp"
    if (entry.path().extension() == ".o" && fs::exists(kSource / source))
      command += " '" + entry.path().string() + "'";
  }
  std::vector<Object> found;
  FILE* pipe = popen((command + " 2>/dev/null").c_str(), "r");
  if (!pipe) return found;
  const std::string begin = "Symbols from ", top = objects.string() + "/";
  std::string line, path;
  const auto take = [&] {
    if (line.rfind(begin, 0) == 0) {
      const std::size_t at = line.find(top);
      path = line.substr(at + top.size());
      path = path.substr(0, path.rfind(".o"));
      return;
    }
    std::vector<std::string> fields;
    std::stringstream in(line);
    for (std::string field; std::getline(in, field, '|');) fields.push_back(Trimmed(field));
    static const std::regex writable(R"(\.(bss|data|tbss|tdata)(\..*)?)");
    if (fields.size() < 7 || fields[0].rfind("sondera::", 0) != 0 || !std::regex_match(fields[6], writable) ||
        fields[6].rfind(".data.rel.ro", 0) == 0)
      return;
    const std::string name = LastName(fields[0]);
    if (!IsConstant(TextOf(kSource / path), name)) found.push_back({path, name});
  };
  for (int c = 0; (c = std::fgetc(pipe)) != EOF;) {
    if (c != '\n') {
      line += static_cast<char>(c);
      continue;
    }
    take();
    line.clear();
  }
  pclose(pipe);
  return found;
}

/// The object files of the library beside this program.
fs::path ObjectFolder() {
  return fs::read_symlink("/proc/self/exe").parent_path().parent_path() / "CMakeFiles/sondera_core.dir/src";
}

TEST(State, TheSearchFindsAnObjectAndLeavesConstantsOut) {
  EXPECT_TRUE(IsConstant("static const std::string none;", "none"));
  EXPECT_TRUE(IsConstant("const std::vector<Stroke> kUp = {", "kUp"));
  EXPECT_FALSE(IsConstant("const DaqDriver* installed = &daqNone;", "installed"));
  EXPECT_FALSE(IsConstant("void f(const T& x) { state = x; }\nState state;", "state"));
  EXPECT_TRUE(IsDeclared("extern Session session;", "session.cpp", "session"));
  EXPECT_TRUE(IsDeclared("//   events.cpp  state, interruptFlag\n", "events.cpp", "interruptFlag"));
  EXPECT_FALSE(IsDeclared("//   events.cpp  state\n", "dialogs.cpp", "state"));
  EXPECT_EQ(LastName("sondera::FileInRow[abi:cxx11](sondera::ImportRequest const&, int)::none"), "none");
}

TEST(State, EveryObjectThatChangesIsInTheStateHeaderOfItsFolder) {
  if (!fs::exists(ObjectFolder())) GTEST_SKIP() << "the object files are not beside this program";
  const std::vector<Object> objects = ChangingObjects(ObjectFolder());
  ASSERT_GT(objects.size(), 10u) << "the symbol tables could not be read";
  for (const Object& object : objects) {
    if (Lists(kOfTheProcess, object.path, object.name)) continue;
    const auto entry = kStateHeaders.find(object.path.substr(0, object.path.find('/')));
    const std::string file = fs::path(object.path).filename();
    bool declared = false;
    if (entry != kStateHeaders.end())
      for (const std::string& header : entry->second.headers)
        declared = declared || IsDeclared(TextOf(kSource / header), file, object.name);
    EXPECT_TRUE(declared) << object.path << ": " << object.name << " is in no state header of its folder";
  }
}

TEST(State, EveryFolderWithStateIsResetByTheStartOfASession) {
  const std::string start = TextOf(kSource / "app/startup.cpp");
  for (const auto& [folder, state] : kStateHeaders) {
    if (state.reset.empty() || !fs::exists(kSource / state.headers.front())) continue;
    bool declared = false;
    for (const std::string& header : state.headers)
      declared = declared || TextOf(kSource / header).find("void " + state.reset + "()") != std::string::npos;
    EXPECT_TRUE(declared) << folder;
    EXPECT_NE(start.find(state.reset + "();"), std::string::npos) << folder;
  }
}

}  // namespace
