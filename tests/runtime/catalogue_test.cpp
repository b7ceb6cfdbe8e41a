// The catalogue of panels compared with its own sources: the store knows each declared control once, under
// its own name. The headers are read as text, so that a control missing in a list is found.
#include "runtime/controls.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/hwsetup.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/items.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/catalogue/sasw.h"

namespace sondera {
namespace {

namespace fs = std::filesystem;

const fs::path kPanelFolder = fs::path(SONDERA_SOURCE_DIR) / "src" / "runtime" / "catalogue";

std::vector<Panel> AllPanels() {
  std::vector<Panel> panels;
  for (int i = 0; i < kPanelCount; ++i) panels.push_back(static_cast<Panel>(i));
  return panels;
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), [](unsigned char c) { return std::tolower(c); });
  return lower;
}

std::string ReadHeader(Panel p) {
  std::ifstream file(kPanelFolder / (Lower(PanelName(p)) + ".h"));
  std::string text;
  for (std::string word; file >> word;) {  // line breaks of the formatter do not matter
    if (!text.empty() && text.back() != '{' && text.back() != '(') text += ' ';
    text += word;
  }
  return text;
}

/// One declaration as a header states it.
struct Declaration {
  std::string kind;
  std::string constant;
  std::string panel;  ///< empty for menu items, which have no panel argument
  std::string name;
};

/// Removes the identifier at the front of the text and returns it.
std::string TakeWord(std::string_view& text) {
  std::size_t n = 0;
  while (n < text.size() && (std::isalnum(static_cast<unsigned char>(text[n])) || text[n] == '_')) ++n;
  std::string word(text.substr(0, n));
  text.remove_prefix(n);
  return word;
}

/// Removes the text before a mark, and the mark.
std::string TakeUntil(std::string_view& text, std::string_view mark) {
  const std::size_t at = std::min(text.find(mark), text.size());
  std::string before(text.substr(0, at));
  text.remove_prefix(std::min(at + mark.size(), text.size()));
  return before;
}

bool IsControlType(const std::string& type) {
  return type.ends_with("Control") && type != "Control";
}

/// Reads the two forms of a declaration:
///   inline constexpr IntControl NAME{Panel::P, "NAME", ...
///   inline constexpr auto NAME = Hidden(IntControl{Panel::P, "NAME", ...
std::vector<Declaration> DeclarationsIn(std::string_view header) {
  const std::string_view opening = "inline constexpr ";
  std::vector<Declaration> found;
  for (TakeUntil(header, opening); !header.empty(); TakeUntil(header, opening)) {
    std::string_view rest = header;
    std::string type = TakeWord(rest);
    TakeUntil(rest, " ");
    const std::string constant = TakeWord(rest);
    if (type == "auto") {
      TakeUntil(rest, "(");
      type = TakeWord(rest);
    }
    if (!IsControlType(type) || !rest.starts_with("{")) continue;
    std::string_view beforeName = rest;
    const std::string arguments = TakeUntil(beforeName, "\"");
    std::string_view panel = arguments;
    TakeUntil(panel, "Panel::");
    const std::string panelName = TakeWord(panel);
    found.push_back({type.substr(0, type.size() - 7), constant, panelName, TakeUntil(beforeName, "\"")});
  }
  return found;
}

std::string KindName(ControlKind kind) {
  switch (kind) {
    case ControlKind::Numeric:
      return "Numeric";
    case ControlKind::Int:
      return "Int";
    case ControlKind::Text:
      return "Text";
    case ControlKind::Ring:
      return "Ring";
    case ControlKind::RealRing:
      return "RealRing";
    case ControlKind::List:
      return "List";
    case ControlKind::Table:
      return "Table";
    case ControlKind::Graph:
      return "Graph";
    case ControlKind::Button:
      return "Button";
    case ControlKind::Toggle:
      return "Toggle";
    case ControlKind::Label:
      return "Label";
    case ControlKind::Menu:
      return "Menu";
  }
  return "?";
}

TEST(Catalogue, EveryPanelHasAHeaderInItsOwnNamespace) {
  for (Panel p : AllPanels()) {
    const std::string header = ReadHeader(p);
    EXPECT_NE(header.find("namespace sondera::" + Lower(PanelName(p)) + " {"), std::string::npos)
        << PanelName(p);
  }
}

