// Tests of sound cards as boards. No card is needed: ALSA's own plug-in "file" replaces one, with raw
// samples.
#include "acquisition/alsa_driver.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <thread>

#include "acquisition/board_choice.h"
#include "board_fixture.h"
#include "support/temp_folder.h"

namespace sondera {
namespace {

using ::testing::HasSubstr;
using testing::MadeTask;
using testing::MakePlannedTask;
using testing::TakenRecord;
using testing::TakeRecord;
using testing::TaskPlan;

/// Raw samples, little-endian, of `bytes` bytes each.
void AppendSample(std::string& raw, std::int64_t value, int bytes) {
  for (int b = 0; b < bytes; ++b) raw.push_back(static_cast<char>((value >> (8 * b)) & 0xff));
}

class AlsaDriver : public testing::BoardTest {
 protected:
  void SetUp() override {
    BoardTest::SetUp();
    const char* const former = std::getenv("ALSA_CONFIG_PATH");
    if (former) former_ = former;
  }
  void TearDown() override {
    BoardTest::TearDown();
    former_.empty() ? unsetenv("ALSA_CONFIG_PATH") : setenv("ALSA_CONFIG_PATH", former_.c_str(), 1);
  }

  /// A card "hw:0" that records the contents of the file samples_.
  void MakeCard() {
    const std::string config = folder_.File("asound.conf");
    test::WriteWhole(config,
                     "pcm.hw {\n  @args [ CARD DEV SUBDEV ]\n"
                     "  @args.CARD { type string default \"0\" }\n"
                     "  @args.DEV { type integer default 0 }\n"
                     "  @args.SUBDEV { type integer default -1 }\n"
                     "  type file\n  file /dev/null\n  infile \"" +
                         samples_ + "\"\n  format raw\n  slave.pcm { type null }\n}\n");
    setenv("ALSA_CONFIG_PATH", config.c_str(), 1);
  }
  void MakeCard(const std::string& samples) {
    test::WriteWhole(samples_, samples);
    MakeCard();
  }

