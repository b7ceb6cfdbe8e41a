// Tests of a board in another program: the order of the requests, and every way in which the program can
// fail.
#include "acquisition/process_driver.h"

#include <dirent.h>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <fstream>
#include <set>
#include <sstream>

#include "acquisition/board_choice.h"
#include "acquisition/board_process.h"
#include "board_fixture.h"
#include "support/temp_folder.h"

namespace sondera {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using testing::MadeTask;
using testing::MakePlannedTask;
using ::testing::StartsWith;
using testing::TakenRecord;
using testing::TakeRecord;
using testing::TaskPlan;

const TaskPlan kPlan{.dev = "Dev1", .channels = 2, .samples = 16, .trigger = 1, .preTrigger = 2};

class ProcessDriver : public testing::BoardTest {
 protected:
  /// The choice of the test board, with a fault.
  std::string Board(const std::string& fault = "") const {
    return "process:python3 tests/acquisition/test_board.py " + log_ + " " + fault;
  }
  /// Requests that the board got so far.
  std::vector<std::string> Log() const {
    std::vector<std::string> lines;
    std::ifstream file(log_);
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
  }
  std::string Script(const std::string& name, const std::string& text) {
    const std::string path = folder_.File(name);
    std::ofstream(path) << text;
    chmod(path.c_str(), 0755);
    return path;
  }

  test::TempFolder folder_;
  std::string log_ = folder_.File("log");
};

bool HasChildren() {
  siginfo_t info{};
  return !(waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) < 0 && errno == ECHILD);
}

/// Whether the process whose number is in the file ends within a second.
bool IsGoneSoon(const std::string& pidFile) {
  std::string number, word, state;
  std::ifstream(pidFile) >> number;
  EXPECT_FALSE(number.empty());
  for (int i = 0; i < 100; ++i) {
    std::ifstream stat("/proc/" + number + "/stat");
    // an orphan may stay in the process table: there may be no parent that waits for it
    if (!(stat >> word >> word >> state) || state == "Z") return true;
    usleep(10000);
  }
  return false;
}

/// The actions of a person with a board, up to the first request that is refused.
int UseBoard() {
  const DaqDriver& daq = Daq();
  std::string names;
  if (const int status = daq.sysDevNames(names); status != 0) return status;
  int category = 0;
  if (const int status = daq.devProductCategory("Dev1", category); status != 0) return status;
  const MadeTask made = MakePlannedTask(kPlan);
  if (made.status != 0) return made.status;
  int channels = 0;
  if (const int status = daq.numChans(made.task, channels); status != 0) return status;
  TakenRecord record;
  record.samples.resize(32);
  if (const int status = daq.startTask(made.task); status != 0) return status;
  bool ready = false;
  for (int i = 0; i < 100 && !ready; ++i)
    if (const int status = daq.waitRecord(made.task, 0.01, ready); status != 0) return status;
  if (const int status = daq.readRecord(made.task, 1.0, record.samples.data(), 32, record.read); status != 0)
    return status;
  if (const int status = daq.stopTask(made.task); status != 0) return status;
  return daq.clearTask(made.task);
}

TEST_F(ProcessDriver, RequestsComeInTheirOrderWithTheirNumbers) {
  ASSERT_EQ(ChooseBoard(Board()), "");
  EXPECT_EQ(UseBoard(), 0);
  EXPECT_EQ(ChooseBoard("none"), "");
  const std::vector<std::string> expected = {"hello 1",
                                             "devices",
                                             "fact Dev1 category",
                                             "task DAQTask",
                                             "channel 7 Dev1/ai0 0 10 pseudo volts 0 dc",
                                             "channel 7 Dev1/ai1 1 10 pseudo volts 0 dc",
                                             "clock 7 2000 16",
                                             "rate 7",
                                             "trigger 7 1 0.2 2",
                                             "count 7",
                                             "start 7",
                                             "wait 7 0.01",
                                             "wait 7 0.01",
                                             "read 7",
                                             "stop 7",
                                             "clear 7",
                                             "bye"};
  EXPECT_EQ(Log(), expected);
  EXPECT_FALSE(HasChildren());
}

