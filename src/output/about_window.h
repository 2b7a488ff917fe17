#pragma once

#include <QDialog>

namespace trendaro {

// About: name and version of the program. As a splash it has no button and no frame.
class AboutWindow : public QDialog {
  Q_OBJECT

 public:
  enum class Use { Dialog, Splash };

  explicit AboutWindow(Use use, QWidget* parent = nullptr);
};

}  // namespace trendaro
