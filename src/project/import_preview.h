// import_preview.h - what a file of an import looks like before it is read: its first lines, and what its reader makes of
// them. Reads and says; no records, no controls. No state.
#pragma once

#include <string>

namespace sondera {

/// Lines of numbers as import_text.h reads them.
/// @param values    numbers behind the axis value: 1 or 2
/// @param axis      "time" or "frequency"
/// @param axisUnit  "s" or "Hz"
/// @return lines of text, the last one without an end: the name, the first lines, what was understood or the fault
std::string PreviewOfColumns(const std::string& path, int values, const std::string& axis,
                             const std::string& axisUnit);

/// A universal file with a function of the type given (uff58.h); a transfer function may be labelled a cross spectrum.
std::string PreviewOfUff58(const std::string& path, int functionType);

}  // namespace sondera
