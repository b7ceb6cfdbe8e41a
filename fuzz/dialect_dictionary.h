// dialect_dictionary.h - the dictionary of a script of the second dialect: all words, arguments and choices of
// the table, and all names of the catalogue. The target writes it when it starts.
#pragma once

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "app/script/names.h"
#include "app/script/words.h"
#include "runtime/text_format.h"

namespace sondera::fuzz {

inline void WriteDictionary(const std::string& path) {
  using namespace sondera;
  std::FILE* file = std::fopen(path.c_str(), "w");
  if (!file) abort();
  const auto put = [&](const std::string& text) { std::fprintf(file, "\"%s\"\n", text.c_str()); };
  const auto putChoices = [&](std::string_view shown) {
    for (std::size_t from = 0; from < shown.size();) {
      const std::size_t bar = std::min(shown.find('|', from), shown.size());
      put(std::string(shown.substr(from, bar - from)));
      from = bar + 1;
    }
  };
  for (const script::WordForm& form : script::AllForms()) {
    put(std::string(form.word) + " ");
    for (const script::ArgumentSpec& spec : form.named) put(" " + std::string(spec.name) + "=");
    for (const auto* arguments : {&form.fixed, &form.named})
      for (const script::ArgumentSpec& spec : *arguments)
        if (spec.kind == script::Kind::Choice) putChoices(spec.shown);
  }
  for (int p = 0; p < kPanelCount; ++p)
    for (ControlId c : ControlsOf(static_cast<Panel>(p))) put(script::NameOf(*c));
  std::fclose(file);
}

/// For LLVMFuzzerInitialize: a dictionary of this process, as the first option.
inline int UseDictionary(int* argc, char*** argv) {
  const std::string dictionary = FormatText("/tmp/dialect_fuzz_%d.dict", static_cast<int>(getpid()));
  WriteDictionary(dictionary);
  static std::string option = "-dict=" + dictionary;
  static std::vector<char*> arguments(*argv, *argv + *argc);
  arguments.insert(arguments.begin() + 1, option.data());
  arguments.push_back(nullptr);
  *argc += 1;
  *argv = arguments.data();
  return 0;
}

}  // namespace sondera::fuzz
