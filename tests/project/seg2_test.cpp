// Tests of the reader of SEG-2 files: good files, the unusual ones that recorders write, and damaged ones.
#include "project/seg2.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <random>

#include "project/import_seg2.h"
#include "support/comma_locale.h"
#include "support/field_data.h"
#include "support/seg2_writer.h"
#include "support/temp_folder.h"

namespace sondera::testing {
namespace {

using test::Seg2Bytes;
using test::Seg2Spec;
using test::Seg2String;
using test::Seg2TraceSpec;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr bool kBothOrders[] = {false, true};
const std::string kNul(1, '\0');

Seg2TraceSpec Trace(std::vector<double> samples, std::vector<std::string> more = {}, int code = 5) {
  Seg2TraceSpec trace;
  trace.code = code;
  trace.samples = std::move(samples);
  trace.strings = std::move(more);
  trace.strings.push_back("SAMPLE_INTERVAL 0.001");
  return trace;
}

Seg2Spec TwoTraces() {
  Seg2Spec spec;
  spec.strings = {"UNITS METERS"};
  spec.traces = {Trace({1.5, -2.25, 3.0}, {"RECEIVER_LOCATION 2"}),
                 Trace({4.0, 5.0}, {"RECEIVER_LOCATION 4"})};
  return spec;
}

Seg2File Good(const std::string& bytes) {
  Seg2File file;
  EXPECT_EQ(ReadSeg2(bytes, file), "");
  return file;
}
std::string Refusal(const std::string& bytes) {
  Seg2File file;
  return ReadSeg2(bytes, file);
}

// ---- sample formats -------------------------------------------------------------------------------------

/// Samples that a format holds exactly.
std::vector<double> SamplesFor(int code) {
  switch (code) {
    case 1:
      return {0, 1, -1, 32767, -32768, 1234, -4321};
    case 2:
      return {0, 1, -1, 2147483647.0, -2147483648.0, 7654321, -1234567};
    case 3:
      return {0, -1, 32767, -32767, 32767.0 * 32768, -32767.0 * 32768, 12345.0 * 8, -777.0 * 64, 5};
    case 4:
      return {0, 1.5f, -3.25e-12f, 3.4e38f, -1.1754944e-38f, 0.1f};
    default:
      return {0, 0.1, -3.25e-212, 1.7e308, -2.2250738585072014e-308, 4.9e-324};
  }
}

TEST(Seg2, AllFormatsInBothByteOrdersAreReadToTheBit) {
  for (bool big : kBothOrders)
    for (int code = 1; code <= 5; ++code) {
      Seg2Spec spec;
      spec.bigEndian = big;
      spec.traces = {Trace(SamplesFor(code), {"RECEIVER_LOCATION 12.5"}, code)};
      const Seg2File file = Good(Seg2Bytes(spec));
      ASSERT_EQ(file.traces.size(), 1u);
      EXPECT_EQ(file.bigEndian, big);
      EXPECT_EQ(file.traces[0].code, code);
      EXPECT_EQ(file.traces[0].samples, SamplesFor(code)) << "code " << code << ", big endian " << big;
      EXPECT_THAT(file.traces[0].receiver, ElementsAre(12.5));
      EXPECT_EQ(file.traces[0].interval, 0.001);
    }
}

TEST(Seg2, PackedSamplesTakeTheirExponentFromTheLowestBitsOn) {
  // Exponents 1, 2, 3, 4; mantissas 3, -3 (one's complement), 0 as FFFF, 5.
  for (bool big : kBothOrders) {
    Seg2Spec spec;
    spec.bigEndian = big;
    spec.traces = {Trace({0, 0, 0, 0}, {}, 3)};
    std::string bytes = Seg2Bytes(spec);
    std::string data;
    for (unsigned word : {0x4321u, 0x0003u, 0xFFFCu, 0xFFFFu, 0x0005u})
      data += test::Seg2Number(word, 2, big);
    bytes.replace(bytes.size() - data.size(), data.size(), data);
    const Seg2File file = Good(bytes);
    ASSERT_EQ(file.traces.size(), 1u);
    EXPECT_THAT(file.traces[0].samples, ElementsAre(6.0, -12.0, 0.0, 80.0));
    EXPECT_FALSE(std::signbit(file.traces[0].samples[2]));
  }
}

// ---- what real recorders do -----------------------------------------------------------------------------

TEST(Seg2Trap, PointerBlockLongerThanItsPointers) {
  Seg2Spec spec = TwoTraces();
  spec.pointerBlock = 4224;
  const Seg2File file = Good(Seg2Bytes(spec));
  EXPECT_EQ(Seg2Value(file.strings, "UNITS"), "METERS");
  ASSERT_EQ(file.traces.size(), 2u);
  EXPECT_THAT(file.traces[1].samples, ElementsAre(4.0, 5.0));
}

TEST(Seg2Trap, BlocksInAnotherOrderThanThePointers) {
  Seg2Spec spec = TwoTraces();
  spec.blocksBackwards = true;
  const Seg2File file = Good(Seg2Bytes(spec));
  ASSERT_EQ(file.traces.size(), 2u);
  EXPECT_EQ(file.traces[0].number, 1);
  EXPECT_THAT(file.traces[0].samples, ElementsAre(1.5, -2.25, 3.0));
  EXPECT_THAT(file.traces[1].receiver, ElementsAre(4.0));
  EXPECT_EQ(Seg2Value(file.strings, "UNITS"), "METERS");
}

TEST(Seg2Trap, NoteLongerThanItsText) {
  Seg2Spec spec = TwoTraces();
  spec.traces[0].rawStrings = Seg2String("NOTE \n DISPLAY_SCALE 76 \n\n", kNul + kNul, false, "rest\0\0\n") +
                              Seg2String("SAMPLE_INTERVAL 0.25", kNul, false) + kNul + kNul;
  const Seg2File file = Good(Seg2Bytes(spec));
  ASSERT_EQ(file.traces.size(), 2u);
  EXPECT_EQ(Seg2Value(file.traces[0].strings, "NOTE"), "DISPLAY_SCALE 76");
  EXPECT_EQ(file.traces[0].interval, 0.25);
}

TEST(Seg2Trap, TextWithoutTerminatorEndsAtItsDistance) {
  Seg2Spec spec = TwoTraces();
  spec.traces[0].rawStrings =
      Seg2String("SAMPLE_INTERVAL 0.5", "", false) + Seg2String("DELAY -0.125", "", false) + kNul + kNul;
  const Seg2File file = Good(Seg2Bytes(spec));
  ASSERT_EQ(file.traces.size(), 2u);
  EXPECT_EQ(file.traces[0].interval, 0.5);
  EXPECT_EQ(file.traces[0].delay, -0.125);
}

TEST(Seg2Trap, TerminatorOfTwoBytes) {
  for (const std::string& terminator : {std::string("\r\n"), std::string("\x0C\x0A")}) {
    Seg2Spec spec = TwoTraces();
    spec.terminator = terminator;
    spec.traces[0].rawStrings = Seg2String("SAMPLE_INTERVAL 0.5", terminator, false, "9") +
                                Seg2String("DELAY -0.125", terminator, false) + kNul + kNul;
    const Seg2File file = Good(Seg2Bytes(spec));
    ASSERT_EQ(file.traces.size(), 2u);
    EXPECT_EQ(file.traces[0].interval, 0.5);
    EXPECT_EQ(Seg2Value(file.traces[0].strings, "DELAY"), "-0.125");
    EXPECT_EQ(Seg2Value(file.strings, "UNITS"), "METERS");
  }
}

TEST(Seg2Trap, DistanceThatLeadsNowhereStopsTheListAndKeepsTheTrace) {
  for (std::size_t distance : {1u, 2u, 5000u, 65535u}) {
    Seg2Spec spec = TwoTraces();
    spec.traces[0].rawStrings = Seg2String("SAMPLE_INTERVAL 0.5", kNul, false) +
                                test::Seg2Number(distance, 2, false) + "DELAY 7" + kNul + kNul + kNul;
    const Seg2File file = Good(Seg2Bytes(spec));
    ASSERT_EQ(file.traces.size(), 2u) << distance;
    EXPECT_EQ(file.traces[0].interval, 0.5);
    EXPECT_FALSE(file.traces[0].delay);
    EXPECT_THAT(file.traces[0].samples, ElementsAre(1.5, -2.25, 3.0));
    EXPECT_THAT(file.remarks, ElementsAre("trace 1: the list of its keys is damaged and read up to there"));
  }
}

TEST(Seg2Trap, WhatLeadsBeyondTheFileCostsItsTraceOnly) {
  const auto refused = [](const std::function<void(Seg2Spec&)>& change) {
    Seg2Spec spec = TwoTraces();
    change(spec);
    const Seg2File file = Good(Seg2Bytes(spec));
    EXPECT_EQ(file.traces.size(), 1u);
    EXPECT_EQ(file.refused.size(), 1u);
    return file.refused.empty() ? std::string() : file.refused.front();
  };
  EXPECT_EQ(refused([](Seg2Spec& s) { s.traces[1].claimedBytes = 17; }),
            "trace 2: its 17 bytes of data reach beyond the file");
  EXPECT_EQ(refused([](Seg2Spec& s) { s.traces[1].claimedSamples = 3; }),
            "trace 2: its 3 samples reach beyond the file");
  EXPECT_EQ(refused([](Seg2Spec& s) { s.traces[1].claimedSamples = 4294967295u; }),
            "trace 2: its 4294967295 samples reach beyond the file");
  EXPECT_EQ(refused([](Seg2Spec& s) {
              s.traces[1].code = 6;
              s.traces[1].samples.clear();
              s.traces[1].claimedSamples = 1;
            }),
            "trace 2: its samples have the format code 6, which does not exist");

  const auto patched = [](std::size_t at, std::string_view with) {
    std::string bytes = Seg2Bytes(TwoTraces());
    bytes.replace(at, with.size(), with);
    const Seg2File file = Good(bytes);
    EXPECT_EQ(file.traces.size(), 1u);
    return file.refused.empty() ? std::string() : file.refused.front();
  };
  EXPECT_EQ(patched(32, "\xFF\xFF\xFF\xFF"),
            "trace 1: its pointer leads to byte 4294967295, after the end of the file");
  EXPECT_EQ(patched(36, std::string("\x24\0\0\0", 4)), "trace 2: there is no trace at byte 36");
}

TEST(Seg2Trap, BlockThatCannotBeInTheFileCostsItsTraceOnly) {
  std::string bytes = Seg2Bytes(TwoTraces());
  const std::size_t first = bytes.find("\x22\x44");
  for (const std::string& size : {std::string("\x1F\0", 2), std::string("\xFF\xFF", 2)}) {
    bytes.replace(first + 2, 2, size);
    const Seg2File file = Good(bytes);
    EXPECT_THAT(file.refused, ElementsAre(HasSubstr("trace 1: its block of")));
  }
}

TEST(Seg2Trap, DataBlockTooSmallForItsSamplesIsReadToTheEndOfTheFile) {
  Seg2Spec spec = TwoTraces();
  spec.traces[0].claimedBytes = 8;
  const Seg2File file = Good(Seg2Bytes(spec));
  ASSERT_EQ(file.traces.size(), 2u);
  EXPECT_THAT(file.traces[0].samples, ElementsAre(1.5, -2.25, 3.0));
  EXPECT_THAT(file.remarks,
              ElementsAre("trace 1: 3 samples need 24 bytes and its block states 8; all are read"));
}

TEST(Seg2Trap, PackedSamplesThatAreNoMultipleOfFour) {
  for (std::size_t n : {1u, 2u, 3u, 5u, 7u}) {
    std::vector<double> samples;
    for (std::size_t i = 0; i < n; ++i) samples.push_back(100.0 * static_cast<double>(i) - 150.0);
    Seg2Spec spec;
    spec.traces = {Trace(samples, {}, 3), Trace(samples, {}, 3)};
    const std::string bytes = Seg2Bytes(spec);
    const Seg2File file = Good(bytes);
    ASSERT_EQ(file.traces.size(), 2u) << n;
    EXPECT_EQ(file.traces[1].samples, samples);
    Seg2File cut;
    EXPECT_EQ(ReadSeg2(std::string_view(bytes).substr(0, bytes.size() - 1), cut), "");
    EXPECT_EQ(cut.traces.size(), 1u) << "the last group is not whole";
  }
}

TEST(Seg2Trap, NumbersAsRecordersWriteThem) {
  EXPECT_EQ(Seg2Number("0,0005"), 0.0005);
  EXPECT_EQ(Seg2Number("24 DB"), 24.0);
  EXPECT_EQ(Seg2Number("2.697400E-003"), 0.0026974);
  EXPECT_EQ(Seg2Number("1.5D-04"), 1.5e-4);
  EXPECT_EQ(Seg2Number("   -0.02"), -0.02);
  EXPECT_EQ(Seg2Number("+7"), 7.0);
  EXPECT_FALSE(Seg2Number("NONE"));
  EXPECT_FALSE(Seg2Number("nan"));
  EXPECT_FALSE(Seg2Number("inf"));
  EXPECT_FALSE(Seg2Number("1e999"));
  EXPECT_FALSE(Seg2Number(""));
  EXPECT_THAT(Seg2Numbers("12,5"), ElementsAre(12.5));
  EXPECT_THAT(Seg2Numbers("  10.0  2.5 -1"), ElementsAre(10.0, 2.5, -1.0));
  EXPECT_THAT(Seg2Numbers("10,5 2,5 0"), ElementsAre(10.5, 2.5, 0.0));
  EXPECT_THAT(Seg2Numbers("10.0,2.5,0"), ElementsAre(10.0, 2.5, 0.0));
  EXPECT_THAT(Seg2Numbers("1,2,3"), ElementsAre(1.0, 2.0, 3.0));
  EXPECT_THAT(Seg2Numbers("12.5 M"), ElementsAre(12.5));
  EXPECT_THAT(Seg2Numbers("1 2 3 4"), ElementsAre(1.0, 2.0, 3.0));
  EXPECT_THAT(Seg2Numbers("unknown"), ElementsAre());
}

TEST(Seg2Trap, KeysInLowerCaseAndDoubledKeys) {
  Seg2Spec spec;
  spec.traces = {Trace({1, 2}, {"sample_interval 0.25", "Delay 1", "DELAY 2", "receiver_location 3"})};
  const Seg2File file = Good(Seg2Bytes(spec));
  ASSERT_EQ(file.traces.size(), 1u);
  EXPECT_EQ(file.traces[0].interval, 0.25);
  EXPECT_EQ(file.traces[0].delay, 1.0);
  EXPECT_THAT(file.traces[0].receiver, ElementsAre(3.0));
}

TEST(Seg2Trap, TheFirstTwoBytesDecideWhateverTheName) {
  test::TempFolder folder;
  const std::string bytes = Seg2Bytes(TwoTraces());
  for (const char* name : {"shot.dat", "shot.sg2", "shot.seg2", "shot.SG2", "shot", "shot.txt"}) {
    test::WriteWhole(folder.File(name), bytes);
    Shot shot;
    EXPECT_EQ(ReadSeg2Shot(folder.File(name), shot), "") << name;
    EXPECT_EQ(shot.traces.size(), 2u);
  }
}

TEST(Seg2Trap, FreeFormOfAnotherMakerIsNoSeg2File) {
  EXPECT_EQ(Refusal("Channels: 24\nInterval: 0.5 ms\n0.1 0.2 0.3\n"), "not a SEG-2 file");
  EXPECT_EQ(Refusal(""), "not a SEG-2 file");
  EXPECT_EQ(Refusal("\x55"), "not a SEG-2 file");
  EXPECT_EQ(Refusal("\x55\x3A"), "the file ends inside its first block");
}

TEST(Seg2Trap, NoneOneAndMoreThanAThousandTraces) {
  Seg2Spec spec;
  EXPECT_EQ(Refusal(Seg2Bytes(spec)), "the file holds no traces");
  spec.traces.assign(1, Trace({1, 2}));
  EXPECT_EQ(Good(Seg2Bytes(spec)).traces.size(), 1u);
  spec.traces.assign(1500, Trace({1, 2}));
  EXPECT_EQ(Good(Seg2Bytes(spec)).traces.size(), 1500u);
  spec.traces.assign(4097, Trace({1, 2}));
  EXPECT_EQ(Refusal(Seg2Bytes(spec)), "the file states 4097 traces, and at most 4096 are read");
}

TEST(Seg2, TraceWithoutIntervalIsRefusedByName) {
  Seg2Spec spec = TwoTraces();
  spec.traces[0].strings.pop_back();
  const Seg2File file = Good(Seg2Bytes(spec));
  EXPECT_EQ(file.traces.size(), 1u);
  EXPECT_THAT(file.refused, ElementsAre("trace 1: SAMPLE_INTERVAL is missing"));
  spec.traces[0].strings.push_back("SAMPLE_INTERVAL 0");
  EXPECT_THAT(Good(Seg2Bytes(spec)).refused, ElementsAre("trace 1: SAMPLE_INTERVAL is not a time above 0"));
}

TEST(Seg2, PointersThatShareATraceDoNotMultiplyIt) {
  Seg2Spec spec;
  spec.traces.assign(3, Trace(std::vector<double>(100, 1.0)));
  std::string bytes = Seg2Bytes(spec);
  const std::string first = bytes.substr(32, 4);
  for (std::size_t i = 1; i < 3; ++i) bytes.replace(32 + 4 * i, 4, first);
  bytes.resize(bytes.size() - 2 * 800);
  const Seg2File file = Good(bytes);
  EXPECT_EQ(file.traces.size(), 1u);
  EXPECT_THAT(file.refused, ElementsAre("trace 2: its block overlaps those of other traces",
                                        "trace 3: its block overlaps those of other traces"));
}

TEST(Seg2, MorePointersThanTheirBlockHoldsAreMissing) {
  std::string bytes = Seg2Bytes(TwoTraces());
  bytes[6] = 40;  // traces, with room for two pointers
  const Seg2File file = Good(bytes);
  EXPECT_EQ(file.traces.size(), 2u);
  ASSERT_EQ(file.refused.size(), 11u);
  EXPECT_EQ(file.refused[0], "trace 3: its pointer is missing");
  EXPECT_EQ(file.refused.back(), "28 more traces are damaged");
}

TEST(Seg2, AFileCutAnywhereGivesWholeTracesOrOneSentence) {
  for (bool big : kBothOrders) {
    Seg2Spec spec = TwoTraces();
    spec.bigEndian = big;
    const std::string bytes = Seg2Bytes(spec);
    for (std::size_t n = 0; n < bytes.size(); ++n) {
      Seg2File file;
      const std::string reason = ReadSeg2(std::string_view(bytes).substr(0, n), file);
      EXPECT_EQ(reason.empty(), !file.traces.empty()) << n;
      for (const Seg2Trace& t : file.traces)
        EXPECT_EQ(t.samples.size(), spec.traces[static_cast<std::size_t>(t.number - 1)].samples.size()) << n;
    }
  }
}

TEST(Seg2, AnyByteChangedIsReadOrRefused) {
  const std::string good = Seg2Bytes(TwoTraces());
  for (std::size_t i = 0; i < good.size(); ++i)
    for (char with : {'\0', '\x01', '\x7F', '\xFF'}) {
      std::string bytes = good;
      bytes[i] = with;
      Seg2File file;
      const std::string reason = ReadSeg2(bytes, file);
      EXPECT_EQ(reason.empty(), !file.traces.empty()) << i;
      std::size_t numbers = 0;
      for (const Seg2Trace& t : file.traces) numbers += t.samples.size();
      EXPECT_LE(numbers, good.size());
    }
}

TEST(Seg2, NumbersAreReadTheSameInALocaleWithCommas) {
  const test::CommaLocale locale;
  EXPECT_EQ(Seg2Number("0.0005"), 0.0005);
  EXPECT_EQ(Seg2Number("0,0005"), 0.0005);
}

// ---- records of others ----------------------------------------------------------------------------------

std::uint32_t Crc32(const std::string& bytes) {
  std::uint32_t crc = 0xFFFFFFFFu;
  for (char c : bytes) {
    crc ^= static_cast<unsigned char>(c);
    for (int i = 0; i < 8; ++i) crc = crc & 1 ? crc >> 1 ^ 0xEDB88320u : crc >> 1;
  }
  return ~crc;
}

void ExpectSamples(const Seg2Trace& trace, const nlohmann::json& expected) {
  const std::vector<double>& x = trace.samples;
  ASSERT_EQ(x.size(), expected.at("samples").get<std::size_t>());
  const std::vector<double> first = expected.at("first"), last = expected.at("last");
  EXPECT_TRUE(std::equal(first.begin(), first.end(), x.begin()));
  EXPECT_TRUE(std::equal(last.rbegin(), last.rend(), x.rbegin()));
  double sum = 0.0, squares = 0.0;
  std::size_t peak = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    sum += x[i];
    squares += x[i] * x[i];
    if (std::fabs(x[i]) > std::fabs(x[peak])) peak = i;
  }
  EXPECT_NEAR(sum, expected.at("sum").get<double>(), 1e-9 * std::sqrt(squares));
  EXPECT_NEAR(squares, expected.at("sum_sq").get<double>(), 1e-12 * squares);
  EXPECT_EQ(peak, expected.at("peak_at").get<std::size_t>());
  EXPECT_EQ(std::fabs(x[peak]), std::fabs(expected.at("peak").get<double>()));
  EXPECT_EQ(Crc32(test::Seg2Samples(x, 5, false)), expected.at("crc32_f64le").get<std::uint32_t>());
}

TEST(Seg2Records, GiveTheNumbersOfAnotherReader) {
  SKIP_WITHOUT_FIELD_DATA("seg2");
  const auto all = nlohmann::json::parse(test::ReadWhole(test::FieldFile("seg2/expected_seg2.json")));
  ASSERT_EQ(all.size(), 3u);
  for (const auto& [name, expected] : all.items()) {
    const Seg2File file = Good(test::ReadWhole(test::FieldFile("seg2/" + name)));
    EXPECT_EQ(file.bigEndian, expected.at("big_endian").get<bool>());
    EXPECT_EQ(Seg2Value(file.strings, "INSTRUMENT"), expected.at("instrument").get<std::string>());
    EXPECT_EQ(Seg2Value(file.strings, "UNITS"), expected.at("units").get<std::string>());
    EXPECT_TRUE(file.refused.empty() && file.remarks.empty());
    ASSERT_EQ(file.traces.size(), expected.at("traces").get<std::size_t>()) << name;
    for (std::size_t i = 0; i < file.traces.size(); ++i) {
      SCOPED_TRACE(name + ", trace " + std::to_string(i + 1));
      const Seg2Trace& t = file.traces[i];
      const auto& e = expected.at("trace").at(i);
      EXPECT_EQ(t.code, e.at("code").get<int>());
      EXPECT_EQ(t.interval, e.at("dt").get<double>());
      EXPECT_EQ(t.delay, e.at("delay").get<double>());
      EXPECT_EQ(t.factor, e.at("descaling").get<double>());
      EXPECT_EQ(t.stack, e.at("stack").get<int>());
      EXPECT_EQ(t.receiver, e.at("receiver").get<std::vector<double>>());
      EXPECT_EQ(t.source, e.at("source").get<std::vector<double>>());
      EXPECT_EQ(Seg2Number(Seg2Value(t.strings, "CHANNEL_NUMBER").value_or("")),
                e.at("channel").get<double>());
      ExpectSamples(t, e);
    }
  }
}

TEST(Seg2Records, CutAnywhereDoNoHarm) {
  SKIP_WITHOUT_FIELD_DATA("seg2");
  const std::string bytes = test::ReadWhole(test::FieldFile("seg2/smartseis_20bit.seg2"));
  for (std::size_t n = 0; n < bytes.size(); ++n) {
    Seg2File file;
    EXPECT_NE(ReadSeg2(std::string_view(bytes).substr(0, n), file), "") << n;
    EXPECT_TRUE(file.traces.empty());
  }
}

}  // namespace
}  // namespace sondera::testing
