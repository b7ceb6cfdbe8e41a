// control_reference.h - the reference of all controls, made from the catalogue (runtime/catalogue/).
#pragma once

#include <string>

namespace sondera {

/// Markdown: a section for each panel, with a row for each control. docs/controls.md is this text, and
/// `sondera --help controls` prints it.
std::string ControlReference();

}  // namespace sondera
