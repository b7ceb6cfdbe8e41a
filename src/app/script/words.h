// words.h - the words of the second script dialect: one table for the reading of a line, the help, the
// documentation and the completion of a shell.
//
// A word has one or more forms. A form lists its fixed arguments in order and its named ones, and has a
// function. The rows are in the files words_<subject>.cpp.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/script/line.h"
#include "runtime/controls.h"

namespace sondera::script {

class Run;

enum class Kind {
  Text,
  QuotedText,  ///< only in quotation marks
  Number,
  Whole,
  Choice,   ///< one of the words in `shown`, which are between bars
  Numbers,  ///< numbers between commas
  Texts,    ///< texts between commas
  Control,  ///< PANEL.CONTROL of one of `controls`
  Setting,  ///< a value of the control `setting`
};

/// The kinds of controls that an argument accepts, as bits.
constexpr unsigned Bit(ControlKind kind) {
  return 1u << static_cast<unsigned>(kind);
}
inline constexpr unsigned kAnyControl = ~0u;
inline constexpr unsigned kItemControls =
    Bit(ControlKind::Ring) | Bit(ControlKind::RealRing) | Bit(ControlKind::List);

struct ArgumentSpec {
  std::string_view name;  ///< name in the code of the word; of a named argument the text before "="
  Kind kind = Kind::Text;
  std::string_view shown;  ///< in the usage; empty: the name. Of a Choice its words
  bool optional = false;
  std::size_t count = 0;  ///< of a list: its required number of items; 0 for any number
  unsigned controls = kAnyControl;
  ControlId setting = nullptr;
  bool rest = false;  ///< all remaining fixed arguments; for numbers
};

/// The arguments of a line, found by the names in their ArgumentSpec.
class Arguments;

struct WordForm {
  std::string_view word;
  std::vector<ArgumentSpec> fixed, named;
  std::string_view help;  ///< one sentence or two
  void (*run)(Run& run, const Arguments& arguments) = nullptr;
  void (*check)(const Arguments& arguments) = nullptr;  ///< check beyond the argument list; throws Fault
  enum class Role {
    Acts,    ///< changes the project or the settings; uses the prepared answers
    Files,   ///< opens or saves
    Looks,   ///< prints or tests something
    Steers,  ///< concerns the next lines
  } role = Role::Acts;
};

/// One argument of a line.
struct BoundValue {
  std::string text;
  double number = 0.0;
  std::vector<double> numbers;
  std::vector<std::string> texts;
  ControlId control = nullptr;
};

class Arguments {
 public:
  const WordForm* form = nullptr;
  int line = 0;

  bool has(std::string_view name) const { return find(name) != nullptr; }
  /// Values by name; the argument must be there, or a fallback given.
  const std::string& text(std::string_view name) const { return get(name).text; }
  std::string text(std::string_view name, std::string_view fallback) const;
  double number(std::string_view name) const { return get(name).number; }
  double number(std::string_view name, double fallback) const;
  int whole(std::string_view name) const { return static_cast<int>(get(name).number); }
  int whole(std::string_view name, int fallback) const;
  const std::vector<double>& numbers(std::string_view name) const { return get(name).numbers; }
  const std::vector<std::string>& texts(std::string_view name) const { return get(name).texts; }
  const Control& control(std::string_view name) const { return *get(name).control; }
  ControlId controlOrNull(std::string_view name) const { return has(name) ? get(name).control : nullptr; }
  bool isYes(std::string_view name) const { return has(name) && text(name) == "yes"; }
  /// The settings among the named arguments, in the order of the line, with the text of their values.
  std::vector<std::pair<ControlId, std::string>> settings() const;
  /// Position of a choice among its words, from 0.
  int choice(std::string_view name) const { return static_cast<int>(get(name).number); }

 private:
  friend Arguments Bind(const Line& line);
  friend std::string LineOf(const Arguments& arguments);
  struct Entry {
    const ArgumentSpec* spec;
    BoundValue value;
  };
  const BoundValue* find(std::string_view name) const;
  const BoundValue& get(std::string_view name) const;
  std::vector<Entry> entries_;
};

/// All forms, subject by subject; forms of one word are together.
const std::vector<WordForm>& AllForms();
/// Every word once, in the order of the table.
std::vector<std::string> AllWords();

/// The arguments of a line by the form that fits. Throws Fault.
Arguments Bind(const Line& line);
/// Whether a line is one of the table.
bool CanBeBound(const std::string& line);

/// The line in standard form: numbers in their shortest form, texts quoted where needed.
std::string LineOf(const Arguments& arguments);
/// A text as one argument.
std::string ArgumentText(const std::string& text);

/// "mask FROM TO [jumps=N]".
std::string UsageOf(const WordForm& form);

/// Text of --help script, and of one word; empty for a word that does not exist.
std::string HelpOfWords();
std::string HelpOfWord(std::string_view word);
/// The table as Markdown, as docs/script.md has it.
std::string MarkdownOfWords();
/// A completion for bash: the words of the command line, of --help, and the options, separated by blanks; one
/// with a value ends with "=".
std::string BashCompletion(std::string_view options);

// Rows by subject.
std::vector<WordForm> ProjectForms();
std::vector<WordForm> PairForms();
std::vector<WordForm> CurveForms();
std::vector<WordForm> SectionForms();
std::vector<WordForm> EditForms();
std::vector<WordForm> ModelForms();
std::vector<WordForm> ControlForms();
std::vector<WordForm> LookForms();
std::vector<WordForm> FlowForms();
std::vector<WordForm> FirstDialectForms();
std::vector<WordForm> TableForms();
std::vector<WordForm> MeasureForms();
std::vector<WordForm> WaveformForms();

// Rows that are placed among those of another subject.
WordForm ReadSeg2Form();
WordForm ReadColumnsForm();

// Frequently used arguments.
inline constexpr std::string_view kYesNo = "yes|no";
ArgumentSpec Fixed(std::string_view name, Kind kind, std::string_view shown = {});
ArgumentSpec Named(std::string_view name, Kind kind, std::string_view shown = {});
ArgumentSpec Optional(ArgumentSpec spec);
ArgumentSpec Literal(std::string_view word);
ArgumentSpec ControlArgument(std::string_view shown, unsigned controls = kAnyControl);
ArgumentSpec List(std::string_view name, Kind kind, std::string_view shown, std::size_t count = 0);
/// `name=yes`, optional.
ArgumentSpec Flag(std::string_view name);
/// Every value of a panel as an optional argument under its own name in lower case: NITER is niter=.
void AddSettingsOf(Panel panel, std::vector<ArgumentSpec>& named);

}  // namespace sondera::script
