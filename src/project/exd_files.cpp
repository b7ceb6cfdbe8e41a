// exd_files.cpp - see exd_files.h.
#include "project/exd_files.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "project/import_record.h"
#include "project/text_helpers.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/files.h"

namespace sondera {
namespace {

constexpr std::string_view kHeading = "ID : ";
constexpr int kHeaderRest = 4;        // lines between the number of points and the first point
constexpr int kMostPoints = 1 << 18;  // each measurement gets its records; no instrument records more
constexpr std::size_t kIdLength = 80;
constexpr int kMostPrompts = 10;  // new ids asked for in a row
constexpr double kFoot = 0.3048;

struct ExdCurve {
  std::string measID;
  std::vector<double> velocity, frequency, wavelength;
};

/// Metres per unit by a line like "unit = 1"; nothing without a number.
std::optional<double> UnitOf(const std::string& line) {
  const auto token = Tokenizer(line, "unit =\r\n").Next();
  if (!token) return std::nullopt;
  return ParseInt(*token) == 0 ? kFoot : 1.0;
}

bool TakeNumber(Tokenizer& tokens, std::vector<double>& out) {
  const auto token = tokens.Next();
  std::size_t used = 0;
  const double value = token ? ParseReal(*token, &used) : 0.0;
  if (used == 0 || !std::isfinite(value)) return false;
  out.push_back(value);
  return true;
}

/// State of reading one file.
class ExdReader {
 public:
  ExdReader(TextReader& text, const std::string& fname, const ExdQuestions& questions)
      : text_(text), fname_(fname), questions_(questions) {}
  ExdOutcome run();

 private:
  bool nextLine() {
    if (!text_.ReadLine(line_)) return false;
    ++lineNumber_;
    return true;
  }
  /// Keeps the first problem.
  void note(const std::string& what) {
    if (trouble_.empty()) trouble_ = what;
  }
  bool readPoints(ExdCurve& curve);
  bool readCurve();
  bool claim(std::string measID, ImportRequest& request, ImportRecords& records);
  void store(const ExdCurve& curve);