TEST(Catalogue, EveryHeaderOfControlsBelongsToAPanel) {
  std::set<std::string> expected = {"items.h"};
  for (Panel p : AllPanels()) expected.insert(Lower(PanelName(p)) + ".h");
  std::set<std::string> present;
  for (const auto& entry : fs::directory_iterator(kPanelFolder)) {
    if (entry.path().extension() == ".h") present.insert(entry.path().filename().string());
  }
  EXPECT_EQ(present, expected);
}

TEST(Catalogue, EveryDeclaredControlIsListedOnceUnderItsConstantsName) {
  for (Panel p : AllPanels()) {
    const std::vector<Declaration> declared = DeclarationsIn(ReadHeader(p));
    const auto listed = ControlsOf(p);
    ASSERT_FALSE(declared.empty()) << PanelName(p);
    ASSERT_EQ(declared.size(), listed.size()) << PanelName(p);
    for (std::size_t i = 0; i < declared.size(); ++i) {
      const Declaration& d = declared[i];
      EXPECT_EQ(d.constant, d.name) << PanelName(p);
      EXPECT_EQ(d.panel, d.kind == "Menu" ? "" : PanelName(p)) << d.constant;
      EXPECT_EQ(listed[i]->name, d.constant) << PanelName(p);
      EXPECT_EQ(KindName(listed[i]->kind), d.kind) << d.constant;
      EXPECT_EQ(listed[i]->panel, p) << d.constant;
    }
  }
}

TEST(Catalogue, TheReaderOfHeadersMissesNoDeclaration) {
  // Counted a second way: every control begins with its panel; the menu's items have none, but each a hint.
  for (Panel p : AllPanels()) {
    const std::string header = ReadHeader(p);
    const std::string mark = p == Panel::MAINMENU ? ".hint = " : "{Panel::";
    std::size_t count = 0;
    for (auto at = header.find(mark); at != std::string::npos; at = header.find(mark, at + 1)) ++count;
    EXPECT_EQ(count, DeclarationsIn(header).size()) << PanelName(p);
  }
}

TEST(Catalogue, NamesAreUniqueWithinAPanelAndFound) {
  for (Panel p : AllPanels()) {
    std::set<std::string_view> names;
    for (ControlId c : ControlsOf(p)) {
      EXPECT_TRUE(names.insert(c->name).second) << PanelName(p) << " " << c->name;
      EXPECT_EQ(FindControl(p, c->name), c) << PanelName(p) << " " << c->name;
    }
    EXPECT_EQ(FindControl(p, "NO_SUCH_CONTROL"), nullptr);
  }
}

TEST(Catalogue, EveryControlHasACaption) {
  for (Panel p : AllPanels()) {
    for (ControlId c : ControlsOf(p)) EXPECT_FALSE(c->label.empty()) << PanelName(p) << " " << c->name;
  }
}

TEST(Catalogue, FirstIndexOfARingIsAnItemOfIt) {
  for (Panel p : AllPanels()) {
    for (ControlId c : ControlsOf(p)) {
      if (c->kind != ControlKind::Ring && c->kind != ControlKind::RealRing) continue;
      const int last = std::max<int>(static_cast<int>(c->items.size()) - 1, 0);
      EXPECT_GE(c->number, 0) << PanelName(p) << " " << c->name;
      EXPECT_LE(c->number, last) << PanelName(p) << " " << c->name;
    }
  }
}

TEST(Catalogue, ItemsOfARingHaveDistinctLabelsAndValuesThatFitItsKind) {
  for (Panel p : AllPanels()) {
    for (ControlId c : ControlsOf(p)) {
      std::set<std::string_view> labels;
      std::set<double> values;
      for (const ListItem& item : c->items) {
        EXPECT_TRUE(labels.insert(item.label).second) << c->name << " " << item.label;
        EXPECT_TRUE(values.insert(item.value).second) << c->name << " " << item.value;
        if (c->kind != ControlKind::RealRing) {
          EXPECT_EQ(item.value, static_cast<int>(item.value)) << c->name;
        }
      }
    }
  }
}

