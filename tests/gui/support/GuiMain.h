// main() of a widget test: the program's user has a new, empty home.
#pragma once

#include <cstdlib>

#include <QApplication>
#include <QDir>
#include <QTest>

#include "tests/support/ScratchFolder.h"

namespace tembrel::test {

template <class TestObject>
int RunGuiTest(int argc, char** argv) {
  const ScratchFolder home;
  setenv("HOME", home.Path().c_str(), 1);
  setenv("XDG_CONFIG_HOME", (home / "config").c_str(), 1);
  setenv("XDG_DATA_HOME", (home / "data").c_str(), 1);
  setenv("XDG_CACHE_HOME", (home / "cache").c_str(), 1);
  setenv("XDG_RUNTIME_DIR", home.Path().c_str(), 1);
  const QApplication application(argc, argv);
  QApplication::setApplicationName("Tembrel");
  TestObject test;
  const int failures = QTest::qExec(&test, argc, argv);
  QDir::setCurrent("/");
  return failures;
}

}  // namespace tembrel::test

// An anonymous namespace holds the test class: its name is free in every program.
#define TEMBREL_GUI_TEST(TestObject)                          \
  int main(int argc, char** argv) {                           \
    return tembrel::test::RunGuiTest<TestObject>(argc, argv); \
  }
