// board_process.h - another program as a board: its start, one request and one reply at a time, its end.
//
// The program is started without a shell, in its own process group; only standard input and output are
// connected. A reply that is late, too long or not of the protocol's form ends it: from then on Dead() has
// the reason, and all its processes have ended.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "acquisition/board_reply.h"

namespace sondera {

/// Words of a command, separated by blanks.
std::vector<std::string> CommandWords(std::string_view command);

class BoardProcess {
 public:
  BoardProcess() = default;
  ~BoardProcess() { End(); }
  BoardProcess(BoardProcess&& other) noexcept { *this = std::move(other); }
  BoardProcess& operator=(BoardProcess&& other) noexcept;

  /// Starts a program; its first word is a path or is searched in PATH. False with a reason.
  bool Start(const std::vector<std::string>& words, std::string& reason);
  bool Running() const { return pid_ > 0; }
  /// Why the program was ended, as a sentence; "" while it works.
  const std::string& Dead() const { return dead_; }

  /// Sends a line (without LF) and reads the reply. False when the board is dead; true for an "err" reply.
  /// @param seconds  additional time for the request itself, beyond the 5 s of every answer
  bool Ask(const std::string& request, BoardReply& reply, double seconds = 0.0);
  /// Reads the samples after a reply directly into their place. False when the board is dead.
  bool TakeSamples(double* samples, std::size_t count);
  /// Ends a board that violates the protocol. `reason` continues "The board program "; always false.
  bool GiveUp(const std::string& reason);

  /// Says "bye" and waits: 2 s, then SIGTERM, 1 s, then SIGKILL. Nothing when no program runs.
  void End();

 private:
  using Clock = std::chrono::steady_clock;

  bool IsQuiet();
  bool Send(const std::string& line, Clock::time_point end);
  bool Receive(Clock::time_point end);
  bool ExitedBy(Clock::time_point end) const;
  void KillAndReap();
  void CloseBoth();

  std::string program_, dead_;
  pid_t pid_ = -1;
  int toBoard_ = -1, fromBoard_ = -1;
  BoardReplyReader reader_;
  std::vector<char> bytes_;  // from the board, not used yet: at most one read's
  std::size_t taken_ = 0;
};

}  // namespace sondera