  TextReader& text_;
  const std::string& fname_;
  const ExdQuestions& questions_;
  std::string line_, trouble_, lastID_;
  int lineNumber_ = 0;
  std::optional<double> unit_;
};

/// Rest of the header, and the points. False when there are fewer than stated; line_ then holds the line that
/// was not a point.
bool ExdReader::readPoints(ExdCurve& curve) {
  const int start = lineNumber_;
  const std::size_t colon = nextLine() ? line_.find(':') : std::string::npos;
  std::size_t used = 0;
  const int n = colon == std::string::npos ? -1 : ParseInt(std::string_view(line_).substr(colon + 1), &used);
  if (used == 0 || n < 0 || n > kMostPoints) {
    note(FormatText("The curve in line %d has no number of points.", start));
    return false;
  }
  for (int i = 0; i < kHeaderRest; ++i) nextLine();
  for (int i = 0; i < n; ++i) {
    Tokenizer tokens(std::string_view{});
    const bool there =
        nextLine() && line_.ends_with('\n');  // an incomplete last line may end within a number
    if (there) tokens = Tokenizer(std::string_view(line_), " ,\t\r\n");
    if (!there || !TakeNumber(tokens, curve.velocity) || !TakeNumber(tokens, curve.frequency) ||
        !TakeNumber(tokens, curve.wavelength)) {
      note(FormatText("The curve in line %d claims %d points and has %d.", start, n, i));
      return false;
    }
  }
  return true;
}

/// Curve with its heading in line_. True when line_ is finished, false when it must be examined again.
bool ExdReader::readCurve() {
  ExdCurve curve;
  const std::string heading = line_;
  const auto token = Tokenizer(std::string_view(heading).substr(kHeading.size()), "_[").Next();
  curve.measID = ExtractMeasID(token.value_or(std::string_view())) + "@" + fname_;
  while (!curve.measID.empty() && (curve.measID.back() == '\n' || curve.measID.back() == '\r'))
    curve.measID.pop_back();
  if (!readPoints(curve)) return false;  // it has read at least one line, or the text is at its end
  if (!curve.velocity.empty()) store(curve);
  return true;
}

/// Decides the id of an imported curve. False when the curve is left out.
bool ExdReader::claim(std::string measID, ImportRequest& request, ImportRecords& records) {
  for (int tries = 0; tries < kMostPrompts; ++tries) {
    request.measID = measID;
    if (BeginImport(request, IfPresent::Ask, records)) return true;
    const auto answer = questions_.newMeasID ? questions_.newMeasID() : std::nullopt;
    if (!answer || answer->empty()) break;
    measID = answer->substr(0, kIdLength);
  }
  note("The curve " + measID + " was not loaded: its ID is in the list already.");
  return false;
}

void ExdReader::store(const ExdCurve& curve) {
  const int n = static_cast<int>(curve.velocity.size());
  ImportRequest request;
  request.projID = questions_.projID;
  request.mayOverwrite = questions_.mayOverwrite;
  request.nChannels = 2;
  ImportRecords records;
  if (!claim(curve.measID, request, records)) return;

  SpectrumLayout layout;
  layout.nLines = n + 1;
  layout.freqSpan = n * 1.0;
  layout.stopFreq = layout.freqSpan;
  layout.deltaT = 0.5 / layout.freqSpan;
  layout.timeLength = (2 * (n + 1) - 1) * layout.deltaT;
  layout.deltaF = 1.0;
  MakeSpectrumRecords(request, layout, records);
  CompletePairs(request, records);
  if (questions_.made) questions_.made(request.measID);
  lastID_ = request.measID;

  PMeasInfo* pair = FindPair(records.key, 0, 1);
  if (!pair && questions_.makePair) pair = questions_.makePair(request.measID, *records.hw);
  if (!pair) return;
  const auto put = [](const std::vector<double>& from, std::vector<double>& to) {
    std::fill(std::copy(from.begin(), from.end(), to.begin()), to.end(), 0.0);
  };
  put(curve.velocity, pair->dispVel);
  put(curve.frequency, pair->dispFreq);
  put(curve.wavelength, pair->dispWlen);
  pair->nDispPoints = n;
  pair->included = 1;
}

ExdOutcome ExdReader::run() {
  bool fetch = true;
  while (!fetch || nextLine()) {
    fetch = true;
    if (line_.starts_with("u")) {
      if (const auto unit = UnitOf(line_)) unit_ = unit;
    } else if (line_.starts_with(kHeading)) {
      fetch = readCurve();
    } else if (line_.find_first_not_of(" \t\r\n") != std::string::npos) {
      note(FormatText("Line %d belongs to no curve.", lineNumber_));
    }
  }
  if (text_.ReadFailed()) note("It could not be read to its end.");
  if (unit_) session.lengthUnit = *unit_;  // after the records, which show a unit of their own
  return {trouble_, unit_};
}

/// Amplitude of the phase in use at a frequency: points have no line numbers, since a curve leaves lines out.
double AmplitudeAt(const PMeasInfo& p, double frequency) {
  const HWSetup* hw = MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(p.key));
  const std::vector<double>& amplitude = p.phaseOption == 0 ? p.hAmp : p.phaseOption == 1 ? p.enAmp : p.bbAmp;
  const double line = hw && hw->deltaF > 0.0 ? std::round(frequency / hw->deltaF) : -1.0;
  const bool inside = line >= 0.0 && line < static_cast<double>(amplitude.size());
  return inside ? amplitude[static_cast<std::size_t>(line)] : 0.0;
}

void WriteCurve(TextWriter& text, const PMeasInfo& p, const std::string& measID) {
  const std::size_t n = std::min(static_cast<std::size_t>(p.nDispPoints), p.dispVel.size());
  text.Printf("ID : %s_[%d:%d]\n", measID.c_str(), p.refChan, p.dspChan);
  text.Printf("No. of Points in Dispersion Curve : %d\n", static_cast<int>(n));
  text.Printf("markerType: 0\nmarkerLine: 0\ncolorType: %d\n", p.color);
  text.Put("     Vel         Freq       waveL       TRFamp\n");
  for (std::size_t i = 0; i < n; ++i)
    text.Printf("%lg \t%lg \t%lg \t%lg \n", p.dispVel[i], p.dispFreq[i], p.dispWlen[i],
                AmplitudeAt(p, p.dispFreq[i]));
}

}  // namespace

ExdOutcome ReadExdCurves(TextReader& text, const std::string& fname, const ExdQuestions& questions) {
  return ExdReader(text, fname, questions).run();
}

Refusal WriteExdCurves(const std::string& path) {
  TextWriter text(path);
  for (const PMeasInfo& p : MeasDB.pMeasList) {
    std::string projID, measID;
    if (p.included != 1 || p.nDispPoints < 0) continue;
    GetIDfromKey(p.key, projID, measID);
    WriteCurve(text, p, measID);
  }
  if (text.Close()) return {};
  return FormatText("Error in saving the exp. disp. curve into file %s.", path.c_str());
}

}  // namespace sondera
