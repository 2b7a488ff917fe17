#include "output/online_help.h"

#include <filesystem>

#include "app/model.h"

namespace trendaro {

void mnuOnlineHelp(Model& model) {
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(model.HelpFile, ignored))
    return model.shell.show_message("Die Hilfedatei " + model.HelpFile + " ist nicht vorhanden.",
                                    kProgramTitle, MessageIcon::Information);
  if (!model.shell.open_document(model.HelpFile))
    model.shell.show_message("Kein Programm kann die Hilfedatei " + model.HelpFile + " anzeigen.",
                             kProgramTitle, MessageIcon::Information);
}

}  // namespace trendaro