TEST_F(ProcessDriver, FactsOfTheBoard) {
  ASSERT_EQ(ChooseBoard(Board()), "");
  const DaqDriver& daq = Daq();
  std::string text;
  int number = 0;
  double rate = 0.0;
  std::vector<double> limits;
  EXPECT_EQ(daq.sysDevNames(text), 0);
  EXPECT_EQ(text, "Dev1,Dev2");
  EXPECT_EQ(daq.devProductType("Dev1", text), 0);
  EXPECT_EQ(text, "USB-4432 of tests");
  EXPECT_EQ(daq.devAIPhysicalChans("Dev1", text), 0);
  EXPECT_EQ(text, "Dev1/ai0,Dev1/ai1,Dev1/ai2,Dev1/ai3");
  EXPECT_EQ(daq.devAnlgTrigSupported("Dev1", number), 0);
  EXPECT_EQ(number, 1);
  EXPECT_EQ(daq.devAICouplings("Dev1", number), 0);
  EXPECT_EQ(number, 3);
  EXPECT_EQ(daq.devAIMaxSingleChanRate("Dev1", rate), 0);
  EXPECT_EQ(rate, 102400.0);
  EXPECT_EQ(daq.devAIMinRate("Dev1", rate), 0);
  EXPECT_EQ(rate, 2000.0);
  EXPECT_EQ(daq.devAIVoltageRngs("Dev1", limits), 0);
  EXPECT_EQ(limits, (std::vector<double>{-10, 10, -1, 1}));
}

TEST_F(ProcessDriver, SamplesArriveBitForBitAndNoneIsLostBetweenRecords) {
  ASSERT_EQ(ChooseBoard(Board()), "");
  const TaskPlan plan{.dev = "Dev1", .channels = 3, .samples = 5000};
  const MadeTask made = MakePlannedTask(plan);
  ASSERT_EQ(made.status, 0);
  EXPECT_EQ(made.rate, 2560.5) << "what the board made of 2000";
  for (int n = 0, counter = 0; n < 5; ++n) {
    const TakenRecord record = TakeRecord(made.task, plan);
    if (record.status == daq_status::kNotYet) continue;
    ASSERT_EQ(record.status, 0);
    EXPECT_EQ(record.overload, 5u);
    for (int i = 0; i < plan.samples; ++i, ++counter)
      for (int c = 0; c < 3; ++c) ASSERT_EQ(record.At(c, i), counter / 1024.0 + c);
  }
}

TEST_F(ProcessDriver, ARecordThatHasNotComeIsNoFailure) {
  ASSERT_EQ(ChooseBoard(Board()), "");
  const MadeTask made = MakePlannedTask(kPlan);
  ASSERT_EQ(Daq().startTask(made.task), 0);
  double samples[32];
  int read = 0;
  EXPECT_EQ(Daq().readRecord(made.task, 0.0, samples, 32, read), daq_status::kNotYet);
  EXPECT_EQ(Daq().readRecord(made.task, 0.0, samples, 32, read), 0);
  EXPECT_EQ(read, 16);
}

TEST_F(ProcessDriver, NumbersKeepAllTheirDigits) {
  ASSERT_EQ(ChooseBoard(Board()), "");
  int task = 0;
  ASSERT_EQ(Daq().createTask("DAQTask", task), 0);
  EXPECT_EQ(Daq().addChannel(task, "Dev1",
                             {.physicalName = "Dev1/ai0",
                              .virtualName = "0",
                              .range = 0.0316,
                              .differential = true,
                              .accelerometer = true,
                              .excitation = 0.0021,
                              .couplingAC = true}),
            0);
  EXPECT_EQ(Daq().cfgSampClkTiming(task, 2.0 / 3.0, 1 << 20), 0);
  EXPECT_EQ(Daq().cfgSampClkTiming(task, 100000.0, 64), 0);
  const std::vector<std::string> log = Log();
  EXPECT_EQ(log[4], "clock 7 100000 64") << "no exponent";
  EXPECT_EQ(log[2], "channel 7 Dev1/ai0 0 0.0316 diff accel 0.0021 ac");
  EXPECT_EQ(log[3], "clock 7 0.6666666666666666 1048576");
}

/// A fault at every request: one sentence, no process left, and the next use starts the program again.
TEST_F(ProcessDriver, EveryFaultAtEveryRequestEndsInOneSentence) {
  const char* const requests[] = {"devices", "fact",  "task", "channel", "clock", "rate", "trigger",
                                  "count",   "start", "wait", "read",    "stop",  "clear"};
  const char* const faults[] = {"die", "garbage", "prose", "long", "control", "twice"};
  int n = 0;
  for (const char* request : requests) {
    const std::string fault = faults[n++ % std::size(faults)];
    for (const std::string& each : {fault, std::string("die")}) {
      SCOPED_TRACE(each + " at " + request);
      ASSERT_EQ(ChooseBoard(Board(each + " " + request)), "");
      int status = UseBoard();
      std::string names;
      if (status == 0) {  // the next request finds a second answer
        status = Daq().devProductCategory("Dev1", n);
      }
      EXPECT_EQ(status, daq_status::kRefused);
      const std::string said = Daq().errorString(status);
      EXPECT_THAT(said, AllOf(StartsWith("The board program python3 "), EndsWith(".")));
      EXPECT_EQ(said.find('\n'), std::string::npos);
      EXPECT_FALSE(HasChildren());
      EXPECT_EQ(Daq().startTask(7), daq_status::kRefused) << "it knows that its board is gone";
      EXPECT_EQ(Daq().errorString(status), said);
      int task = 0;
      if (std::string(request) != "task") {
        EXPECT_EQ(Daq().createTask("DAQTask", task), 0) << "started anew";
      }
    }
  }
}

