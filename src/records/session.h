// session.h - process-wide state of the session that belongs to no measurement: names, device facts,
// velocities of the site category, display records of the traces, the buffer of the running measurement.
//
// One instance, `session`. ResetSession restores the state of a fresh start without a board; StartSession of
// app/startup does that and makes the first measurement.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/lock_file.h"
#include "runtime/version.h"

namespace sondera {

/// Properties that a board reported. Without a board: four channels, 102400 Hz, 10 V.
struct DeviceFacts {
  std::string devName;         ///< at most four characters; longer names are cut wherever one is read
  int devCategory = 0;         ///< product category as the driver reports it, 0 without a board
  std::string devProductType;  ///< e.g. "USB-4432"
  int maxChannels = 4;
  double aiMaxRate = 102400.0;
  double aiMinRate = 0.0;
  std::array<double, 256>
      aiVoltageRngs{};  ///< volts; pairs of low and high limit, ended by 0 (no board: all 10)
  int aiCouplings = 0;
  int aiTriggerSupported = 1;  ///< 0: the board cannot trigger on a level
  std::string aiPhysicalChans;
};

struct MeasOptions {
  int nChannels = 4;
  short word = 1;
  int previewOn = 0;
};

/// Range of one axis; equal limits mean automatic.
struct AxisRange {
  double min = 0.0, max = 0.0;
};

/// Limits of a trace's axes in one family of displays: in force, or to be restored.
struct TraceLimits {
  AxisRange x, y;
};

/// Settings of one trace's display. Channels count from 0.
struct DisplayRecord {
  int key = 0;
  int refChan = 0;
  int dspChan = 0;
  int type = 0;  ///< index in the list of display types
  std::string measID;
  int voltUnit = 0;
  int logLinear = 0;
  int markersOnOff = 0;
  int autoScaleX = 1;
  int autoScaleY = 1;
  int maskingOn = 1;  ///< masks are drawn on this trace
  int active = 0;
  std::array<TraceLimits, 2> limits{};  ///< by family: displays over time, over frequency
};

/// Axis record of a curve page: quantity on each axis (0 phase velocity, 1 frequency, 2 wavelength), its
/// scale (0 logarithmic, 1 linear) and whether its limits follow the curves; and the range of each quantity.
struct AxisRecord {
  int handle = 0;
  int xType = 2, xLinear = 0, xAutoScale = 1;
  int yType = 0, yLinear = 1, yAutoScale = 1;
  int last = 0;
  std::array<AxisRange, 3> range{};  ///< by quantity
};

/// Copy of the mask that was last picked on the graph.
struct PickedMask {
  int key = 0, refChan = 0, dspChan = 0;
  double freqInit = 0.0, freqFinal = 0.0;  ///< Hz
  int jumpNo = 0;
};

/// Four-colour scale of an intensity map, 0xRRGGBB.
struct ColorScale {
  int lo = 0, int1 = 0xFF, int2 = 0xFF0000, hi = 0xFFFF00;
};

struct Session {
  std::string appTitle{kAppTitle};   ///< first argument of every box
  std::string curProjID = "ProjID";  ///< current selection
  std::string curMeasID = "measID";
  std::string projectFileName;    ///< empty: never saved
  LockFile projectLock;           ///< of projectFileName, while it is open and where there are locks
  std::uint64_t savedDigest = 0;  ///< of the project as last read or written (panels/mainmenu_project.h)
  bool readInPart = false;        ///< the open file was damaged: the file holds more than was read
  std::string damagedFile;        ///< the opened file was not read, or not completely: it holds more
  bool damagedKept = false;       ///< that file has its copy ".damaged"
  std::string resultFolder;       ///< where runs leave their files; empty: the current folder
  std::vector<int> fileKeyList;   ///< keys met during a project load, in file order
  int configDone = 0;             ///< 1: the hardware settings have been validated

  DeviceFacts device;
  MeasOptions measOptions;
  int curChannels = 4;

  // Running measurement. measBuffer: channels one after the other, samplesPerChan volts each.
  int avgCount = 0;           ///< records folded in so far
  int samplesPerChan = 1024;  ///< with decimation
  std::vector<double> measBuffer;

  double lengthUnit = 1.0;   ///< metres per unit of length
  double rawFileReal = 0.0;  ///< last number of a ".srd" file: kept from load to save, not used

  // Pseudo velocities of the filter windows, m/s, index 1 to 4 (0 unused): enhanced (sm) and backbone (bb)
  // set.
  int siteCategory = 0;  ///< 0 geotechnical, 1 concrete, 2 pavement
  std::array<double, 5> smV{0, 2500, 2400, 35, 30};
  std::array<double, 5> bbV{0, 1000, 950, 110, 100};

  double alphaWlen = 0.25;  ///< wavelength criterion of the dispersion curves

  int refChan = 0, dspChan = 0;          ///< channels last selected, for routines called from another page
  std::array<DisplayRecord, 2> display;  ///< traces A and B
  AxisRecord dispAxis, exdAxis;
  int nextCurveColor = 0;  ///< colour index for the next dispersion curve that has none
  PickedMask selMask;
  int maskingColor = (255 << 16) | (153 << 8) | 51;

  ColorScale gaborColor, tomoColor;
  double gaborThreshold = 75.0;  ///< floor of the 0 to 100 scale, for new pairs
  double gaborTop = 100.0;
};

extern Session session;

/// State of a fresh start without a board.
void ResetSession();

/// Sets the eight pseudo velocities of a site category (m/s); an unknown category changes nothing.
void SetSiteVelocities(int category);

/// A device name as the driver needs it: cut to four characters.
std::string CutDeviceName(const std::string& name);

/// Title of the main window: "app - project:measurement" before the project has a file.
std::string SessionTitle();

/// Where file dialogs start: the folder of the project, the current one without a project.
std::string ProjectDirectory();

}  // namespace sondera
