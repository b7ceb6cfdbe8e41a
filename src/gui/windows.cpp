// windows.cpp - see windows.h. Owns the QApplication, which is created at its first use and exists until the
// end.
#include "gui/windows.h"

#include <dlfcn.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <string>

#include "gui/boxes.h"
#include "gui/figures.h"
#include "gui/help_window.h"
#include "gui/loop.h"
#include "gui/main_window.h"
#include "gui/qt_text.h"
#include "gui/question_strip.h"
#include "gui/refresh.h"
#include "runtime/dialogs.h"
#include "runtime/version.h"

namespace sondera {
namespace {

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

/// Connects in the same way as Qt, since Qt ends the process if it fails.
bool XServerAnswers() {
  if (Environment("DISPLAY").empty()) return false;
  void* library = dlopen("libxcb.so.1", RTLD_NOW | RTLD_LOCAL);
  if (!library) return false;
  const auto connect = reinterpret_cast<void* (*)(const char*, int*)>(dlsym(library, "xcb_connect"));
  const auto hasError = reinterpret_cast<int (*)(void*)>(dlsym(library, "xcb_connection_has_error"));
  const auto disconnect = reinterpret_cast<void (*)(void*)>(dlsym(library, "xcb_disconnect"));
  bool answers = false;
  if (connect && hasError && disconnect) {
    void* connection = connect(nullptr, nullptr);
    answers = hasError(connection) == 0;
    disconnect(connection);
  }
  return answers;  // the library stays loaded: Qt uses it next
}

/// Whether a compositor answers, and the plug-in for it exists.
bool WaylandAnswers() {
  const std::string name = Environment("WAYLAND_DISPLAY"), folder = Environment("XDG_RUNTIME_DIR");
  if (name.empty()) return false;
  const QDir plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"));
  if (plugins.entryList({QStringLiteral("libqwayland*")}).isEmpty()) return false;
  const std::string path = name.front() == '/' ? name : folder + "/" + name;
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) return false;
  std::memcpy(address.sun_path, path.c_str(), path.size());
  const int s = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (s < 0) return false;
  const bool answers = connect(s, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  close(s);
  return answers;
}

/// QApplication keeps references to these.
struct Arguments {
  int count = 1;
  char name[8] = "sondera";
  char* words[2] = {name, nullptr};
};

struct ApplicationState {
  Arguments arguments;
  QApplication* application = nullptr;  // never deleted: at the end of the process parts of Qt go before it
};
ApplicationState state;

void MakeApplication() {
  if (qApp) return;
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  state.application = new QApplication(state.arguments.count, state.arguments.words);
  QApplication::setApplicationName(QStringLiteral("sondera"));
  QApplication::setApplicationDisplayName({});
  QApplication::setApplicationVersion(QStringLiteral(SONDERA_VERSION));
  QApplication::setQuitOnLastWindowClosed(false);
}

}  // namespace

bool DisplayIsThere() {
  if (qApp) return true;
  const std::string platform = Environment("QT_QPA_PLATFORM");
  if (platform.starts_with("offscreen") || platform.starts_with("minimal") || platform.starts_with("vnc"))
    return true;
  if (platform.starts_with("wayland")) return WaylandAnswers();
  if (platform.starts_with("xcb")) return XServerAnswers();
  return XServerAnswers() || WaylandAnswers();
}

bool InstallWindows() {
  if (!DisplayIsThere()) return false;
  MakeApplication();
  // The toolkit uses the desktop's locale; numbers in files and scripts have a point everywhere.
  std::setlocale(LC_NUMERIC, "C");
  QLocale::setDefault(QLocale::c());
  FrontEnd f;
  f.name = "windows";
  f.message = [](std::string_view title, std::string_view text) {
    FlushViews();
    ShowMessageBox(title, text);
  };
  f.confirm = [](std::string_view title, std::string_view text) {
    FlushViews();
    return AskYesNo(title, text);
  };
  f.confirmOnPage = [](Panel page, std::string_view title, std::string_view text) {
    FlushViews();
    return AskOnPage(page, title, text);
  };
  f.prompt = [](std::string_view title, std::string_view text, int maxLength) {
    FlushViews();
    return AskText(title, text, maxLength);
  };
  f.selectFile = [](const FileRequest& request) {
    FlushViews();
    return AskFile(request);
  };
  f.processEvents = Poll;
  f.run = RunLoop;
  f.quit = QuitLoop;
  f.waitCursor = ShowWaitCursor;
  f.print = PrintSheet;
  f.showManual = [] { return ShowHelpWindow(MainWindowWidget()) == 0; };
  InstallFrontEnd(std::move(f));
  std::signal(SIGINT, SIG_DFL);  // the windows have an end of their own (gui/sudden_end.h)
  return true;
}

extern "C" bool SonderaInstallWindows() {
  return InstallWindows();
}

}  // namespace sondera
