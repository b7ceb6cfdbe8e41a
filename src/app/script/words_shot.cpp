// words_shot.cpp - the words that make receiver pairs from whole shots: read seg2, read columns.
#include <cmath>
#include <cstdio>

#include "app/script/fault.h"
#include "app/script/run.h"
#include "app/script/values.h"
#include "panels/loadtxdata_import.h"
#include "project/import_seg2.h"
#include "project/shot_columns.h"
#include "project/shot_import.h"
#include "project/shot_preview.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/paths.h"

namespace sondera::script {
namespace {

constexpr std::string_view kUnits = "m|ft|cm|in", kSides = "left|right";
constexpr double kMetres[] = {1.0, 0.3048, 0.01, 0.0254};

/// The plan asks a person for missing values; a script has arguments for them.
std::string WithHint(std::string reason) {
  const auto has = [&](std::string_view text) { return reason.find(text) != std::string::npos; };
  if (reason.ends_with('.')) reason.pop_back();
  if (has("give the place")) reason += ": source= and at=";
  if (has("say in which unit")) reason += ": unit=";
  if (has("choose a side")) reason += ": side=";
  if (has("give the sampling interval")) reason += ": dt=";
  return reason;
}

ShotRequest RequestOf(const Arguments& a) {
  ShotRequest request;
  request.projID = GetCtrlVal(hmsetup::PROJID);
  for (const std::string& file : a.texts("files"))
    request.files.push_back(JoinUnlessAbsolute(CurrentDirectory(), file));
  ShotChoices& choices = request.choices;
  choices.measID = a.text("id");
  if (a.has("channels"))
    for (double channel : a.numbers("channels")) choices.channels.push_back(static_cast<int>(channel));
  choices.pairs = a.text("pairs", "yes") == "yes";
  if (a.has("side")) choices.side = a.choice("side") == 0 ? ShotSide::Left : ShotSide::Right;
  choices.nearest = a.number("near", 0.0);
  if (a.has("source")) choices.source = a.number("source");
  if (a.has("at")) choices.at = a.numbers("at");
  if (a.has("unit")) choices.lengthUnit = kMetres[a.choice("unit")];
  choices.placesUnit = session.lengthUnit;
  choices.alpha = session.alphaWlen;
  choices.wholeRate = a.has("rate");
  choices.correctSkew = a.has("skew");
  choices.overwrite = a.isYes("overwrite");
  return request;
}

void Import(const Arguments& a, const ShotRequest& request) {
  if (a.isYes("preview")) {
    const ShotPreview preview = PreviewShots(request);
    std::fputs(PreviewText(preview).c_str(), stdout);
    std::fflush(stdout);
    if (!preview.fault.empty()) throw Fault(preview.fault);
    return;
  }
  ShotPlan plan;
  std::string reason = PlanShots(request, plan);
  if (reason.empty() && !request.choices.overwrite)
    if (const auto there = MeasurementsThatExist(request, plan); !there.empty())
      reason = "the measurement " + Quoted(there.front()) + " exists; overwrite=yes replaces it";
  if (reason.empty()) reason = LoadShots(request, plan);
  if (!reason.empty()) throw Fault(WithHint(std::move(reason)));
}

void ReadSeg2Files(Run&, const Arguments& a) {
  ShotRequest request = RequestOf(a);
  request.read = ReadSeg2Shot;
  Import(a, request);
}

void ReadColumnFiles(Run&, const Arguments& a) {
  ShotRequest request = RequestOf(a);
  request.read = ColumnReader(a.number("dt", 0.0));
  Import(a, request);
}

void CheckShot(const Arguments& a) {
  if (a.has("channels"))
    for (double channel : a.numbers("channels"))
      if (!(channel >= 1.0) || channel != std::floor(channel) || channel > 1e6)
        throw Fault("channels= takes whole numbers from 1 on");
  if (a.has("at") && !a.has("source")) throw Fault("at= takes the place of the source too: source=");
  if (a.has("dt") && !(a.number("dt") > 0.0)) throw Fault("dt= has to be above 0");
}

}  // namespace

WordForm ReadSeg2Form() {
  return {
      "read",
      {Literal("seg2")},
      {Named("id", Kind::Text, "ID"), List("files", Kind::Texts, "A,B,..."),
       Optional(List("channels", Kind::Numbers, "C1,C2,...")), Optional(Named("pairs", Kind::Choice, kYesNo)),
       Optional(Named("near", Kind::Number)), Optional(Named("side", Kind::Choice, kSides)),
       Optional(Named("source", Kind::Number)), Optional(List("at", Kind::Numbers, "X1,X2,...")),
       Optional(Named("unit", Kind::Choice, kUnits)), Optional(Named("rate", Kind::Choice, "whole")),
       Optional(Named("skew", Kind::Choice, "correct")), Flag("overwrite"), Flag("preview")},
      "Reads shots of one place as averages (SEG-2) and makes a measurement ID_NEAR_FAR of each receiver "
      "pair; "
      "with pairs=no one measurement of all planned receivers. Values that the files do not contain must be "
      "given: "
      "source= and at=, unit=, and side= for a source inside the line. With preview=yes it prints what it "
      "understood of the first file, and the plan or what is missing for it, and imports nothing.",
      ReadSeg2Files,
      CheckShot};
}

WordForm ReadColumnsForm() {
  return {
      "read",
      {Literal("columns")},
      {Named("id", Kind::Text, "ID"), List("files", Kind::Texts, "A,B,..."), Named("source", Kind::Number),
       List("at", Kind::Numbers, "X1,X2,..."), Optional(Named("dt", Kind::Number)),
       Optional(List("channels", Kind::Numbers, "C1,C2,...")), Optional(Named("pairs", Kind::Choice, kYesNo)),
       Optional(Named("near", Kind::Number)), Optional(Named("side", Kind::Choice, kSides)),
       Optional(Named("unit", Kind::Choice, kUnits)), Flag("overwrite"), Flag("preview")},
      "The same from texts of a column for each channel. The first column is the time in s, unless dt= gives "
      "the sampling interval.",
      ReadColumnFiles,
      CheckShot};
}

}  // namespace sondera::script
