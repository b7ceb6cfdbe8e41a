// table_choices.cpp - see table_choices.h.
#include "panels/table_choices.h"

#include "panels/entry_lists.h"
#include "run/model_numbers.h"
#include "run/run_state.h"
#include "runtime/catalogue/inversion.h"

namespace sondera {

TableChoices ReadTableChoices(bool extend) {
  TableChoices choices;
  choices.iterations = ReadEntryLists().iterations;
  int count = 0;
  choices.fixedLayers = RetrieveLayerNoFromStr(GetCtrlVal(inversion::CONST_MP_VS), count);
  choices.extend = extend;
  choices.run = &run;
  return choices;
}

}  // namespace sondera
