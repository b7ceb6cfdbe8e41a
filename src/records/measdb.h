// measdb.h - MeasDB, the in-memory database of the open project, and the records in it.
//
// A measurement is identified by an integer key and by its texts (ProjID, MeasID). A receiver pair within it
// is (key, refChan, dspChan), channels counted from 0. MeasDB owns every record; pointers handed out are
// borrowed and become invalid with the next Free...List, Setup...Arrays or load. List positions count from 1,
// -1 means not found. All look-ups search the lists from the front: the number of measurements is small.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "numeric/offset_array.h"

namespace sondera {

/// Identity of a measurement. Texts are at most 255 bytes.
struct IDInfo {
  int key = 0;
  std::string ProjID, MeasID;
};

/// How a measurement was taken. freqSpan < 0 marks imported spectra: then startFreq, stopFreq, spanKind hold.
struct HWSetup {
  int key = 0;
  int nChannels = 0;        ///< at least 1
  int refChannel = 0;       ///< reference channel shown, from 0; not stored
  int nLines = 0;           ///< frequency lines
  double freqSpan = 0.0;    ///< Hz
  double timeLength = 0.0;  ///< s
  double deltaF = 0.0;      ///< Hz
  double deltaT = 0.0;      ///< s
  double startFreq = 0.0;   ///< Hz
  double stopFreq = 0.0;    ///< Hz, upper limit of the analysis band
  int spanKind = 0;
  int decimation = 1;              ///< keep every n-th sample of the board; 0 counts as 1
  std::vector<int> coupling;       ///< [nChannels] 0 AC, 1 DC
  std::vector<int> grounding;      ///< [nChannels] 1 floating, 0 grounded
  std::vector<double> inputRange;  ///< [nChannels] volts
  double reservedReal = 0.0;       ///< stored, otherwise unused
  int triggerChannel = -1;         ///< -1 free run
  int triggerSlope = 1;
  double triggerDelay = 10.0;  ///< pre-trigger share, per cent of the record
  double triggerLevel = 10.0;  ///< mV
  int averageOn = 1;
  int reservedInt = 0;  ///< stored, otherwise unused
  int nAverage = 5;
  int sensorType = 0;  ///< 0 voltage, 1 and 2 sensors; not stored
};

/// Positions of source and receivers, in units of lengthUnit.
struct MeasSetup {
  int key = 0;
  double srcLoc = 0.0;
  std::vector<double> recLoc;  ///< [nChannels]
  int wlenFilter = 0;          ///< stored, otherwise unused
  double lengthUnit = 1.0;     ///< metres per unit
};

/// Averaged data. Six blocks of 2 * P * nChannels doubles, P = FullTimeLines(nLines); zero when made. Readers take
/// channel c at c * 2 * nLines, CalcSpectralFns fills it at c * 2 * P: the same for a power of two.
struct RawData {
  int key = 0;
  std::vector<double> timeHist;                  ///< last time record, V
  std::vector<double> linSpecRe, linSpecIm;      ///< linear spectrum, rms scaled
  std::vector<double> powerSpec;                 ///< auto power spectrum
  std::vector<double> crossSpecRe, crossSpecIm;  ///< cross power spectrum against channel 0
};
/// The blocks in the order of the project file.
inline constexpr std::array<std::vector<double> RawData::*, 6> kRawBlocks = {
    &RawData::timeHist,  &RawData::linSpecRe,   &RawData::linSpecIm,
    &RawData::powerSpec, &RawData::crossSpecRe, &RawData::crossSpecIm};

/// Frequency range of a pair that is unfit for use, with the absolute number of phase cycles there.
struct MaskingInfo {
  int key = 0, refChan = 0, dspChan = 0;
  double freqInit = 0.0, freqFinal = 0.0;  ///< Hz
  int jumpNo = 0;
  int lineInit = 0, lineFinal = 0;
};

inline constexpr int kGaborDivisions = 50;  ///< rows and columns of a Gabor map
/// Rows (frequency) of 50 columns (time), in dB.
using GaborMap = std::array<double, static_cast<std::size_t>(kGaborDivisions) * kGaborDivisions>;

/// All data of one receiver pair. With n = FullTimeLines(nLines): arrays of 2n doubles, maskFlag, dispVel,
/// dispFreq and dispWlen of n entries; index 0 is the first line or sample.
struct PMeasInfo {
  int key = 0, refChan = 0, dspChan = 0;
  std::vector<int> maskFlag;                   ///< 1: the line lies under a mask
  std::vector<double> hRe, hIm, hAmp, hPhase;  ///< transfer function; wrapped phase in degrees
  std::vector<double> phaseOrig;               ///< unwrapped phase, degrees
  std::vector<double> irRe, irIm;              ///< impulse response
  std::vector<double> bbRe, bbIm, bbAmp, bbPhase, phaseBB, bbIrRe, bbIrIm;  ///< backbone window
  std::vector<double> enRe, enIm, enAmp, enPhase, phaseEn, enIrRe, enIrIm;  ///< enhanced window
  std::unique_ptr<std::array<GaborMap, 3>> gabor;  ///< maps for phase options 0, 1, 2; null: all zero
  int irfMode = 0;                                 ///< 0 band pass, 1 low pass
  double gaborTimeStep = 0.015625, gaborFreqStep = 0.0625;  ///< stored, otherwise unused
  std::array<double, 5> bbT{}, enT{};  ///< window times 1 to 4 (0 unused), s; a fourth of 0: not set
  int timeDiv = kGaborDivisions;
  double initTime = 0.0, finalTime = 0.0;  ///< s
  int freqDiv = kGaborDivisions;
  double initFreq = 0.0, finalFreq = 0.0;  ///< Hz
  double beta = 3.0, band = 0.5;
  int nContLevel = 10;
  double cntThreshold = 75.0;
  int phaseOption = 0;  ///< curve in use: 0 original, 1 enhanced, 2 backbone
  int reservedInt = 0;  ///< stored, otherwise unused
  int nDispPoints = 0;
  int included = 0;  ///< 1: takes part in the representative curves
  int marker = 12, color = -1;
  double wlenCrit = 0.25;
  std::vector<double> dispVel, dispFreq, dispWlen;  ///< the pair's dispersion curve, frequency ascending
  int polyOrderA = 0, polyOrderB = 0;

