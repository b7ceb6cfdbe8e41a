// refusal.h - the reason why computing code refused, for the panel to show.
//
// Computing code returns a Refusal and shows nothing; panels/ passes it to ShowRefusal (dialogs.h).
#pragma once

#include <string>
#include <utility>

namespace sondera {

/// Empty: success. Otherwise refused, mostly with a reason; a halted run and a reason that was already shown
/// have none.
class [[nodiscard]] Refusal {
 public:
  Refusal() = default;
  Refusal(std::string reason)
      : refused_(true), reason_(std::move(reason)) {}            // NOLINT: a reason is a refusal
  Refusal(const char* reason) : Refusal(std::string(reason)) {}  // NOLINT
  static Refusal WithoutReason() { return Refusal(std::string()); }
  /// A reason that is shown under its own title.
  static Refusal Titled(std::string title, std::string reason) {
    Refusal refusal(std::move(reason));
    refusal.title_ = std::move(title);
    return refusal;
  }

  explicit operator bool() const { return refused_; }
  const std::string& reason() const { return reason_; }  ///< one or more sentences; "" for none
  const std::string& title() const { return title_; }    ///< "": that of the program

 private:
  bool refused_ = false;
  std::string reason_, title_;
};

}  // namespace sondera
