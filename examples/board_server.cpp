// board_server.cpp - a board program: answers the board protocol and replays records from text files.
//   board_server <rate> <file>...        in Sondera: --board="process:board_server 2000 rec1.txt rec2.txt"
//
// A file has a row for each sample and a column for each channel, volts, separated by blanks; lines that
// begin with # are comments. All files have the columns of the first. Every "start" reads the next file, and
// after the last one the first again. The records come at the rate of the files: another rate is not granted.
//
// It is a pattern for an adaptor to a vendor's driver: put the vendor's calls into the functions of class
// Board; the rest can stay. It needs only the standard library. docs/board-protocol.md has the protocol.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

/// Thrown by the board, and answered as "err -1 <text>".
struct Refusal : std::runtime_error {
  using std::runtime_error::runtime_error;
};

constexpr const char* kDevice = "Rec1";
constexpr double kRange = 10.0;

using Columns = std::vector<std::vector<double>>;  // [channel][sample], volts

Columns ReadColumns(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw Refusal(path + " cannot be read");
  Columns columns;
  std::size_t row = 0;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == '#' || line == "\r") continue;
    ++row;
    std::istringstream words(line);
    words.imbue(std::locale::classic());
    std::size_t c = 0;
    for (double volts; words >> volts; ++c) {
      if (row == 1) columns.emplace_back();
      if (c < columns.size()) columns[c].push_back(volts);
    }
    if (c == 0 || c != columns.size() || !words.eof())
      throw Refusal(path + ": row " + std::to_string(row) + " is not one number for each column");
  }
  if (columns.empty()) throw Refusal(path + " has no samples");
  return columns;
}

struct Channel {
  std::string physical, virtualName;
  double range = kRange;
  std::size_t column = 0;
};

/// The board. A vendor's adaptor calls the vendor's library in these functions.
class Board {
 public:
  Board(double rate, const std::vector<std::string>& files) : rate_(rate) {
    for (const std::string& file : files) {
      records_.push_back(ReadColumns(file));
      if (records_.back().size() != records_[0].size())
        throw Refusal(file + " has another number of columns than the first file");
    }
  }

  std::string Fact(const std::string& fact) const {
    if (fact == "category") return "14649";
    if (fact == "type") return "Replayed records";
    if (fact == "trigger") return "1";
    if (fact == "maxrate" || fact == "minrate") return RateText();
    if (fact == "ranges") return "-10 10";
    if (fact == "couplings") return "2";
    if (fact != "channels") throw Refusal("there is no such fact");
    std::string names;
    for (std::size_t c = 0; c < records_[0].size(); ++c) names += (c ? "," : "") + InputName(c);
    return names;
  }

  std::string RateText() const {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(17);
    text << rate_;
    return text.str();
  }

  void MakeTask() {
    channels_.clear();
    trigger_.clear();
    samples_ = 0;
  }
  void AddChannel(Channel channel) {
    for (std::size_t c = 0; c < records_[0].size(); ++c) {
      if (channel.physical != InputName(c)) continue;
      if (channel.range > kRange) throw Refusal("there is no such input range");
      channel.column = c;
      channels_.push_back(channel);
      return;
    }
    throw Refusal("there is no such input");
  }
  void SetClock(long samples) { samples_ = static_cast<std::size_t>(samples); }
  void SetFreeRun() { trigger_.clear(); }
  void SetTrigger(const std::string& virtualName, double level, long preTrigger) {
    trigger_ = virtualName;
    level_ = level;
    preTrigger_ = preTrigger;
  }
  std::size_t Channels() const { return channels_.size(); }
  std::size_t Samples() const { return samples_; }

  /// Arms the board: the next record begins.
  void Start() {
    if (channels_.empty() || samples_ == 0) throw Refusal("the task has no channels or no clock");
    const Columns& source = records_[next_];
    next_ = (next_ + 1) % records_.size();
    first_ = 0;
    ready_ = true;
    if (!trigger_.empty()) ready_ = FindTrigger(source);
    record_.assign(channels_.size(), std::vector<double>(samples_, 0.0));
    overload_ = 0;
    for (std::size_t c = 0; c < channels_.size(); ++c) {
      const std::vector<double>& column = source[channels_[c].column];
      for (std::size_t i = 0; i < samples_; ++i) {
        const long at = first_ + static_cast<long>(i);
        if (at < 0 || at >= static_cast<long>(column.size())) continue;  // beyond the file it is quiet
        record_[c][i] = column[static_cast<std::size_t>(at)];
        if (std::fabs(record_[c][i]) >= channels_[c].range) overload_ |= std::uint64_t{1} << c;
      }
    }
  }
  /// Whether a record is ready; waits for at most this long.
  bool Wait(double seconds) {
    if (!ready_) std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
    return ready_;
  }
  const Columns& Record() const { return record_; }
  std::uint64_t Overload() const { return overload_; }
  void Stop() { ready_ = false; }