  int capacity() const { return static_cast<int>(maskFlag.size()); }
  /// Map of a phase option, created with zeros on first use.
  GaborMap& gaborMap(int option);
};
/// The 21 arrays of 2n doubles, in the order of the project file.
inline constexpr std::array<std::vector<double> PMeasInfo::*, 21> kPairArrays = {
    &PMeasInfo::hRe,     &PMeasInfo::hIm,     &PMeasInfo::hAmp,    &PMeasInfo::hPhase,  &PMeasInfo::phaseOrig,
    &PMeasInfo::irRe,    &PMeasInfo::irIm,    &PMeasInfo::bbRe,    &PMeasInfo::bbIm,    &PMeasInfo::bbAmp,
    &PMeasInfo::bbPhase, &PMeasInfo::phaseBB, &PMeasInfo::bbIrRe,  &PMeasInfo::bbIrIm,  &PMeasInfo::enRe,
    &PMeasInfo::enIm,    &PMeasInfo::enAmp,   &PMeasInfo::enPhase, &PMeasInfo::phaseEn, &PMeasInfo::enIrRe,
    &PMeasInfo::enIrIm};

/// Representative curve: global (key 0, channels 1 and 1) or of one pair's array. Arrays 1..nPoints.
struct DispInfo {
  int key = 0;
  int nPoints = 0;
  int refChan = 0, dspChan = 0;
  int valid = 0;
  std::string label;
  double wlenMax = 0.0;                      ///< position of the curve on the line, for the section image
  OffsetVector<double> freq, vel, wlen;      ///< Hz, length/s, length
  OffsetVector<double> stat1, stat2, stat3;  ///< amplitude, deviation of velocity, deviation of amplitude
};
/// The six arrays in the order of the project file.
inline constexpr std::array<OffsetVector<double> DispInfo::*, 6> kDispArrays = {
    &DispInfo::freq, &DispInfo::vel, &DispInfo::wlen, &DispInfo::stat1, &DispInfo::stat2, &DispInfo::stat3};

/// Ordered list that owns its items; positions count from 1.
template <class T>
class RecordList {
 public:
  int count() const { return static_cast<int>(items_.size()); }
  bool empty() const { return items_.empty(); }
  /// Item at a position, null outside the list.
  T* at(int position) const {
    return position >= 1 && position <= count() ? items_[static_cast<std::size_t>(position - 1)].get()
                                                : nullptr;
  }
  /// Appends and returns the borrowed item.
  T* append(std::unique_ptr<T> item) {
    items_.push_back(std::move(item));
    return items_.back().get();
  }
  T* append() { return append(std::make_unique<T>()); }
  /// Removes an item from the list and returns it; null outside.
  std::unique_ptr<T> remove(int position) {
    if (position < 1 || position > count()) return nullptr;
    auto item = std::move(items_[static_cast<std::size_t>(position - 1)]);
    items_.erase(items_.begin() + (position - 1));
    return item;
  }
  void clear() { items_.clear(); }
  /// Position of the first item with this key, -1 without one.
  int findKey(int key) const {
    for (int i = 1; i <= count(); ++i)
      if (at(i)->key == key) return i;
    return -1;
  }

