// app_fixture.h - tests of the whole program in one process: a started session, recorded dialogs, a separate
// current folder.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "acquisition/daq_driver.h"
#include "app/startup.h"
#include "support/recording_front_end.h"
#include "support/temp_folder.h"

namespace sondera::testing {

class AppTest : public ::testing::Test {
 protected:
  void SetUp() override {
    formerDirectory_ = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    StartSession();
  }
  void TearDown() override {
    InstallDaqDriver(&daqNone);
    StartSession();
    std::filesystem::current_path(formerDirectory_);
  }

  void Write(const std::string& name, const std::string& text) { std::ofstream(folder.File(name)) << text; }
  bool Exists(const std::string& name) { return std::filesystem::exists(folder.File(name)); }

  test::TempFolder folder;
  RecordingFrontEnd frontEnd;

 private:
  std::filesystem::path formerDirectory_;
};

}  // namespace sondera::testing
