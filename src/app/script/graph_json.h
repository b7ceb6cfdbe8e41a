// graph_json.h - the whole model of a graph as JSON, for tests and other programs.
#pragma once

#include <string>

#include "runtime/graphs.h"

namespace sondera::script {

/// docs/script.md describes the keys. A number that is not finite is null; text that is not UTF-8 is
/// converted.
std::string GraphJson(const GraphModel& graph);

}  // namespace sondera::script