TEST_F(ProcessDriver, FaultsOfTheSamplesEndTheBoard) {
  const std::pair<const char*, const char*> cases[] = {
      {"huge", "sends 1099511627776 samples on 2 channels where 16 on 2 were asked for"},
      {"short", "sends 15 samples on 2 channels where 16 on 2 were asked for"},
      {"nan", "its record has a sample that is not finite"},
      {"die", "has ended"},
  };
  for (const auto& [fault, sentence] : cases) {
    ASSERT_EQ(ChooseBoard(Board(std::string(fault) + " read")), "");
    EXPECT_EQ(UseBoard(), daq_status::kRefused);
    EXPECT_THAT(Daq().errorString(daq_status::kRefused), HasSubstr(sentence));
    EXPECT_FALSE(HasChildren());
  }
  ASSERT_EQ(ChooseBoard(Board("more read")), "");
  EXPECT_EQ(UseBoard(), daq_status::kRefused);
  EXPECT_THAT(Daq().errorString(daq_status::kRefused), HasSubstr("sends more than was asked for"));
}

/// A late answer must not count as the answer to the next request.
TEST_F(ProcessDriver, AnAnswerThatNobodyAskedForEndsTheBoard) {
  const std::string script = Script(
      "chatty", "#!/bin/sh\nread a; echo ok 1 chatty\nread a; echo ok 5; sleep 0.2; echo ok\nsleep 9\n");
  ASSERT_EQ(ChooseBoard("process:" + script), "");
  int task = 0;
  EXPECT_EQ(Daq().createTask("DAQTask", task), 0);
  usleep(600000);
  EXPECT_EQ(Daq().startTask(task), daq_status::kRefused);
  EXPECT_THAT(Daq().errorString(daq_status::kRefused), HasSubstr("sends more than was asked for"));
  EXPECT_FALSE(HasChildren());
}

TEST_F(ProcessDriver, ARefusalOfTheBoardLeavesItInUse) {
  ASSERT_EQ(ChooseBoard(Board("err clock")), "");
  EXPECT_EQ(UseBoard(), daq_status::kRefused);
  EXPECT_EQ(Daq().errorString(daq_status::kRefused), "the cable is loose (board error -200284)");
  EXPECT_EQ(Daq().clearTask(7), 0);
  EXPECT_EQ(UseBoard(), 0);
}

TEST_F(ProcessDriver, ALateAnswerIsWaitedForAndAMissingOneIsNot) {
  using Clock = std::chrono::steady_clock;
  ASSERT_EQ(ChooseBoard(Board("late start")), "");
  EXPECT_EQ(UseBoard(), 0);
  for (const char* fault : {"hang start", "stuck read"}) {
    ASSERT_EQ(ChooseBoard(Board(fault)), "");
    const auto start = Clock::now();
    EXPECT_EQ(UseBoard(), daq_status::kRefused);
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(6)) << fault;
    EXPECT_EQ(Daq().errorString(daq_status::kRefused), "The board program python3 does not answer.");
    EXPECT_FALSE(HasChildren());
  }
}

TEST_F(ProcessDriver, ABoardThatStaysIsEndedBySignals) {
  using Clock = std::chrono::steady_clock;
  ASSERT_EQ(ChooseBoard(Board("stubborn bye")), "");
  const auto start = Clock::now();
  InstallDaqDriver(&daqNone);
  EXPECT_GE(Clock::now() - start, std::chrono::seconds(3)) << "2 s for bye, 1 s for SIGTERM";
  EXPECT_LT(Clock::now() - start, std::chrono::seconds(5));
  EXPECT_FALSE(HasChildren());
}

TEST_F(ProcessDriver, ChildrenOfTheProgramEndWithIt) {
  const std::string pid = folder_.File("pid");
  const std::string script =
      Script("adaptor", "#!/bin/sh\nsleep 1000 &\necho $! > " + pid +
                            "\nexec python3 tests/acquisition/test_board.py " + log_ + "\n");
  ASSERT_EQ(ChooseBoard("process:" + script), "");
  InstallDaqDriver(&daqNone);
  EXPECT_TRUE(IsGoneSoon(pid));
}

