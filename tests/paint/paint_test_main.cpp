#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argument_count, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argument_count, arguments);
  testing::InitGoogleTest(&argument_count, arguments);
  return RUN_ALL_TESTS();
}