TEST(Catalogue, EveryControlHasAHintOfOneSentence) {
  for (Panel p : AllPanels()) {
    for (ControlId c : ControlsOf(p)) {
      const std::string hint(c->facts.hint);
      const std::string where = std::string(PanelName(p)) + "." + std::string(c->name);
      EXPECT_GE(hint.size(), 10u) << where;
      EXPECT_TRUE(hint.ends_with(".")) << where << ": " << hint;
      EXPECT_EQ(hint.find('\n'), std::string::npos) << where;
      EXPECT_EQ(hint.find(". "), std::string::npos) << where << " has two sentences: " << hint;
      EXPECT_TRUE(std::isupper(static_cast<unsigned char>(hint[0])) || !std::isalpha(hint[0])) << where;
      EXPECT_NE(hint, c->label) << where;
    }
  }
}

TEST(Catalogue, ANumberWithAUnitOrARangeHasItInItsHint) {
  for (Panel p : AllPanels()) {
    for (ControlId c : ControlsOf(p)) {
      const Facts& f = c->facts;
      const std::string where = std::string(PanelName(p)) + "." + std::string(c->name);
      EXPECT_LT(f.min, f.max) << where;
      if (c->kind == ControlKind::Numeric || c->kind == ControlKind::Int) {
        EXPECT_GE(c->number, f.min) << where << " starts outside of its range";
        EXPECT_LE(c->number, f.max) << where << " starts outside of its range";
      }
      if (f.unit == "Hz" || f.unit == "s" || f.unit == "V" || f.unit == "mV" || f.unit == "%") {
        EXPECT_NE(f.hint.find(f.unit), std::string_view::npos) << where;
      }
    }
  }
}

TEST(Catalogue, RolesFitTheirKinds) {
  const auto roles = [](ControlKind kind) -> std::set<Role> {
    switch (kind) {
      case ControlKind::Int:
        return {Role::Plain, Role::ReadOut, Role::Color};
      case ControlKind::Numeric:
        return {Role::Plain, Role::ReadOut};
      case ControlKind::Text:
        return {Role::Plain, Role::ReadOut, Role::TextBox};
      case ControlKind::Toggle:
        return {Role::Plain, Role::Lamp, Role::Latch};
      default:
        return {Role::Plain};
    }
  };
  std::map<Role, int> count;
  for (Panel p : AllPanels()) {
    for (ControlId c : ControlsOf(p)) {
      EXPECT_TRUE(roles(c->kind).count(c->facts.role)) << PanelName(p) << "." << c->name;
      ++count[c->facts.role];
    }
  }
  EXPECT_EQ(count[Role::Color], 8) << "four of each colour scale";
  EXPECT_EQ(count[Role::Lamp], 1);
  EXPECT_EQ(count[Role::Latch], 1);
  EXPECT_EQ(count[Role::TextBox], 7) << "results 2, result box, measuring, waveform, two imports";
}

TEST(Catalogue, SpokenNamesAreUniqueWithinAWindow) {
  std::set<std::pair<Panel, std::string>> names;
  for (Panel p : AllPanels()) {
    for (ControlId c : ControlsOf(p)) {
      if (c->kind == ControlKind::Label) continue;  // its text is what is spoken
      const std::string name = SpokenName(*c);
      EXPECT_FALSE(name.empty()) << PanelName(p) << "." << c->name;
      EXPECT_TRUE(names.insert({WindowOf(p), name}).second)
          << PanelName(p) << "." << c->name << " is called " << name << " like another";
    }
  }
}

TEST(Catalogue, SpokenNamesSayWhatACaptionAloneDoesNot) {
  EXPECT_EQ(SpokenName(loadtxdata::FILEOPEN_CH2), "File of row 3, browse");
  EXPECT_EQ(SpokenName(fmodeling::UPDATE_PROFILE4), "Apply All, Density");
  EXPECT_EQ(SpokenName(mainmenu::LOAD_TWO_CHNL_DATA), "File, Import, ASCII Format Data");
  EXPECT_EQ(SpokenName(mainmenu::NEW_MEASUREMENT), "File, New");
  EXPECT_EQ(SpokenName(inversion::NITER), "No. of Iterations") << "dashes, colons and blanks are for the eye";
}

TEST(Catalogue, TablesHaveColumnTitles) {
  for (Panel p : AllPanels()) {
    for (ControlId c : ControlsOf(p)) {
      if (c->kind != ControlKind::Table) continue;
      EXPECT_FALSE(c->columns.empty()) << c->name;
      EXPECT_GT(c->rows, 0) << c->name;
    }
  }
}

