// sudden_end.h - an end of the process that nobody asked for: the screen is gone, or the desktop ends the session.
//
// The toolkit ends the process when its connection to the screen breaks. What was not saved is then kept in a file of its
// own (runtime/project_hooks.h, RescueProject), and the next start offers to open it.
#pragma once

namespace sondera {

/// While it lives, a sudden end keeps the project. SIGTERM, SIGHUP and SIGINT are such ends too. Status of the process: 1.
class SuddenEndWatch {
 public:
  SuddenEndWatch();
  ~SuddenEndWatch();
  SuddenEndWatch(const SuddenEndWatch&) = delete;
  SuddenEndWatch& operator=(const SuddenEndWatch&) = delete;
};

/// Asks once whether to open the project that a former sudden end has kept.
void OfferRescuedProject();

}  // namespace sondera
