// Tests of the table of words: every form with its right arguments, and with wrong ones; help, documentation
// and completion against the table.
#include "app/script/words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "app/script/fault.h"
#include "app/script/names.h"
#include "app/script/run.h"
#include "app/script/values.h"

namespace sondera::script {
namespace {

std::string ReasonOf(const std::string& text) {
  Line line;
  try {
    SplitLine(text, line);
    Bind(line);
  } catch (const Fault& fault) {
    return fault.reason;
  }
  return "";
}

/// A control that an argument accepts; preferably one whose callback does not matter here.
std::string ControlFor(const ArgumentSpec& spec) {
  for (int p = 0; p < kPanelCount; ++p)
    for (ControlId c : ControlsOf(static_cast<Panel>(p)))
      if (spec.controls & Bit(c->kind)) return NameOf(*c);
  return "";
}

/// Values that the checks of a word require beyond their kind, by word and argument.
std::string SpecialValue(const WordForm& form, const ArgumentSpec& spec) {
  const std::string key = std::string(form.word) + " " + std::string(spec.name);
  if (key == "curves FILE") {
    const bool foreign = std::any_of(form.named.begin(), form.named.end(),
                                     [](const ArgumentSpec& named) { return named.name == "form"; });
    return foreign ? "curves.csv" : "curves.exd";
  }
  if (key == "write only") return "profile";
  if (key == "report FILE.ps" || key == "report FILE") return "report.pdf";
  if (key == "section FILE") {
    const bool points = form.fixed.front().name == "points";
    return points ? "points.csv" : "section.svg";
  }
  if (key == "figure FILE") return "graph.svg";
  if (key == "measure accept") return "yn";
  if (key == "figure width" || key == "figure height") return "300";
  if (key == "read files") return "a";
  if (key == "read KIND") return "tim";
  if (key == "mask TO") return "2";
  if (key == "window times") return "1,2,3,4";
  if (key == "window velocities") return "4,3,2,1";
  if (key == "select ENTRY" || key == "invert from") return "inv:1";
  if (key == "measure accept") return "y";
  if (key == "axis CONTROL") return "DISPCURV.DISPGRAPH";
  if (key == "axis x" || key == "axis y") return "auto";
  if (key == "condense ratio") return "1.1";
  if (key == "assert within" && spec.count == 2) return "1,2";
  if (key == "start ratios") return "0.3,0.7,3";
  if (key == "preInversion LAYERING") return "2";
  if (key == "preInversion LIST") return "2 1.5 3";
  if (key == "cell COLUMN" || key == "cells COLUMN" || key == "set VALUE") return "1";
  if (key == "cells VALUES") return "1;2";
  return "";
}

std::string ValueFor(const WordForm& form, const ArgumentSpec& spec) {
  if (const std::string special = SpecialValue(form, spec); !special.empty()) return special;
  switch (spec.kind) {
    case Kind::QuotedText:
      return "\"some text\"";
    case Kind::Choice:
      return std::string(spec.shown.substr(0, spec.shown.find('|')));
    case Kind::Control:
      return ControlFor(spec);
    case Kind::Text:
      return "text";
    case Kind::Setting:
      return spec.setting->kind == ControlKind::Text ? "text" : "1";
    case Kind::Texts:
      return "a,b";
    case Kind::Numbers:
    case Kind::Number:
    case Kind::Whole:
      break;
  }
  return "1";
}

/// Arguments that are not allowed with the value that ValueFor gives to another one: geopsy= is for dinver
/// only.
bool GoesWithTheOthers(const WordForm& form, const ArgumentSpec& spec) {
  return !(form.word == "write" && spec.name == "geopsy");
}

/// The form's line with all arguments, up to a number of fixed ones and without one named argument.
std::string LineOf(const WordForm& form, std::size_t fixed, std::string_view without = {},
                   bool optional = true) {
  std::string line(form.word);
  for (std::size_t i = 0; i < std::min(fixed, form.fixed.size()); ++i)
    line += " " + ValueFor(form, form.fixed[i]);
  for (const ArgumentSpec& spec : form.named)
    if (spec.name != without && (optional || !spec.optional) && GoesWithTheOthers(form, spec))
      line += " " + std::string(spec.name) + "=" + ValueFor(form, spec);
  return line;
}

class ScriptWord : public ::testing::TestWithParam<std::size_t> {
 protected:
  const WordForm& form() const { return AllForms()[GetParam()]; }
  /// The fault may be reported for another form of the word.
  bool aloneUnderItsWord() const {
    return std::count_if(AllForms().begin(), AllForms().end(),
                         [&](const WordForm& f) { return f.word == form().word; }) == 1;
  }
};

TEST_P(ScriptWord, TakesWhatItsUsageShows) {
  Line line;
  for (const bool optional : {true, false}) {
    const std::string text = LineOf(form(), form().fixed.size(), {}, optional);
    SplitLine(text, line);
    try {
      EXPECT_EQ(UsageOf(*Bind(line).form), UsageOf(form())) << text;
    } catch (const Fault& fault) {
      ADD_FAILURE() << text << ": " << fault.reason;
    }
  }
}

TEST_P(ScriptWord, RefusesAMissingArgument) {
  std::size_t needed = 0;
  for (const ArgumentSpec& spec : form().fixed) needed += spec.optional || spec.rest ? 0 : 1;
  if (needed > 0) {
    const std::string text = LineOf(form(), needed - 1);
    EXPECT_NE(ReasonOf(text).find(aloneUnderItsWord() ? "is missing; usage: " : "usage: "), std::string::npos)
        << text << " -> " << ReasonOf(text);
  }
  for (const ArgumentSpec& spec : form().named) {
    if (spec.optional) continue;
    const std::string text = LineOf(form(), form().fixed.size(), spec.name);
    EXPECT_NE(ReasonOf(text).find(std::string(spec.name) + "="), std::string::npos) << text;
  }
}

TEST_P(ScriptWord, RefusesASurplusArgument) {
  if (!form().fixed.empty() && form().fixed.back().rest) return;
  std::string text = LineOf(form(), form().fixed.size());
  const std::size_t pairs = text.find('=');
  const std::size_t at = pairs == std::string::npos ? text.size() : text.rfind(' ', pairs);
  text.insert(at, " surplus");
  EXPECT_NE(ReasonOf(text), "") << text;
}

TEST_P(ScriptWord, RefusesAnUnknownNamedArgument) {
  const std::string text = LineOf(form(), form().fixed.size()) + " nosuchname=1";
  EXPECT_NE(ReasonOf(text).find("unknown argument \"nosuchname=\""), std::string::npos)
      << text << " -> " << ReasonOf(text);
}

TEST_P(ScriptWord, HasHelpOfOneOrTwoSentences) {
  EXPECT_TRUE(form().help.ends_with('.')) << form().help;
  EXPECT_NE(form().run, nullptr);
  EXPECT_NE(HelpOfWords().find("  " + UsageOf(form()) + "\n"), std::string::npos);
}

std::string NameOfCase(const ::testing::TestParamInfo<std::size_t>& info) {
  std::string name;
  for (const char c : UsageOf(AllForms()[info.param]))
    if (std::isalnum(static_cast<unsigned char>(c))) name += c;
  return name.substr(0, 40) + "_" + std::to_string(info.param);
}
INSTANTIATE_TEST_SUITE_P(All, ScriptWord, ::testing::Range(std::size_t{0}, AllForms().size()), NameOfCase);

TEST(ScriptWords, FormsOfAWordStandTogether) {
  const std::vector<std::string> words = AllWords();
  EXPECT_EQ(std::set<std::string>(words.begin(), words.end()).size(), words.size());
}

TEST(ScriptWords, AnUnknownWordGetsTheNearestOne) {
  EXPECT_EQ(ReasonOf("maks 1 2"), "unknown word \"maks\"; did you mean \"mask\"?");
  EXPECT_EQ(ReasonOf("Mask 1 2"), "unknown word \"Mask\"; did you mean \"mask\"?");
}

TEST(ScriptWords, WrongKindsNameTheArgument) {
  EXPECT_EQ(ReasonOf("mask update x 1 2"), "HZ: \"x\" is not a number");
  EXPECT_EQ(ReasonOf("pair a 1.5 2"), "REF: \"1.5\" is not a whole number");
  EXPECT_EQ(ReasonOf("pair a 0 2"), "channels count from 1");
  EXPECT_EQ(ReasonOf("phase smoothed"), "\"smoothed\" is not one of original|enhanced|backbone");
  EXPECT_EQ(ReasonOf("window enhanced bandpass times=1,2,3"),
            "times=: 4 values are wanted, and 3 are given; usage: "
            "window enhanced|backbone bandpass|lowpass times=T1,T2,T3,T4, or: window enhanced|backbone "
            "bandpass|lowpass velocities=V1,V2,V3,V4");
  EXPECT_EQ(ReasonOf("window enhanced bandpass times=4,3,2,1"), "times= have to rise from 0 or more");
  EXPECT_EQ(ReasonOf("mask 5 5"), "a mask reaches from 0 Hz or more to a higher frequency");
  EXPECT_EQ(ReasonOf("curves read a.gcd"), "curves are read from .exd");
  EXPECT_EQ(ReasonOf("curves write a.txt"), "curves are written to .exd, .gcd, .icd and .red");
  EXPECT_EQ(ReasonOf("invert from=smp:0"), "\"smp:0\" is not an entry like inv:2 or smp:1");
  EXPECT_EQ(ReasonOf("invert niter=x"), "niter=: INVERSION.NITER takes a whole number, and \"x\" is none");
  EXPECT_EQ(ReasonOf("preInversion 1 0 2 0.5 3 1 2"),
            "the number of layers is 3, and 2 thicknesses follow (up to 400 can)");
  EXPECT_EQ(ReasonOf("export \"a b\" id 1 2 3"),
            "FILE: this word takes no text that is empty or has blanks or commas");
}

TEST(ScriptWords, FilesOfAReadGoWithItsPlaces) {
  const std::string tail = " id=a source=0 files=";
  EXPECT_EQ(ReasonOf("read hyx at=1,2" + tail + "a"), "");
  EXPECT_EQ(ReasonOf("read hyx at=1,2 instrumented=yes" + tail + "a,b"), "");
  EXPECT_EQ(ReasonOf("read tim at=1,2" + tail + "a,b"), "");
  EXPECT_EQ(ReasonOf("read gyx at=1,2" + tail + "a,"), "");  // a cross spectrum may be missing
  EXPECT_EQ(ReasonOf("read gyx at=1,2 instrumented=yes" + tail + "a,b,c,d"), "");
  EXPECT_EQ(ReasonOf("read tim at=1,2" + tail + "a,"), "files= has an empty name");
  EXPECT_EQ(ReasonOf("read tim at=1,2,3,4,5,6,7,8,9" + tail + "a"), "at= takes up to 8 places");
  EXPECT_EQ(ReasonOf("read hyx at=1,2" + tail + "a,b"),
            "2 places take 1 file of this kind, and files= has 2");
}

TEST(ScriptWords, EverySettingOfTheInversionPanelHasAShortName) {
  const std::vector<WordForm>& forms = AllForms();
  const auto invert =
      std::find_if(forms.begin(), forms.end(), [](const WordForm& f) { return f.word == "invert"; });
  ASSERT_NE(invert, forms.end());
  std::set<ControlId> reached;
  for (const ArgumentSpec& spec : invert->named) reached.insert(spec.setting);
  for (ControlId c : ControlsOf(Panel::INVERSION))
    if (c->kind != ControlKind::Button && c->kind != ControlKind::Label) {
      EXPECT_TRUE(reached.count(c)) << c->name;
    }
}

std::string Documentation() {
  std::ifstream file(SONDERA_SOURCE_DIR "/docs/script.md");
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

TEST(ScriptWords, TheDocumentationHasTheTable) {
  EXPECT_NE(Documentation().find(MarkdownOfWords()), std::string::npos)
      << "docs/script.md has to hold this table:\n"
      << MarkdownOfWords();
}

/// Every script of a document: indented lines from the header on.
std::vector<std::string> ScriptsOf(const std::string& name) {
  std::ifstream text(SONDERA_SOURCE_DIR "/docs/" + name);
  std::vector<std::string> scripts;
  bool inScript = false;
  for (std::string line; std::getline(text, line);) {
    if (line == "    *sondera 2") scripts.emplace_back(), inScript = true;
    inScript = inScript && (line.empty() || line.starts_with("    "));
    if (inScript) scripts.back() += (line.empty() ? line : line.substr(4)) + "\n";
  }
  return scripts;
}

TEST(ScriptWords, TheScriptsOfTheDocumentationCanBeRun) {
  for (const char* name : {"script.md", "own-data.md"}) {
    const std::vector<std::string> scripts = ScriptsOf(name);
    ASSERT_FALSE(scripts.empty()) << name;
    for (const std::string& script : scripts) {
      Source source = Source::OfText(script);
      EXPECT_EQ(CheckScript(source, name), 0) << script;
    }
  }
  const std::string site = ScriptsOf("script.md").front();
  EXPECT_GT(std::count(site.begin(), site.end(), '\n'), 30);
}

TEST(ScriptWords, TheExamplesCanBeRun) {
  for (const char* folder : {"six_receivers", "computed_site"}) {
    Source source = Source::OfFile(
        std::filesystem::absolute(std::string(SONDERA_SOURCE_DIR "/examples/") + folder + "/job.txt")
            .string());
    EXPECT_EQ(CheckScript(source, "job.txt"), 0) << folder;
  }
}

TEST(ScriptWords, TheCompletionKnowsEveryWord) {
  for (const std::string& word : AllWords())
    EXPECT_NE(BashCompletion("").find(" " + word), std::string::npos) << word;
}

TEST(ScriptWords, HelpOnAWordShowsAllItsForms) {
  EXPECT_NE(HelpOfWord("mask").find("mask delete HZ"), std::string::npos);
  EXPECT_NE(HelpOfWord("mask").find("mask clear"), std::string::npos);
  EXPECT_EQ(HelpOfWord("nosuchword"), "");
}

}  // namespace
}  // namespace sondera::script