 private:
  static std::string InputName(std::size_t column) {
    return std::string(kDevice) + "/ai" + std::to_string(column);
  }
  /// Puts the first rising crossing of the level at the pre-trigger sample.
  bool FindTrigger(const Columns& source) {
    for (const Channel& channel : channels_) {
      if (channel.virtualName != trigger_) continue;
      const std::vector<double>& x = source[channel.column];
      for (std::size_t i = 1; i < x.size(); ++i) {
        if (!(x[i - 1] < level_ && x[i] >= level_)) continue;
        first_ = static_cast<long>(i) - preTrigger_;
        return true;
      }
      return false;
    }
    throw Refusal("the trigger channel is not measured");
  }

  double rate_;
  std::vector<Columns> records_;
  std::size_t next_ = 0;
  std::vector<Channel> channels_;
  std::size_t samples_ = 0;
  std::string trigger_;  // virtual name; empty: free run
  double level_ = 0.0;
  long preTrigger_ = 0, first_ = 0;
  bool ready_ = false;
  Columns record_;
  std::uint64_t overload_ = 0;
};

// ---- the protocol: the code below does not depend on the kind of board ----

void WriteSamples(const Columns& record) {
  static_assert(sizeof(double) == 8);
  const std::uint16_t probe = 1;
  const bool littleEndian = *reinterpret_cast<const unsigned char*>(&probe) == 1;
  for (const std::vector<double>& channel : record) {
    for (const double volts : channel) {
      char bytes[sizeof volts];
      std::memcpy(bytes, &volts, sizeof volts);
      if (!littleEndian) std::reverse(bytes, bytes + sizeof bytes);
      std::fwrite(bytes, sizeof bytes, 1, stdout);
    }
  }
}

/// Answers one request line. Returns the text after "ok", without a leading blank.
std::string Answer(Board& board, const std::string& line) {
  std::istringstream words(line);
  words.imbue(std::locale::classic());
  std::string request, text;
  long task = 0;
  words >> request;
  if (request == "hello") return "1 replay";
  if (request == "devices") return kDevice;
  if (request == "fact") {
    std::string fact;
    words >> text >> fact;
    if (text != kDevice) throw Refusal("there is no such device");
    return board.Fact(fact);
  }
  if (request == "task") {
    board.MakeTask();
    return "1";
  }
  words >> task;
  if (task != 1) throw Refusal("there is no such task");
  if (request == "channel") {
    Channel channel;
    words >> channel.physical >> channel.virtualName >> channel.range;
    board.AddChannel(channel);
    return "";
  }
  if (request == "clock") {
    double rate = 0.0;
    long samples = 0;
    words >> rate >> samples;
    if (samples < 2 || samples > (1L << 27)) throw Refusal("a record of this length is not possible");
    board.SetClock(samples);
    return "";
  }
  if (request == "trigger") {
    double level = 0.0;
    long preTrigger = 0;
    words >> text >> level >> preTrigger;
    board.SetTrigger(text, level, preTrigger);
    return "";
  }
  if (request == "wait") {
    double seconds = 0.0;
    words >> seconds;
    return board.Wait(seconds) ? "1" : "0";
  }
  if (request == "rate") return board.RateText();
  if (request == "count") return std::to_string(board.Channels());
  if (request == "free")
    board.SetFreeRun();
  else if (request == "start")
    board.Start();
  else if (request == "stop" || request == "clear")
    board.Stop();
  else
    throw Refusal("there is no such request");
  return "";
}

void AnswerRead(Board& board) {
  if (!board.Wait(0.0)) throw Refusal("there is no record");
  std::printf("ok %zu %zu %llx\n", board.Samples(), board.Channels(),
              static_cast<unsigned long long>(board.Overload()));
  WriteSamples(board.Record());
  board.Stop();
}

}  // namespace

int main(int argc, char** argv) {
  const double rate = argc > 2 ? std::atof(argv[1]) : 0.0;
  if (!(rate > 0.0)) {
    std::fputs("board_server <rate, Hz> <text file of a record>...\n", stderr);
    return 1;
  }
  try {
    Board board(rate, std::vector<std::string>(argv + 2, argv + argc));
    for (std::string line; std::getline(std::cin, line) && line != "bye";) {
      try {
        if (line.starts_with("read ")) {
          AnswerRead(board);
        } else {
          const std::string text = Answer(board, line);
          std::printf(text.empty() ? "ok\n" : "ok %s\n", text.c_str());
        }
      } catch (const Refusal& refusal) {
        std::printf("err -1 %s\n", refusal.what());
      }
      std::fflush(stdout);  // without it the answer would wait in the buffer
    }
  } catch (const Refusal& refusal) {
    std::fprintf(stderr, "board_server: %s\n", refusal.what());
    return 1;
  }
  return 0;
}
