// One QApplication for a test program: made before the first test, destroyed after
// the last (include in exactly one source file of the program).
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

namespace vglobal::testing {

class QtApplicationEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    static int argc = 1;
    static char name[] = "widgets_test";
    static char* argv[] = {name, nullptr};
    app_ = std::make_unique<QApplication>(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("Widgets Test"));
  }
  void TearDown() override { app_.reset(); }

 private:
  std::unique_ptr<QApplication> app_;
};

inline ::testing::Environment* const kQtApplication =
    ::testing::AddGlobalTestEnvironment(new QtApplicationEnvironment);

}  // namespace vglobal::testing
