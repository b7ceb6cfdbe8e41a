// words_edit.cpp - the words for undoing changes: undo, redo.
#include "app/script/fault.h"
#include "app/script/run.h"
#include "app/script/words.h"
#include "panels/undo.h"
#include "runtime/catalogue/mainmenu.h"

namespace sondera::script {
namespace {

void TakeBack(Run& run, const Arguments&) {
  if (UndoText().empty()) throw Fault("there is nothing to undo");
  run.press(mainmenu::UNDO);
}

void DoAgain(Run& run, const Arguments&) {
  if (RedoText().empty()) throw Fault("nothing was undone");
  run.press(mainmenu::REDO);
}

}  // namespace

std::vector<WordForm> EditForms() {
  return {
      {"undo",
       {},
       {},
       "Undoes the latest change of masks, of curves included or excluded, or of the tables of the model. "
       "The latest 50 changes are kept; a load clears them.",
       TakeBack},
      {"redo", {}, {}, "Makes the change again that undo has undone.", DoAgain},
  };
}

}  // namespace sondera::script
