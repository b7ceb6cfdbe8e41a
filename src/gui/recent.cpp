// recent.cpp - see recent.h. Owns no state except the file.
#include "gui/recent.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <algorithm>

#include "gui/qt_text.h"

namespace sondera {
namespace {

QString StateFile() {
  QString folder = qEnvironmentVariable("XDG_STATE_HOME");
  if (!QDir::isAbsolutePath(folder)) folder = QDir::homePath() + QStringLiteral("/.local/state");
  return folder + QStringLiteral("/sondera/windows.ini");
}

const QString kProjects = QStringLiteral("recent/projects"), kRescued = QStringLiteral("rescued/project");

void Write(const std::vector<std::string>& files) {
  QStringList list;
  for (const std::string& file : files) list << ToQt(file);
  QSettings(StateFile(), QSettings::IniFormat).setValue(kProjects, list);
}

}  // namespace

std::vector<std::string> RecentFiles() {
  std::vector<std::string> files;
  const QSettings settings(StateFile(), QSettings::IniFormat);
  for (const QString& file : settings.value(kProjects).toStringList())
    if (!file.isEmpty() && static_cast<int>(files.size()) < kRecentFiles) files.push_back(FromQt(file));
  return files;
}

void NoteRecentFile(const std::string& path) {
  const std::string whole = FromQt(QFileInfo(ToQt(path)).absoluteFilePath());
  std::vector<std::string> files = RecentFiles();
  std::erase(files, whole);
  files.insert(files.begin(), whole);
  if (static_cast<int>(files.size()) > kRecentFiles) files.resize(kRecentFiles);
  Write(files);
}

void ForgetRecentFile(const std::string& path) {
  std::vector<std::string> files = RecentFiles();
  std::erase(files, path);
  Write(files);
}

void NoteRescuedProject(const std::string& path) {
  QSettings(StateFile(), QSettings::IniFormat).setValue(kRescued, ToQt(path));
}

std::string TakeRescuedProject() {
  QSettings settings(StateFile(), QSettings::IniFormat);
  std::string path = FromQt(settings.value(kRescued).toString());
  if (!path.empty()) settings.remove(kRescued);
  return path;
}

QByteArray WindowPlace(const std::string& window) {
  const QSettings settings(StateFile(), QSettings::IniFormat);
  return settings.value(QStringLiteral("place/") + ToQt(window)).toByteArray();
}

void NoteWindowPlace(const std::string& window, const QByteArray& place) {
  QSettings(StateFile(), QSettings::IniFormat).setValue(QStringLiteral("place/") + ToQt(window), place);
}

}  // namespace sondera
