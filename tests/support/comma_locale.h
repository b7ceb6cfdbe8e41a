// comma_locale.h - puts the process into a locale whose decimal separator is a comma, as a desktop may.
#pragma once

#include <string>

namespace sondera::test {

/// While it lives, the process runs in a locale with a decimal comma: an installed one, else one compiled
/// into a temporary folder. Available() is false where neither can be had; a test then skips.
class CommaLocale {
 public:
  CommaLocale();
  ~CommaLocale();
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
  bool Available() const { return available_; }

 private:
  std::string before_;
  bool available_ = false;
};

}  // namespace sondera::test