/// A killed program cannot say "bye": the board gets the end of its input, and a signal.
TEST_F(ProcessDriver, ABoardDoesNotOutliveAKilledProgram) {
  const std::string number = folder_.File("pid");
  const std::string script =
      Script("adaptor", "#!/bin/sh\necho $$ > " + number + "\nexec python3 tests/acquisition/test_board.py " +
                            log_ + " hang devices\n");
  const pid_t program = fork();
  if (program == 0) {
    const bool installed = ChooseBoard("process:" + script).empty();
    kill(getpid(), installed ? SIGKILL : SIGABRT);
  }
  int status = 0;
  ASSERT_EQ(waitpid(program, &status, 0), program);
  EXPECT_EQ(WTERMSIG(status), SIGKILL);
  EXPECT_TRUE(IsGoneSoon(number));
}

TEST_F(ProcessDriver, TheProgramInheritsNothingButItsTwoStreams) {
  const int open = ::open(folder_.File("secret").c_str(), O_CREAT | O_WRONLY, 0600);
  ASSERT_GE(open, 0);
  const std::string list = folder_.File("list");
  const std::string script = Script("look", "#!/bin/sh\nls -l /proc/self/fd > " + list + "\n");
  EXPECT_THAT(ChooseBoard("process:" + script), HasSubstr("has ended"));
  close(open);
  std::stringstream text;
  text << std::ifstream(list).rdbuf();
  EXPECT_THAT(text.str(), HasSubstr(" 0 -> "));
  EXPECT_THAT(text.str(), ::testing::Not(HasSubstr("secret")));
}

TEST_F(ProcessDriver, ThereIsNoShell) {
  log_ = folder_.File("$HOME;log");
  ASSERT_EQ(ChooseBoard(Board()), "");
  EXPECT_EQ(Log(), std::vector<std::string>{"hello 1"});
  const std::string script = Script("headless", "echo ok 1 shell\n");
  EXPECT_EQ(ChooseBoard("process:" + script),
            "The board program " + script + " cannot be started: Exec format error.");
}

TEST_F(ProcessDriver, ProgramsThatCannotBeUsedAreRefusedInOneSentence) {
  const std::pair<std::string, const char*> cases[] = {
      {"process", "Board driver process needs a program: process:PROGRAM ARGUMENTS."},
      {"process:  ", "Board driver process needs a program: process:PROGRAM ARGUMENTS."},
      {"process:no_such_program_1",
       "The board program no_such_program_1 cannot be started: No such file or directory."},
      {"process:/no/such", "The board program /no/such cannot be started: No such file or directory."},
      {"process:" + folder_.Path(), ": Permission denied."},
      {"process:true", "The board program true has ended."},
      {"process:" + Script("next", "#!/bin/sh\nread request; echo ok 2 next; sleep 9\n"),
       "speaks another version of the protocol."},
      {"process:" + Script("friendly", "#!/bin/sh\nread request; echo hello; sleep 9\n"),
       "does not keep to the protocol: \"hello\"."},
      {Board("err hello"), "The board program python3 refuses to work: the cable is loose."},
  };
  for (const auto& [choice, sentence] : cases) {
    EXPECT_THAT(ChooseBoard(choice), HasSubstr(sentence)) << choice;
    EXPECT_STREQ(Daq().name, "none");
    EXPECT_FALSE(HasChildren());
  }
}

TEST_F(ProcessDriver, NamesThatWouldBreakALineAreNotSent) {
  ASSERT_EQ(ChooseBoard(Board()), "");
  int task = 0, category = 0;
  ASSERT_EQ(Daq().createTask("DAQTask", task), 0);
  const std::size_t before = Log().size();
  for (const char* name : {"", "a b", "x\nbye", "\x1b[2J"}) {
    EXPECT_LT(Daq().devProductCategory(name, category), 0);
    EXPECT_LT(Daq().addChannel(task, "Dev1", {.physicalName = name, .virtualName = "0"}), 0);
    EXPECT_LT(Daq().cfgAnlgEdgeRefTrig(task, name, 0.1, 5), 0);
  }
  EXPECT_LT(Daq().cfgSampClkTiming(task, 1000.0, (1 << 27) + 1), 0);
  EXPECT_EQ(Log().size(), before);
}

TEST(CommandWords, AreSplitAtBlanksOnly) {
  EXPECT_EQ(CommandWords("  a  'b c' "), (std::vector<std::string>{"a", "'b", "c'"}));
  EXPECT_TRUE(CommandWords("").empty());
}

}  // namespace
}  // namespace sondera
