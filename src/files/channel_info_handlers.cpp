#include "files/channel_info_handlers.h"

#include <string>

#include "app/model.h"
#include "files/channel_info.h"

namespace trendaro {
namespace {

void show_form(Model& model, const std::string& caption) {
  const auto copy = [&model] { model.shell.copy_text(channel_info_text(model.InfoGrid)); };
  const auto print = [&model, caption] {
    model.shell.show_status(1, "Kanalinformationen werden gedruckt");
    model.shell.print_channel_info(caption, model.InfoGrid);
  };
  model.shell.show_channel_info({caption, model.InfoGrid, copy, print});
}

}  // namespace

void mnuShowChanInfo(Model& model) {
  FillChannelInfo(model, model.Grid.active_row);
  show_form(model, "Kanalinformationen");
}

void show_info_of_plots(Model& model) {
  fill_info_of_plots(model);
  show_form(model, "Informationen aller dargestellten Kanäle");
}

}  // namespace trendaro