  test::TempFolder folder_;
  std::string samples_ = folder_.File("samples");
  std::string former_;
};

TEST_F(AlsaDriver, FactsOfACard) {
  MakeCard("");
  ASSERT_EQ(ChooseBoard("alsa:volts=1.78,device=hw:0,0"), "");
  const DaqDriver& daq = Daq();
  std::string text;
  int number = 0;
  double rate = 0.0;
  std::vector<double> limits;
  EXPECT_EQ(daq.sysDevNames(text), 0);
  EXPECT_EQ(text, "Snd0");
  EXPECT_EQ(daq.devProductCategory("Snd0", number), 0);
  EXPECT_EQ(number, 14649);
  EXPECT_EQ(daq.devAIPhysicalChans("Snd0", text), 0);
  EXPECT_TRUE(text.starts_with("Snd0/ai0,Snd0/ai1,"));
  EXPECT_EQ(daq.devAIVoltageRngs("Snd0", limits), 0);
  EXPECT_EQ(limits, (std::vector<double>{-1.78, 1.78}));
  EXPECT_EQ(daq.devAIMaxSingleChanRate("Snd0", rate), 0);
  EXPECT_EQ(rate, 192000.0);
  EXPECT_EQ(daq.devAIMinRate("Snd0", rate), 0);
  EXPECT_EQ(rate, 8000.0 / 512.0);
  EXPECT_LT(daq.devAIMinRate("Snd1", rate), 0);
}

TEST_F(AlsaDriver, FullScaleIsTheVoltsOfTheOptionWithinOneStep) {
  for (const int bits : {16, 24, 32}) {
    const std::int64_t top = (std::int64_t{1} << (bits - 1)) - 1;
    std::string raw;
    for (int frame = 0; frame < 4000; ++frame)
      for (const std::int64_t value : {top, -top - 1, std::int64_t{frame}, top / 2})
        AppendSample(raw, value, bits / 8);
    MakeCard(raw);
    ASSERT_EQ(ChooseBoard("alsa:volts=1.78,bits=" + std::to_string(bits) + ",device=hw:0"), "");
    const TaskPlan plan{.dev = "Snd0", .channels = 4, .range = 1.78, .rate = 48000.0, .samples = 3000};
    const MadeTask made = MakePlannedTask(plan);
    ASSERT_EQ(made.status, 0) << Daq().errorString(made.status);
    EXPECT_EQ(made.rate, 48000.0);
    const TakenRecord record = TakeRecord(made.task, plan);
    ASSERT_EQ(record.status, 0) << Daq().errorString(record.status);
    const double step = 1.78 / static_cast<double>(std::int64_t{1} << (bits - 1));
    for (const int i : {0, 1, 2999}) {
      EXPECT_NEAR(record.At(0, i), 1.78, 1.01 * step);
      EXPECT_NEAR(record.At(1, i), -1.78, 1.01 * step);
      EXPECT_NEAR(record.At(2, i), i * step, 1e-9 * step) << bits;
    }
    EXPECT_EQ(record.overload, 3u) << "the inputs at full scale";
  }
}

/// Ten minutes of counted frames at 48 kHz through a pipe. The plug-in treats a short read as a whole block,
/// so the pipe is written in pages: then a read of a block is never short.
TEST_F(AlsaDriver, NoFrameIsLostOrDoubledInTenMinutes) {
  constexpr std::int64_t kFrames = 28800000, kLead = 1 << 20;
  ASSERT_EQ(mkfifo(samples_.c_str(), 0600), 0);
  const int pipe = open(samples_.c_str(), O_RDWR);  // open for both: nobody waits for the other end
  ASSERT_GE(pipe, 0);
  std::atomic<bool> enough = false;
  std::thread writer([&] {
    std::vector<std::int32_t> block(4 * 256);  // one page
    for (std::int64_t frame = 0; frame < kFrames + kLead && !enough;) {
      for (std::size_t i = 0; i < block.size() / 4; ++i, ++frame)
        for (std::size_t c = 0; c < 4; ++c)
          block[4 * i + c] = static_cast<std::int32_t>(frame * 4 + static_cast<std::int64_t>(c));
      const char* bytes = reinterpret_cast<const char*>(block.data());
      for (std::size_t left = block.size() * 4; left > 0 && !enough;) {
        const ssize_t n = write(pipe, bytes, left);
        if (n <= 0) return;
        bytes += n;
        left -= static_cast<std::size_t>(n);
      }
    }
  });
  MakeCard();
  EXPECT_EQ(ChooseBoard("alsa:device=hw:0"), "");
  const TaskPlan plan{.dev = "Snd0", .channels = 4, .range = 1.0, .rate = 48000.0, .samples = 79201};
  const MadeTask made = MakePlannedTask(plan);
  EXPECT_EQ(made.status, 0) << Daq().errorString(made.status);
  std::int64_t frame = 0, wrong = 0;
  while (frame < kFrames) {
    const TakenRecord record = TakeRecord(made.task, plan);
    ASSERT_EQ(record.status, 0) << Daq().errorString(record.status);
    for (int i = 0; i < plan.samples; ++i, ++frame)
      for (int c = 0; c < 4; ++c)
        if (record.At(c, i) * 0x1p31 != static_cast<double>(frame * 4 + c)) ++wrong;
  }
  EXPECT_EQ(wrong, 0);
  enough = true;
  std::vector<char> rest(1 << 16);
  fcntl(pipe, F_SETFL, O_NONBLOCK);
  while (read(pipe, rest.data(), rest.size()) > 0) {
  }
  writer.join();
  close(pipe);
}

/// A blow on both channels, the second later by 96 frames of the card, which are 4 samples of the record.
TEST_F(AlsaDriver, CrossingStandsAtThePreTriggerSampleBehindTheFilter) {
  constexpr int kBlow = 300000;
  std::string raw;
  const auto blow = [](int since) {
    return since < 0 || since > 480 ? 0.0 : 0.5 * std::sin(M_PI * since / 480.0);  // 10 ms
  };
  for (int frame = 0; frame < 400000; ++frame)
    for (const int late : {0, 96}) AppendSample(raw, std::lround(blow(frame - kBlow - late) * 32767.0), 2);
  MakeCard(raw);
  ASSERT_EQ(ChooseBoard("alsa:volts=2,bits=16,device=hw:0"), "");
  const TaskPlan plan{.dev = "Snd0",
                      .channels = 2,
                      .range = 2.0,
                      .rate = 2000.0,
                      .samples = 512,
                      .trigger = 0,
                      .level = 0.3,
                      .preTrigger = 51};
  const MadeTask made = MakePlannedTask(plan);
  ASSERT_EQ(made.status, 0);
  EXPECT_EQ(made.rate, 2000.0) << "a 24th of 48000";
  const TakenRecord record = TakeRecord(made.task, plan);
  ASSERT_EQ(record.status, 0) << Daq().errorString(record.status);
  EXPECT_LT(record.At(0, 50), 0.3);
  EXPECT_GE(record.At(0, 51), 0.3);
  for (int i = 60; i < 80; ++i) EXPECT_NEAR(record.At(1, i), record.At(0, i - 4), 1e-9);
  EXPECT_EQ(record.overload, 0u);
}

TEST_F(AlsaDriver, WithoutACrossingThereIsNoRecordYet) {
  MakeCard(std::string(1 << 20, '\0'));
  ASSERT_EQ(ChooseBoard("alsa:device=hw:0"), "");
  const TaskPlan plan{.dev = "Snd0", .range = 1.0, .trigger = 0, .level = 0.1};
  const MadeTask made = MakePlannedTask(plan);
  ASSERT_EQ(Daq().startTask(made.task), 0);
  const auto start = std::chrono::steady_clock::now();
  bool ready = true;
  EXPECT_EQ(Daq().waitRecord(made.task, 0.05, ready), 0);
  EXPECT_FALSE(ready);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
}

TEST_F(AlsaDriver, OnlyHardwareDevicesAndItsOwnOptionsAreTaken) {
  MakeCard("");
  const std::pair<const char*, const char*> cases[] = {
      {"alsa:device=default", "Board driver alsa takes hw: devices only, not \"default\"."},
      {"alsa:device=plughw:0", "Board driver alsa takes hw: devices only, not \"plughw:0\"."},
      {"alsa:device=", "Board driver alsa takes hw: devices only, not \"\"."},
      {"alsa:colour=1,device=hw:0",
       "Board driver alsa has no option \"colour\"; it has volts, channels, bits."},
      {"alsa:volts=0", "The option volts of board driver alsa"},
      {"alsa:bits=33,device=hw:0", "The option bits of board driver alsa"},
  };
  for (const auto& [choice, sentence] : cases) {
    EXPECT_THAT(ChooseBoard(choice), HasSubstr(sentence));
    EXPECT_STREQ(Daq().name, "none");
  }
}

TEST_F(AlsaDriver, ACardThatIsNotThereIsRefusedInOneSentence) {
  samples_ = folder_.File("missing");
  MakeCard();
  EXPECT_THAT(ChooseBoard("alsa:device=hw:0"), HasSubstr("The sound card hw:0 cannot be opened: "));
  EXPECT_STREQ(Daq().name, "none");
}

TEST_F(AlsaDriver, ACardThatGoesIsRefusedAtTheNextStart) {
  MakeCard(std::string(1 << 20, '\0'));
  ASSERT_EQ(ChooseBoard("alsa:device=hw:0"), "");
  const TaskPlan plan{.dev = "Snd0", .range = 1.0};
  const MadeTask made = MakePlannedTask(plan);
  ASSERT_EQ(made.status, 0);
  std::remove(samples_.c_str());
  EXPECT_EQ(Daq().startTask(made.task), daq_status::kRefused);
  EXPECT_THAT(Daq().errorString(daq_status::kRefused), HasSubstr("cannot be opened"));
  EXPECT_EQ(Daq().clearTask(made.task), 0);
}

TEST(ChooseCardRate, LowestRateAtOrAboveTheOneAskedFor) {
  const std::vector<int> rates = {44100, 48000, 96000};
  const auto made = [&](double rate) {
    const CardRate r = ChooseCardRate(rates, rate);
    return static_cast<double>(r.rate) / r.factor;
  };
  EXPECT_EQ(made(2000.0), 2000.0);
  EXPECT_EQ(made(44100.0), 44100.0);
  EXPECT_EQ(made(96000.0), 96000.0);
  EXPECT_EQ(made(2100.0), 2100.0) << "44100 / 21";
  EXPECT_EQ(made(200000.0), 96000.0) << "no card rate reaches it";
  EXPECT_EQ(made(10.0), 44100.0 / 512.0) << "the lowest";
  EXPECT_EQ(ChooseCardRate({48000}, 1000.0 / 3.0).factor, 144) << "rounding of the rate costs no factor";
  for (double rate = 90.0; rate < 96000.0; rate *= 1.037) {
    EXPECT_GE(made(rate), rate * (1.0 - 1e-8));
    EXPECT_LE(made(rate), std::max(rate * 2.0, 44100.0)) << rate;
  }
}

}  // namespace
}  // namespace sondera
