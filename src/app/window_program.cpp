#include "app/window_program.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTimer>
#include <QTranslator>
#include <cstdio>
#include <memory>

#include "app/file_arguments.h"
#include "app/first_place.h"
#include "app/icons.h"
#include "app/main_window.h"
#include "app/memory_host.h"
#include "app/model.h"
#include "app/splash.h"
#include "app/startup.h"
#include "app/toolkit_notes.h"
#include "app/window_shell.h"

namespace trendaro {
namespace {

constexpr int kSplashTime = 500;  // milliseconds

// The toolkit's own texts, in its file dialog for instance.
void load_german_texts(QApplication& application) {
  QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
  auto* texts = new QTranslator(&application);
  if (texts->load(QStringLiteral("qtbase_de"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(texts);
}

void open_files(Kelmira& window, Model& model, const OpenWindow& call) {
  for (const FileArgument& file : call.files) window.run([&] { open_file_argument(model, file); });
}

// Draws the window into the file that was asked for and ends the program.
void draw_and_end(Kelmira& window, const QString& file) {
  const bool saved = window.grab().save(file);
  if (!saved) std::fprintf(stderr, "%s: nicht geschrieben\n", qPrintable(file));
  QApplication::exit(saved ? 0 : 1);
}

}  // namespace

int run_window(const OpenWindow& call, int argument_count, char** arguments) {
  say_failures_only();
  QApplication application(argument_count, arguments);
  QApplication::setApplicationName(QStringLiteral("Trendaro"));
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication::setWindowIcon(load_icon("TRENDARO"));
  load_german_texts(application);

  std::unique_ptr<AboutWindow> splash = show_splash();
  WindowShell shell;
  Model model(shell);
  MemoryHost host(shell);
  if (!call.without_host) {
    model.Host = &host;
    model.Kernel = &host;
  }
  wait_with_painting(kSplashTime);
  load_main_window(model);
  Kelmira window(model, shell);
  splash.reset();
  const QString picture = qEnvironmentVariable("TRENDARO_PICTURE");
  if (picture.isEmpty())
    show_at_first(window);
  else
    window.show();
  QTimer::singleShot(0, &window, [&] {
    open_files(window, model, call);
    if (!picture.isEmpty()) QTimer::singleShot(0, &window, [&] { draw_and_end(window, picture); });
  });
  return QApplication::exec();
}

}  // namespace trendaro
