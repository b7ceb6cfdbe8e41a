// words_help.cpp - the texts that are made from the table of words. See words.h.
#include <algorithm>

#include "app/script/values.h"
#include "app/script/words.h"

namespace sondera::script {
namespace {

constexpr std::size_t kHelpColumn = 4;  // help is below its usage, this far indented
constexpr std::size_t kHelpWidth = 100;

std::string ShownFixed(const ArgumentSpec& spec) {
  return std::string(spec.shown.empty() ? spec.name : spec.shown);
}

std::string ShownNamed(const ArgumentSpec& spec) {
  std::string value(spec.shown);
  if (spec.kind == Kind::Choice && spec.optional && spec.shown == kYesNo) value = "yes";
  if (value.empty()) value = spec.kind == Kind::Whole ? "N" : spec.kind == Kind::Number ? "X" : "TEXT";
  return std::string(spec.name) + "=" + value;
}

/// A text in lines of some width, each with blanks before it.
std::string Wrapped(std::string_view text, std::size_t indent, std::size_t width) {
  std::string lines, line;
  const auto flush = [&] {
    if (!line.empty()) lines += std::string(indent, ' ') + line + "\n";
    line.clear();
  };
  for (std::size_t from = 0; from < text.size();) {
    const std::size_t blank = std::min(text.find(' ', from), text.size());
    const std::string_view word = text.substr(from, blank - from);
    if (!line.empty() && indent + line.size() + 1 + word.size() > width) flush();
    line += (line.empty() ? "" : " ") + std::string(word);
    from = blank + 1;
  }
  flush();
  return lines;
}

/// Names of the settings that a form accepts, in one sentence.
std::string SettingsOf(const WordForm& form) {
  std::string list;
  for (const ArgumentSpec& spec : form.named) {
    if (spec.kind != Kind::Setting) continue;
    list += list.empty() ? "Settings: " : ", ";
    list += std::string(spec.name) + "=";
  }
  return list;
}

std::string HelpOfForm(const WordForm& form) {
  return "  " + UsageOf(form) + "\n" + Wrapped(form.help, kHelpColumn, kHelpWidth) +
         Wrapped(SettingsOf(form), kHelpColumn, kHelpWidth);
}

constexpr std::string_view kIntroduction = R"(Scripts of the second dialect begin with the line "*sondera 2".

  sondera run SCRIPT      runs one; - is standard input
  sondera check SCRIPT    reads it and does nothing
  sondera --help WORD     one word

A line is a word with its arguments; blanks separate them, quotation marks hold them together.
Channels and rows count from 1. Brackets mark what may be left out.

)";

}  // namespace

std::string UsageOf(const WordForm& form) {
  std::string usage(form.word);
  const auto add = [&](const std::string& shown, bool optional) {
    usage += optional ? " [" + shown + "]" : " " + shown;
  };
  for (const ArgumentSpec& spec : form.fixed) add(ShownFixed(spec), spec.optional);
  bool settings = false;
  for (const ArgumentSpec& spec : form.named)
    if (spec.kind == Kind::Setting)
      settings = true;
    else
      add(ShownNamed(spec), spec.optional);
  return settings ? usage + " [SETTING=VALUE ...]" : usage;
}

std::string HelpOfWords() {
  std::string help(kIntroduction);
  for (const WordForm& form : AllForms()) help += HelpOfForm(form);
  return help;
}

std::string HelpOfWord(std::string_view word) {
  std::string help;
  for (const WordForm& form : AllForms())
    if (form.word == word) help += HelpOfForm(form);
  return help;
}

std::string MarkdownOfWords() {
  std::string table = "| Words | Meaning |\n|---|---|\n";
  for (const WordForm& form : AllForms())
    table += "| `" + MarkdownCell(UsageOf(form)) + "` | " + MarkdownCell(form.help) + " |\n";
  return table;
}

std::string BashCompletion(std::string_view options) {
  std::string words;
  for (const std::string& word : AllWords()) words += " " + word;
  return R"(# Completion of sondera for bash: source <(sondera --help completion)
_sondera() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]}
  if [ "$before" = --help ]; then
    COMPREPLY=($(compgen -W "script controls completion)" +
         words + R"(" -- "$word"))
  elif [[ $word == -* ]]; then
    COMPREPLY=($(compgen -W ")" +
         std::string(options) + R"(" -- "$word"))
    [[ ${COMPREPLY[0]} == *= ]] && compopt -o nospace 2>/dev/null
  elif [ "$COMP_CWORD" = 1 ]; then
    COMPREPLY=($(compgen -W "run check show plot batch auto export" -- "$word") $(compgen -f -- "$word"))
  elif [ "$before" = auto ]; then
    COMPREPLY=($(compgen -W "new old" -- "$word"))
  else
    COMPREPLY=($(compgen -f -- "$word"))
  fi
  return 0
}
complete -o filenames -F _sondera sondera
)";
}

}  // namespace sondera::script
