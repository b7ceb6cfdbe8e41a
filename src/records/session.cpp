// session.cpp - defaults of the session state.
#include "records/session.h"

#include "runtime/paths.h"

namespace sondera {

Session session;

namespace {

struct SiteVelocities {
  std::array<double, 5> sm, bb;
};
constexpr SiteVelocities kSiteVelocities[] = {
    {{0, 2500, 2400, 35, 30}, {0, 1000, 950, 110, 100}},       // geotechnical
    {{0, 4000, 3950, 550, 500}, {0, 3000, 2950, 1550, 1500}},  // concrete
    {{0, 3000, 2950, 550, 500}, {0, 2000, 1950, 1050, 1000}},  // pavement
};

}  // namespace

void ResetSession() {
  session = Session{};
  session.device.aiVoltageRngs.fill(10.0);
  session.device.aiVoltageRngs.back() = 0.0;
  session.measBuffer.assign(static_cast<std::size_t>(session.samplesPerChan) * session.curChannels, 0.0);
}

void SetSiteVelocities(int category) {
  if (category < 0 || category > 2) return;
  session.siteCategory = category;
  session.smV = kSiteVelocities[category].sm;
  session.bbV = kSiteVelocities[category].bb;
}

std::string CutDeviceName(const std::string& name) {
  return name.substr(0, 4);
}

std::string SessionTitle() {
  return session.appTitle + " - " + session.curProjID + ":" + session.curMeasID;
}

std::string ProjectDirectory() {
  const std::string directory = DirectoryOf(session.projectFileName);
  return directory.empty() ? CurrentDirectory() : directory;
}

}  // namespace sondera
