#include "app/file_arguments.h"

#include "app/model.h"
#include "app/paths.h"
#include "datasource/file_list.h"
#include "datasource/grid_handlers.h"
#include "datasource/mark.h"

namespace trendaro {
namespace {

// The row of a channel of `path` from `first` on; 0 where there is none. A file may bring its family along,
// so the path tells whose rows they are.
i32 find_channel(const ChannelRows& list, i32 first, const std::string& path, i16 channel) {
  for (i32 row = first; row <= list.MaxRows(); ++row) {
    const ChannelRow& cells = list.rows[row];
    if (is_channel(cells.kind) && mark_index(cells.mark) == channel && equal_ignoring_case(cells.path, path))
      return row;
  }
  return 0;
}

// Calls `mark(row)` for each channel that was named and has no mark yet.
template <typename Mark>
void for_channels_to_mark(const Model& model, const FileArgument& argument, i32 first_row, Mark mark) {
  for (const i16 channel : argument.channels) {
    const i32 row = find_channel(model.Grid, first_row, argument.path, channel);
    if (row != 0 && model.Grid.rows[row].check != 1) mark(row);
  }
}

}  // namespace

void open_file_argument(Model& model, const FileArgument& argument) {
  const i32 first_row = model.Grid.MaxRows() + 1;
  open_file(model, argument.path);
  for_channels_to_mark(model, argument, first_row, [&](i32 row) {
    activate_row(model, row);
    click_check_cell(model, row, 1);
  });
}

void put_marks(Model& model, const FileArgument& argument, i32 first_row) {
  for_channels_to_mark(model, argument, first_row, [&](i32 row) {
    const i16 index = mark_index(model.Grid.rows[row].mark);
    set_mark(model.Grid, row, {index, model.CurrentLayer, model.CurrentSide});
  });
}

}  // namespace trendaro
