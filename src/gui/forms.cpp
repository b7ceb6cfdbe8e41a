// forms.cpp - the forms of all panels, from the folder ui/ at build time.
#include <QWidget>
#include <array>

#include "gui/binder.h"
#include "runtime/control.h"

// Forms name our widgets without the namespace.
using namespace sondera;  // NOLINT(google-build-using-namespace)

#include "form_includes.inc"

namespace sondera {
namespace {

struct FormRow {
  Panel panel;
  void (*setUp)(QWidget*);
};

template <class Form>
[[maybe_unused]] void SetUp(QWidget* root) {
  Form().setupUi(root);
}

const FormRow kForms[] = {
#include "form_rows.inc"
};

const FormRow* RowOf(Panel panel) {
  for (const FormRow& row : kForms)
    if (row.panel == panel) return &row;
  return nullptr;
}

}  // namespace

bool HasForm(Panel panel) {
  return RowOf(panel) != nullptr;
}

QWidget* MakeForm(Panel panel, QWidget* parent) {
  const FormRow* row = RowOf(panel);
  if (!row) return nullptr;
  auto* root = new QWidget(parent);
  row->setUp(root);
  return root;
}

}  // namespace sondera
