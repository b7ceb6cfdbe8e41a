// log_line.cpp - see log_line.h.
#include "app/script/log_line.h"

#include <algorithm>

#include "app/script/values.h"
#include "app/script/words.h"
#include "runtime/paths.h"

namespace sondera::script {

std::string RelativePath(const std::string& path) {
  const std::string here = CurrentDirectory() + "/";
  return path.starts_with(here) && path.size() > here.size() ? path.substr(here.size()) : path;
}

std::string PathText(const std::string& path) {
  return ArgumentText(RelativePath(path));
}

std::string LineOfAnswer(const GivenAnswer& answer) {
  switch (answer.kind) {
    case GivenAnswer::Kind::Yes:
      return "answer yes";
    case GivenAnswer::Kind::No:
      return "answer no";
    case GivenAnswer::Kind::Text:
      return "answer text " + Quoted(answer.text);
    case GivenAnswer::Kind::File:
      return "answer file " + PathText(answer.text);
    case GivenAnswer::Kind::Cancel:
      break;
  }
  return "answer cancel";
}

std::size_t CountOf(const GivenAnswers& answers, GivenAnswer::Kind kind) {
  return static_cast<std::size_t>(
      std::count_if(answers.begin(), answers.end(), [kind](const GivenAnswer& a) { return a.kind == kind; }));
}

}  // namespace sondera::script
