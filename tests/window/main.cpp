#include <QApplication>

#include <gtest/gtest.h>

// The widgets' tests need an application and no display.
int main(int argument_count, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argument_count, arguments);
  const QApplication application(argument_count, arguments);
  QApplication::setStyle(QStringLiteral("Fusion"));
  return RUN_ALL_TESTS();
}