TEST(Catalogue, EveryPanelHasANameAndATitle) {
  std::set<std::string_view> names;
  for (Panel p : AllPanels()) {
    EXPECT_TRUE(names.insert(PanelName(p)).second);
    EXPECT_FALSE(DefaultPanelTitle(p).empty()) << PanelName(p);
  }
  EXPECT_EQ(PanelName(Panel::DSP_MSCALE), "DSP_MSCALE");
  EXPECT_EQ(DefaultPanelTitle(Panel::DEVPANEL), "DAQ Boards Installed ... ");
}

TEST(Catalogue, OnlyTheMainWindowAndTabPagesStartShown) {
  std::set<std::string_view> shown;
  for (Panel p : AllPanels()) {
    if (PanelStartsShown(p)) shown.insert(PanelName(p));
  }
  const std::set<std::string_view> expected = {"PANEL",  "MAINMENU", "MEASPANEL", "SASW",
                                               "EXDTHD", "DISPCURV", "HWSETUP",   "MEASSETUP"};
  EXPECT_EQ(shown, expected);
}

// What a fresh store answers through the typed calls.
class CatalogueDefaults : public testing::Test {
 protected:
  void SetUp() override { ResetControls(); }
};

TEST_F(CatalogueDefaults, DispersionStartsOnTheEnhancedPhaseWithItsBoxOn) {
  EXPECT_EQ(GetCtrlVal(sasw::DISPCURV_OPTION), 1);
  EXPECT_EQ(GetCtrlVal(sasw::PHASE_ENHANCED), 1);
}

TEST_F(CatalogueDefaults, TraceAShowsThePhaseAndTraceBTheRecord) {
  EXPECT_EQ(GetCtrlVal(sasw::DISPATYPE), 3);
  EXPECT_EQ(GetCtrlVal(sasw::DISPBTYPE), 0);
  EXPECT_EQ(GetNumListItems(sasw::DISPATYPE), 11);
  EXPECT_EQ(GetLabelFromIndex(sasw::DISPATYPE, 10), "Gabor Spectrum");
}

TEST_F(CatalogueDefaults, LengthUnitIsTheMeterOnBothPanels) {
  EXPECT_EQ(GetCtrlVal(meassetup::LENGTHUNIT), 1.0);
  EXPECT_EQ(GetCtrlVal(loadtxdata::LENGTHUNIT), 1.0);
  EXPECT_TRUE(SetCtrlVal(meassetup::LENGTHUNIT, 0.3048));
  EXPECT_EQ(GetLabelFromIndex(meassetup::LENGTHUNIT, GetCtrlIndex(meassetup::LENGTHUNIT)), "ft");
}

TEST_F(CatalogueDefaults, ImportStartsOnTransferFunctionsWithoutASource) {
  EXPECT_EQ(GetCtrlVal(loadtxdata::DATATYPE), 1);
  EXPECT_EQ(GetCtrlVal(loadtxdata::SRCINSTRUMENT), 0);
  EXPECT_EQ(GetCtrlVal(loadtxdata::NCHANS), 0);
  EXPECT_EQ(GetCtrlVal(loadtxdata::SITECAT), 0);
  EXPECT_EQ(GetCtrlVal(loadtxdata::WLENGTHFILTER), 0.25);
  EXPECT_FALSE(IsVisible(loadtxdata::FNAMESRC));
  EXPECT_TRUE(IsVisible(loadtxdata::LOC_SRC));
}

TEST_F(CatalogueDefaults, HardwareStartsWithTwoChannelsAndTheFirstAsTrigger) {
  EXPECT_EQ(GetCtrlVal(hwsetup::NCHANNELS1), 2);
  EXPECT_EQ(GetCtrlVal(hwsetup::NCHANNELS4), 0);
  EXPECT_EQ(GetCtrlVal(hwsetup::NCHANNELS5), 0);
  EXPECT_EQ(GetCtrlVal(hwsetup::FREQLINES), 1);
  EXPECT_EQ(GetCtrlIndex(hwsetup::INPUTRANGE), -1);
  EXPECT_EQ(GetCtrlIndex(hwsetup::INPUTCHNLLIST), -1);
  EXPECT_TRUE(SetCtrlVal(hwsetup::NCHANNELS5, -1));
  EXPECT_EQ(GetCtrlIndex(hwsetup::NCHANNELS5), 0);
}

