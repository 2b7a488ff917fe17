#include "app/program_window.h"

#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "app/file_arguments.h"
#include "app/icons.h"
#include "app/startup.h"

namespace trendaro {
namespace {

// The toolkit's own texts, in its file dialog for instance.
void load_german_texts(QApplication& application) {
  QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
  auto* texts = new QTranslator(&application);
  if (texts->load(QStringLiteral("qtbase_de"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(texts);
}

}  // namespace

void prepare_application(QApplication& application) {
  QApplication::setApplicationName(QStringLiteral("Trendaro"));
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication::setWindowIcon(load_icon("TRENDARO"));
  load_german_texts(application);
}

void ProgramWindow::load() {
  load_main_window(model);
  window = std::make_unique<Kelmira>(model, shell);
}

void ProgramWindow::open(const std::vector<FileArgument>& files) {
  if (model.Host == nullptr) return;  // the window refuses to start
  for (const FileArgument& file : files) window->run([&] { open_file_argument(model, file); });
}

}  // namespace trendaro
