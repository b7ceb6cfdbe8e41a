// Runs the tests of the windows on a screen in memory. Arguments NAME=VALUE are set in the environment before the
// toolkit starts: the scale of the screen, the language of the desktop.
#include <gmock/gmock.h>

#include <QApplication>
#include <clocale>
#include <string>

#include "support/temp_folder.h"

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    const std::size_t equals = word.find('=');
    if (word[0] != '-' && equals != std::string::npos)
      qputenv(word.substr(0, equals).c_str(), word.substr(equals + 1).c_str());
  }
  // The toolkit keeps the last folders of its dialogs below this one.
  const sondera::test::TempFolder settings;
  qputenv("XDG_CONFIG_HOME", settings.Path().c_str());
  QApplication app(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  return RUN_ALL_TESTS();
}