  // Range-for gives T&.
  class Iterator {
   public:
    explicit Iterator(const std::unique_ptr<T>* p) : p_(p) {}
    T& operator*() const { return **p_; }
    Iterator& operator++() {
      ++p_;
      return *this;
    }
    bool operator!=(const Iterator& o) const { return p_ != o.p_; }

   private:
    const std::unique_ptr<T>* p_;
  };
  Iterator begin() const { return Iterator(items_.data()); }
  Iterator end() const { return Iterator(items_.data() + items_.size()); }

 private:
  std::vector<std::unique_ptr<T>> items_;
};

struct MeasDatabase {
  RecordList<IDInfo> idList;
  RecordList<MeasSetup> measSetupList;
  RecordList<HWSetup> hwSetupList;
  RecordList<RawData> rawDataList;
  RecordList<MaskingInfo> maskingList;
  RecordList<PMeasInfo> pMeasList;
  RecordList<DispInfo> gDispList;
  RecordList<DispInfo> aDispList;

  int auxLength = 1024;     ///< entries of the working arrays, grows only
  int nLinesDefault = 512;  ///< default number of lines, follows auxLength
};
extern MeasDatabase MeasDB;

/// Next power of two at or above n, by integer arithmetic; 1 for n <= 1. Bounded: at most 2^30.
int FullTimeLines(int n);

// ---- keys -----------------------------------------------------------------------------------------------------------

/// Key of the pair of texts when it exists; then nothing changes. Otherwise appends an item with the given
/// key, or, for key 0, with the highest key in the list + 1 (1 for an empty list), and returns it.
int InsertNewIDInfo(const std::string& projID, const std::string& measID, int key = 0);
/// Key of the first item with both texts, else -1.
int GetKeyFromID(const std::string& projID, const std::string& measID);
/// Texts of a key; false, with both unchanged, when there is none.
bool GetIDfromKey(int key, std::string& projID, std::string& measID);

/// Result of GetInfoFromKey. A record that does not exist leaves its pointer unchanged, with position -1:
/// test the position.
struct MeasRecords {
  std::string projID, measID;
  MeasSetup* measSetup = nullptr;
  RawData* rawData = nullptr;
  HWSetup* hwSetup = nullptr;
  int measPos = -1, rawPos = -1, hwPos = -1;
};
/// Returns the key; -1 for key -1 (out unchanged) or an unknown key (positions -1).
int GetInfoFromKey(int key, MeasRecords& out);

/// Scans the whole pair list and takes the last match. pos -1 for none. Returns the key, or -1 for key -1 or an
/// unknown key. projID and measID get the texts of a known key.
int GetPairMInfoFromKey(int key, int refChan, int dspChan, std::string& projID, std::string& measID,
                        PMeasInfo*& pair, int& pos);
/// The same for callers that need the record only: null when there is none.
PMeasInfo* FindPair(int key, int refChan, int dspChan);

/// Number of items of idList. Kept: a count, not the highest key; after a deletion the two differ.
int GetLastKey();
/// Removes the item of the key; its former position, or -1.
int DeleteIDfromList(int key);

// ---- set up: the record of the key is found, or appended to its list; its arrays are allocated anew
// ------------------

/// Sets key and nChannels and makes the three channel arrays (zero).
HWSetup* SetupHWSetupArrays(int key, int nChannels);
/// recLoc gets HWSetup.nChannels entries (the HWSetup must be there; without one: no entries).
MeasSetup* SetupMSetupArrays(int key);
/// The six blocks of 2 * FullTimeLines(nLines) * nChannels zeros; grows the working arrays.
RawData* SetupRawDataArrays(int key);
/// Gives a pair record its arrays for nLines. All its data are cleared, including its identity. nLines <= 0:
/// nothing.
void SetupPairMeasArrays(PMeasInfo& pair, int nLines);
/// Does that for every pair of a measurement and restores key and channels: results are lost, identities
/// stay. -1 for key -1 or an unknown key.
int UpdatePairMeasArrays(int key, int nLines);
/// Increases the length of the working arrays and the default number of lines that depends on it.
void SetupAuxiallyArrays(int n);
/// Empty database, default sizes.
void SetupGlobalArrays();

// ---- free -----------------------------------------------------------------------------------------------------------

void FreeIDList();
void FreeMeasList();
void FreeHWSetupList();
void FreeRawDataList();
void FreePMeasInfoList();
void FreeMaskingInfoList();
void FreeDispList(RecordList<DispInfo>& list);
/// Removes the masks of a key: all of them when both channels are 0, otherwise those of the pair. Kept: the
/// pair (0, 0) therefore means the whole measurement, and key -1 matches nothing.
void FreeMaskingInfo(int key, int refChan, int dspChan);
/// Clears all that a new project or a load replaces, in the required order. Masks stay (see
/// FreeMaskingInfo(-1, 0, 0)).
void EmptyProjectLists();
/// Everything.
void FreeGlobalArrays();
/// Removes one measurement: data, setups, pairs and identity. Its masks and representative curves stay.
void RemoveMeasurement(int key);

// ---- copy -----------------------------------------------------------------------------------------------------------

/// key is the new key. Kept: refChannel, decimation, sensorType, startFreq, stopFreq and spanKind are not copied.
void CopyHWSetup(HWSetup& dst, const HWSetup& src, int key);
void CopyMeasSetup(MeasSetup& dst, const MeasSetup& src, int key);
/// SetupRawDataArrays for the key, then 2 * nLines * nChannels * decimation entries of each block, up to the
/// shorter length.
void CopyRawData(RawData& dst, const RawData& src, int key);

// ---- representative curves ------------------------------------------------------------------------------------------

/// Six zero arrays of 1..n. n below 0 counts as 0.
void SetupDispArrays(DispInfo& d, int n);

/// Band limits of a measured or time-imported record (freqSpan >= 0): startFreq 0, stopFreq = freqSpan. A
/// phase display sets them, and so does code that needs the limits before anything was displayed.
void BringBandLimitsUpToDate(HWSetup& hw);
/// Upper end of the analysis band: stopFreq of imported spectra, else freqSpan. Hz.
double BandEnd(const HWSetup& hw);

}  // namespace sondera
