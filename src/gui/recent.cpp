// recent.cpp - see recent.h. Owns no state except the file.
#include "gui/recent.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QThread>
#include <algorithm>

#include "gui/qt_text.h"

namespace sondera {
namespace {

constexpr int kLongestWait = 2000, kStep = 5;  // ms, for another program that is changing the file

QString StateFolder() {
  QString folder = qEnvironmentVariable("XDG_STATE_HOME");
  if (!QDir::isAbsolutePath(folder)) folder = QDir::homePath() + QStringLiteral("/.local/state");
  return folder + QStringLiteral("/sondera");
}

QString StateFile() {
  return StateFolder() + QStringLiteral("/windows.ini");
}

/// While it lives, no other program of this person changes the file. The settings' own lock holds for one
/// write only: a list that was read before it would lose what another program has put in.
class OneChange {
 public:
  OneChange() : lock_(StateFolder() + QStringLiteral("/change.lock")) {
    if (!QDir().mkpath(StateFolder())) return;  // nothing can be written there either
    // The lock's own wait doubles its pauses, up to seconds.
    for (int waited = 0; !lock_.tryLock(0) && waited < kLongestWait; waited += kStep) {
      if (lock_.error() != QLockFile::LockFailedError) return;
      QThread::msleep(kStep);
    }
  }

 private:
  QLockFile lock_;
};

const QString kProjects = QStringLiteral("recent/projects"), kRescued = QStringLiteral("rescued/project");

void Write(const std::vector<std::string>& files) {
  QStringList list;
  for (const std::string& file : files) list << ToQt(file);
  QSettings(StateFile(), QSettings::IniFormat).setValue(kProjects, list);
}

/// The next start may be in another folder.
QString WholePath(const std::string& path) {
  return QFileInfo(ToQt(path)).absoluteFilePath();
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
  const std::string whole = FromQt(WholePath(path));
  const OneChange change;
  std::vector<std::string> files = RecentFiles();
  std::erase(files, whole);
  files.insert(files.begin(), whole);
  if (static_cast<int>(files.size()) > kRecentFiles) files.resize(kRecentFiles);
  Write(files);
}

void ForgetRecentFile(const std::string& path) {
  const OneChange change;
  std::vector<std::string> files = RecentFiles();
  std::erase(files, path);
  Write(files);
}

void NoteRescuedProject(const std::string& path) {
  const OneChange change;
  QSettings(StateFile(), QSettings::IniFormat).setValue(kRescued, WholePath(path));
}

std::string TakeRescuedProject() {
  const OneChange change;
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
  const OneChange change;
  QSettings(StateFile(), QSettings::IniFormat).setValue(QStringLiteral("place/") + ToQt(window), place);
}

}  // namespace sondera
