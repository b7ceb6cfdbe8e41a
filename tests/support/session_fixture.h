// session_fixture.h - start of every test of the logic: all process-wide state at its first value, a
// recording front end, and helpers that put a measurement into the database and on display.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "records/measdb.h"
#include "runtime/controls.h"
#include "support/recording_front_end.h"

namespace sondera::testing {

/// The state of every folder as at the start of the program, without redraw handlers. Callbacks in the store stay.
void ResetEverything();

/// Records of a measurement made for a test; borrowed from MeasDB.
struct TestMeasurement {
  int key = -1;
  std::string projID, measID;
  HWSetup* hw = nullptr;
  MeasSetup* setup = nullptr;
  RawData* raw = nullptr;
};

/// Settings for AddMeasurement. Receivers are spacing apart, the first one spacing after the source.
struct MeasurementPlan {
  std::string projID = "ProjID", measID = "measID";
  int nChannels = 2;
  int nLines = 512;
  double deltaT = 0.001;  ///< s; freqSpan = 0.5 / deltaT, deltaF = freqSpan / nLines
  double srcLoc = 0.0;
  double spacing = 10.0;
  double lengthUnit = 1.0;
};

/// Puts a measurement with zero data into the database. An id that is there already keeps its key.
TestMeasurement AddMeasurement(const MeasurementPlan& plan = {});

/// Makes it the current measurement of the session and of the setup dialog, and puts the pair (channels from
/// 0) on trace A of the masking and the measurement page. Both traces get the channel lists of the
/// measurement.
void SelectPair(const TestMeasurement& m, int refChan, int dspChan);

/// The labels of a list, from the first one.
std::vector<std::string> LabelsOf(const ListControl& list);

/// SetUp brings everything to a known state and installs the recording front end.
class SessionTest : public ::testing::Test {
 protected:
  void SetUp() override { ResetEverything(); }
  void TearDown() override { ResetEverything(); }

  /// Text of the only message so far; says so when there is none or more than one.
  std::string OnlyMessage() const;
  /// Its first line, and the lines after it.
  std::string OnlyMessageHead() const;
  std::string OnlyMessageCause() const;

  RecordingFrontEnd frontEnd;
};

}  // namespace sondera::testing