TEST_F(CatalogueDefaults, EvenSpacingHidesTheLocationOfOneReceiver) {
  EXPECT_EQ(GetCtrlVal(meassetup::RSPACING), 1);
  EXPECT_TRUE(IsVisible(meassetup::EVENSPACING));
  EXPECT_FALSE(IsVisible(meassetup::CHNLLOC));
  EXPECT_FALSE(IsVisible(meassetup::NCHANNELS3));
  EXPECT_FALSE(IsVisible(meassetup::CHNLLOCLABEL));
}

TEST_F(CatalogueDefaults, RepresentativeCurvesStartWithTheRatioInForce) {
  EXPECT_EQ(GetCtrlVal(cdisppnl::AVGDOMAIN), 1);
  EXPECT_EQ(GetCtrlVal(cdisppnl::AVG_LINLOG), 1);
  EXPECT_EQ(GetCtrlVal(cdisppnl::GLOBAL_INCRATIO), 1.07);
  EXPECT_EQ(GetCtrlVal(cdisppnl::GDISP_TAKEALL), 0);
  EXPECT_EQ(GetCtrlVal(cdisppnl::ADISP_TAKEALL), 0);
}

TEST_F(CatalogueDefaults, ForwardModelStartsAsArrayCurvesIn3D) {
  EXPECT_EQ(GetCtrlVal(fmodeling::ANALYSISTYPE), 3);
  EXPECT_EQ(GetCtrlVal(fmodeling::GLOBAL_ARRAY), 2);
  EXPECT_EQ(GetNumTableRows(fmodeling::SOILPROFILE), 10);
  EXPECT_EQ(GetNumTableColumns(fmodeling::SOILPROFILE), 6);
  EXPECT_EQ(GetNumTableRows(fmodeling::SOILPROFILE_DFLT), 1);
  EXPECT_FALSE(IsVisible(fmodeling::XMIN));
}

TEST_F(CatalogueDefaults, InversionStartsWithTheGivenModelAndDimsTheOtherFactors) {
  EXPECT_EQ(GetCtrlVal(inversion::MODELPARM), 1);
  EXPECT_EQ(GetCtrlVal(inversion::CD_COV), 0);
  EXPECT_EQ(GetCtrlVal(inversion::CM_COV), 0);
  EXPECT_EQ(GetCtrlVal(inversion::UPDATERHONU), 1);
  for (const ToggleControl* option : {&inversion::STEPCONTROL, &inversion::DATADEVIATION,
                                      &inversion::HUBERWEIGHTS, &inversion::SEVERALSTARTS})
    EXPECT_EQ(GetCtrlVal(*option), 0) << option->name;
  EXPECT_EQ(GetLabelFromIndex(inversion::INV_SMP, 0), "Given Model P.");
  EXPECT_TRUE(IsDimmed(inversion::UF_VPH));
  EXPECT_TRUE(IsDimmed(inversion::UF_VS_REL));
  EXPECT_FALSE(IsDimmed(inversion::UF_VS));
}

TEST_F(CatalogueDefaults, MenuTextsKeepTheirBlanks) {
  EXPECT_EQ(mainmenu::NEW_MEASUREMENT.label, "New ");
  EXPECT_EQ(mainmenu::NEW_MEASUREMENT.text, "File");
  EXPECT_EQ(mainmenu::IRF_SETUP.label, "IR Filteration");
  EXPECT_EQ(mainmenu::DETERMINE_SMP.label, "Determine Starting Model Parm.");
}

TEST_F(CatalogueDefaults, EveryRingWithItemsSelectsItsDeclaredOne) {
  for (Panel p : AllPanels()) {
    for (ControlId c : ControlsOf(p)) {
      if (c->kind != ControlKind::Ring && c->kind != ControlKind::RealRing) continue;
      EXPECT_EQ(items::Index(*c), c->items.empty() ? -1 : static_cast<int>(c->number)) << c->name;
    }
  }
}

TEST_F(CatalogueDefaults, TitlesAndVisibilityOfPanelsReachTheStore) {
  for (Panel p : AllPanels()) {
    EXPECT_EQ(GetPanelTitle(p), DefaultPanelTitle(p)) << PanelName(p);
    EXPECT_EQ(IsPanelShown(p), PanelStartsShown(p)) << PanelName(p);
  }
}

}  // namespace
}  // namespace sondera
