// words_flow.cpp - the words for the next lines: answer, onerror, halt.
#include "app/script/fault.h"
#include "app/script/run.h"
#include "runtime/paths.h"

namespace sondera::script {
namespace {

void AnswerWord(Run& run, const Arguments& a) {
  constexpr Answer::Kind kKinds[] = {Answer::Kind::Yes, Answer::Kind::No, Answer::Kind::Cancel};
  run.dialogs().layOut({kKinds[a.choice("ANSWER")], {}});
}

void AnswerText(Run& run, const Arguments& a) {
  run.dialogs().layOut({Answer::Kind::Text, a.text("TEXT")});
}

void AnswerFile(Run& run, const Arguments& a) {
  run.dialogs().layOut({Answer::Kind::File, JoinUnlessAbsolute(CurrentDirectory(), a.text("PATH"))});
}

void OnError(Run& run, const Arguments& a) {
  run.continueOnError(a.choice("WHAT") == 0);
}

void CheckHalt(const Arguments& a) {
  if (a.whole("after") < 1) throw Fault("after=: polls count from 1");
}

void Halt(Run& run, const Arguments& a) {
  run.haltAfter(a.whole("after"));
}

}  // namespace

std::vector<WordForm> FlowForms() {
  constexpr auto kSteers = WordForm::Role::Steers;
  return {
      {"answer",
       {Fixed("ANSWER", Kind::Choice, "yes|no|cancel")},
       {},
       "Prepares the answer to a question of the next line that acts. Several answers are used in their "
       "order; an unused answer is an error.",
       AnswerWord,
       nullptr,
       kSteers},
      {"answer",
       {Literal("text"), Fixed("TEXT", Kind::QuotedText, "\"...\"")},
       {},
       "The same for a dialog that asks for a text.",
       AnswerText,
       nullptr,
       kSteers},
      {"answer",
       {Literal("file"), Fixed("PATH", Kind::Text)},
       {},
       "The same for a file dialog.",
       AnswerFile,
       nullptr,
       kSteers},
      {"onerror",
       {Fixed("WHAT", Kind::Choice, "continue|stop")},
       {},
       "After continue, a line that fails is reported and counted, and the script continues.",
       OnError,
       nullptr,
       kSteers},
      {"halt",
       {},
       {Named("after", Kind::Whole)},
       "Presses Halt at the N-th poll of the next run, and Stop in a measuring run, as a person would in the "
       "middle of it.",
       Halt,
       CheckHalt,
       kSteers},
  };
}

}  // namespace sondera::script
