// words.cpp - reading a line by the table. See words.h; the texts made from the table are in words_help.cpp.
#include "app/script/words.h"

#include <algorithm>
#include <cctype>
#include <deque>
#include <iterator>
#include <optional>
#include <unordered_map>
#include <utility>

#include "app/script/control_values.h"
#include "app/script/fault.h"
#include "app/script/names.h"
#include "app/script/values.h"
#include "runtime/text_format.h"

namespace sondera::script {
namespace {

constexpr std::string_view kControlName = "CONTROL";

/// Forms by their word: the first, and the one after the last, in AllForms().
using FormRange = std::pair<std::size_t, std::size_t>;
const std::unordered_map<std::string, FormRange>& FormsOfWords() {
  static const std::unordered_map<std::string, FormRange> ranges = [] {
    std::unordered_map<std::string, FormRange> found;
    const std::vector<WordForm>& forms = AllForms();
    for (std::size_t i = 0; i < forms.size(); ++i) {
      auto [at, fresh] = found.try_emplace(std::string(forms[i].word), i, i + 1);
      if (!fresh) at->second.second = i + 1;
    }
    return found;
  }();
  return ranges;
}

std::vector<std::string> Choices(std::string_view shown) {
  std::vector<std::string> words;
  for (std::size_t from = 0; from <= shown.size();) {
    const std::size_t bar = std::min(shown.find('|', from), shown.size());
    words.emplace_back(shown.substr(from, bar - from));
    from = bar + 1;
  }
  return words;
}

double TakeNumber(const std::string& text) {
  const auto number = NumberOf(text);
  if (!number) throw Fault(Quoted(text) + " is not a number");
  return *number;
}

void CheckCount(const ArgumentSpec& spec, std::size_t count) {
  if (spec.count != 0 && count != spec.count)
    throw Fault(FormatText("%zu values are wanted, and %zu are given", spec.count, count));
}

BoundValue ReadValue(const ArgumentSpec& spec, const std::string& text, bool quoted) {
  BoundValue value;
  value.text = text;
  switch (spec.kind) {
    case Kind::Text:
      break;
    case Kind::QuotedText:
      if (!quoted) throw Fault("a text in quotation marks is wanted");
      break;
    case Kind::Number:
      value.number = TakeNumber(text);
      break;
    case Kind::Whole: {
      const auto number = WholeOf(text);
      if (!number) throw Fault(Quoted(text) + " is not a whole number");
      value.number = *number;
      break;
    }
    case Kind::Choice: {
      const std::vector<std::string> words = Choices(spec.shown);
      const auto found = std::find(words.begin(), words.end(), text);
      if (found == words.end()) throw Fault(Quoted(text) + " is not one of " + std::string(spec.shown));
      value.number = static_cast<double>(found - words.begin());
      break;
    }
    case Kind::Numbers:
      for (const std::string& item : ItemsOf(text)) value.numbers.push_back(TakeNumber(item));
      CheckCount(spec, value.numbers.size());
      break;
    case Kind::Texts:
      value.texts = ItemsOf(text);
      CheckCount(spec, value.texts.size());
      break;
    case Kind::Control:
      if (quoted) throw Fault("a name of a control is wanted, without quotation marks");
      value.control = &ControlOfName(text);
      if (!(spec.controls & Bit(value.control->kind)))
        throw Fault(text + " is a " + std::string(KindName(value.control->kind)) +
                    ", which does not fit here");
      break;
    case Kind::Setting:
      CheckValue(*spec.setting, text);
      value.control = spec.setting;
      break;
  }
  return value;
}

/// The numbers of all arguments from one on.
BoundValue ReadRest(const Line& line, std::size_t from) {
  BoundValue value;
  for (std::size_t i = from; i < line.fixed.size(); ++i)
    for (const std::string& item : ItemsOf(line.fixed[i].value)) value.numbers.push_back(TakeNumber(item));
  return value;
}

std::string ShownName(const ArgumentSpec& spec) {
  return std::string(spec.kind == Kind::Control ? spec.shown : spec.name);
}

/// How far a form matched, and why no further.
struct Misfit {
  std::size_t fitted = 0;
  std::string reason;
  bool value = false;  ///< an argument has the right place, but an impossible value
};

/// Fixed arguments of a form. The reason for the first that does not fit, if one does not.
template <class Add>
std::optional<Misfit> ReadFixed(const WordForm& form, const Line& line, Add add) {
  std::size_t i = 0;
  for (const ArgumentSpec& spec : form.fixed) {
    if (i == line.fixed.size()) {
      if (spec.optional || spec.rest) break;
      return Misfit{i, ShownName(spec) + " is missing"};
    }
    try {
      add(spec, spec.rest ? ReadRest(line, i) : ReadValue(spec, line.fixed[i].value, line.fixed[i].quoted));
      if (spec.rest) i = line.fixed.size() - 1;
    } catch (const Fault& fault) {
      return Misfit{i,
                    spec.kind == Kind::Choice || spec.kind == Kind::Control
                        ? fault.reason
                        : ShownName(spec) + ": " + fault.reason,
                    true};
    }
    ++i;
  }
  if (i < line.fixed.size()) return Misfit{i, Quoted(line.fixed[i].value) + " is too much"};
  return std::nullopt;
}

template <class Add>
std::optional<Misfit> ReadNamed(const WordForm& form, const Line& line, Add add) {
  std::size_t fitted = line.fixed.size();
  for (const NamedArgument& argument : line.named) {
    const auto spec = std::find_if(form.named.begin(), form.named.end(),
                                   [&](const ArgumentSpec& s) { return s.name == argument.name; });
    if (spec == form.named.end()) {
      std::vector<std::string> names;
      for (const ArgumentSpec& s : form.named) names.push_back(std::string(s.name) + "=");
      return Misfit{fitted, UnknownText("argument", argument.name + "=", names)};
    }
    try {
      add(*spec, ReadValue(*spec, argument.value, true));
    } catch (const Fault& fault) {
      return Misfit{fitted, argument.name + "=: " + fault.reason, true};
    }
    ++fitted;
  }
  for (const ArgumentSpec& spec : form.named) {
    const bool given = std::any_of(line.named.begin(), line.named.end(),
                                   [&](const NamedArgument& a) { return a.name == spec.name; });
    if (!given && !spec.optional) return Misfit{fitted, std::string(spec.name) + "= is missing"};
  }
  return std::nullopt;
}

/// The message when no form fits: the reason of the form that matched furthest, and the usage of the word.
std::string MisfitText(FormRange range, const std::vector<Misfit>& misfits) {
  const auto best = std::max_element(misfits.begin(), misfits.end(),
                                     [](const Misfit& a, const Misfit& b) { return a.fitted < b.fitted; });
  std::string usage;
  int forms = 0;
  for (std::size_t k = 0; k < misfits.size(); ++k) {
    if (misfits[k].fitted != best->fitted) continue;
    usage += (forms == 0 ? "; usage: " : ", or: ") + UsageOf(AllForms()[range.first + k]);
    ++forms;
  }
  return best->value && forms == 1 ? best->reason : best->reason + usage;
}

}  // namespace

std::string Arguments::text(std::string_view name, std::string_view fallback) const {
  const BoundValue* value = find(name);
  return value ? value->text : std::string(fallback);
}
double Arguments::number(std::string_view name, double fallback) const {
  const BoundValue* value = find(name);
  return value ? value->number : fallback;
}
int Arguments::whole(std::string_view name, int fallback) const {
  const BoundValue* value = find(name);
  return value ? static_cast<int>(value->number) : fallback;
}

std::vector<std::pair<ControlId, std::string>> Arguments::settings() const {
  std::vector<std::pair<ControlId, std::string>> found;
  for (const Entry& entry : entries_)
    if (entry.spec->kind == Kind::Setting) found.emplace_back(entry.spec->setting, entry.value.text);
  return found;
}

const BoundValue* Arguments::find(std::string_view name) const {
  for (const Entry& entry : entries_)
    if (entry.spec->name == name) return &entry.value;
  return nullptr;
}

const BoundValue& Arguments::get(std::string_view name) const {
  const BoundValue* value = find(name);
  if (!value) throw Fault(std::string(name) + " is missing");
  return *value;
}

const std::vector<WordForm>& AllForms() {
  static const std::vector<WordForm> forms = [] {
    std::vector<WordForm> all;
    for (auto subject :
         {ProjectForms, MeasureForms, PairForms, CurveForms, SectionForms, EditForms, ModelForms,
          WaveformForms, ControlForms, LookForms, TableForms, FlowForms, FirstDialectForms}) {
      std::vector<WordForm> rows = subject();
      std::move(rows.begin(), rows.end(), std::back_inserter(all));
    }
    return all;
  }();
  return forms;
}

std::vector<std::string> AllWords() {
  std::vector<std::string> words;
  for (const WordForm& form : AllForms())
    if (words.empty() || words.back() != form.word) words.emplace_back(form.word);
  return words;
}

Arguments Bind(const Line& line) {
  const auto found = FormsOfWords().find(line.word);
  if (found == FormsOfWords().end()) throw Fault(UnknownText("word", line.word, AllWords()));
  const FormRange range = found->second;
  std::vector<Misfit> misfits;
  for (std::size_t i = range.first; i < range.second; ++i) {
    const WordForm& form = AllForms()[i];
    Arguments arguments;
    arguments.form = &form;
    arguments.line = line.number;
    const auto add = [&](const ArgumentSpec& spec, BoundValue value) {
      arguments.entries_.push_back({&spec, std::move(value)});
    };
    std::optional<Misfit> misfit = ReadFixed(form, line, add);
    if (!misfit) misfit = ReadNamed(form, line, add);
    if (misfit) {
      misfits.push_back(std::move(*misfit));
      continue;
    }
    if (form.check) form.check(arguments);
    return arguments;
  }
  throw Fault(MisfitText(range, misfits));
}

bool CanBeBound(const std::string& text) {
  try {
    Line line;
    SplitLine(text, line);
    Bind(line);
    return true;
  } catch (const Fault&) {
    return false;
  }
}

namespace {

std::string NumbersText(const std::vector<double>& numbers, char between) {
  std::string text;
  for (const double number : numbers) text += (text.empty() ? "" : std::string(1, between)) + TextOf(number);
  return text;
}

bool IsNumberField(const Control& c) {
  return c.kind == ControlKind::Numeric || c.kind == ControlKind::Int;
}

std::string SettingText(const Control& c, const std::string& text) {
  const auto number = IsNumberField(c) ? NumberOf(text) : std::nullopt;
  return number ? TextOf(*number) : ArgumentText(text);
}

std::string ValueText(const ArgumentSpec& spec, const BoundValue& value) {
  switch (spec.kind) {
    case Kind::QuotedText:
      return Quoted(value.text);
    case Kind::Number:
    case Kind::Whole:
      return TextOf(value.number);
    case Kind::Numbers:
      return NumbersText(value.numbers, spec.rest ? ' ' : ',');
    case Kind::Control:
      return value.text;
    case Kind::Setting:
      return SettingText(*value.control, value.text);
    default:
      return ArgumentText(value.text);
  }
}

}  // namespace

std::string ArgumentText(const std::string& text) {
  const bool plain = !text.empty() && text.find_first_of(" \t\"=") == std::string::npos;
  return plain ? text : Quoted(text);
}

std::string LineOf(const Arguments& arguments) {
  std::string line(arguments.form->word);
  for (const Arguments::Entry& entry : arguments.entries_) {
    const auto& named = arguments.form->named;
    const bool isNamed =
        !named.empty() && entry.spec >= named.data() && entry.spec < named.data() + named.size();
    const bool isValue = entry.spec->name == "VALUE" && arguments.has(kControlName);
    line += " " + (isNamed ? std::string(entry.spec->name) + "=" : "") +
            (isValue ? SettingText(arguments.control(kControlName), entry.value.text)
                     : ValueText(*entry.spec, entry.value));
  }
  return line;
}

ArgumentSpec Fixed(std::string_view name, Kind kind, std::string_view shown) {
  return {name, kind, shown};
}
ArgumentSpec Named(std::string_view name, Kind kind, std::string_view shown) {
  return {name, kind, shown};
}
ArgumentSpec Optional(ArgumentSpec spec) {
  spec.optional = true;
  return spec;
}
ArgumentSpec Literal(std::string_view word) {
  return {word, Kind::Choice, word};
}
ArgumentSpec ControlArgument(std::string_view shown, unsigned controls) {
  return {kControlName, Kind::Control, shown, false, 0, controls};
}
ArgumentSpec List(std::string_view name, Kind kind, std::string_view shown, std::size_t count) {
  return {name, kind, shown, false, count};
}
ArgumentSpec Flag(std::string_view name) {
  return Optional(Named(name, Kind::Choice, kYesNo));
}

void AddSettingsOf(Panel panel, std::vector<ArgumentSpec>& named) {
  static std::deque<std::string>
      names;  // filled once per form, while the table is made; never read elsewhere
  for (ControlId control : ControlsOf(panel)) {
    if (!HasValue(*control) || control->kind == ControlKind::Label) continue;
    std::string& name = names.emplace_back(control->name);
    for (char& c : name) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    const bool taken =
        std::any_of(named.begin(), named.end(), [&](const ArgumentSpec& s) { return s.name == name; });
    if (!taken) named.push_back({name, Kind::Setting, {}, true, 0, kAnyControl, control});
  }
}

}  // namespace sondera::script
