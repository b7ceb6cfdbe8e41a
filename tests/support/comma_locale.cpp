// comma_locale.cpp - see comma_locale.h.
#include "support/comma_locale.h"

#include <clocale>
#include <cstdlib>
#include <cstring>

#include "support/temp_folder.h"

namespace sondera::test {
namespace {

bool UseCommaLocale(const char* name) {
  return std::setlocale(LC_ALL, name) != nullptr && std::strcmp(std::localeconv()->decimal_point, ",") == 0;
}

bool UseCompiledLocale() {
  const TempFolder folder;
  const std::string make = "localedef -i de_DE -f ISO-8859-1 '" + folder.File("de_DE") + "' >/dev/null 2>&1";
  if (std::system(make.c_str()) != 0) return false;
  ::setenv("LOCPATH", folder.Path().c_str(), 1);
  const bool used = UseCommaLocale("de_DE");  // read here; the files are not needed afterwards
  ::unsetenv("LOCPATH");
  return used;
}

}  // namespace

CommaLocale::CommaLocale() : before_(std::setlocale(LC_ALL, nullptr)) {
  for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "nb_NO.UTF-8"})
    available_ = available_ || UseCommaLocale(name);
  available_ = available_ || UseCompiledLocale();
  if (!available_) std::setlocale(LC_ALL, before_.c_str());
}

CommaLocale::~CommaLocale() {
  std::setlocale(LC_ALL, before_.c_str());
}

}  // namespace sondera::test
