// loop.h - the event loop of the windows, and the polls of long runs.
#pragma once

namespace sondera {

/// Shows the main window and its panels as in the store, runs until QuitLoop, and closes them.
int RunLoop();
void QuitLoop(int result);

/// Processes events, at most every 15 ms. While a run holds a lock it processes all of them, and updates the
/// views; without a lock no input of a person. Nothing happens inside another poll, while a window is being
/// painted or laid out, and before the loop runs.
void Poll();

void ShowWaitCursor(bool on);

/// Held by a handler of paint or resize events: polls do nothing meanwhile.
class NoPolls {
 public:
  NoPolls();
  ~NoPolls();
  NoPolls(const NoPolls&) = delete;
  NoPolls& operator=(const NoPolls&) = delete;
};

}  // namespace sondera
