// text_helpers.cpp - see text_helpers.h.
#include "project/text_helpers.h"

#include "runtime/paths.h"
#include "runtime/text_reader.h"

namespace sondera {

std::string PlaceFileExtName(std::string_view name, std::string_view ext) {
  return std::string(name.substr(0, name.rfind('.'))) + "." + std::string(ext);
}

std::string ExtractFName(std::string_view path) {
  return FileNameOf(path.substr(0, path.find('.')));
}

void ExtractPathFName(std::string_view path, std::string& dir, std::string& name) {
  const std::string cut(path.substr(0, path.find('.')));
  dir = DirectoryOf(cut);
  name = FileNameOf(cut);
}

std::string ExtractMeasID(std::string_view name) {
  return std::string(Tokenizer(name, "[]").Next().value_or(std::string_view()));
}

}  // namespace sondera
