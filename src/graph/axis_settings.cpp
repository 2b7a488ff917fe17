#include "graph/axis_settings.h"

namespace trendaro {

YAxisSettings left_axis(const LayerProperties& layer) {
  return {.manual_scale = layer.ManualScaleControlY,
          .low = layer.ManualMinY,
          .high = layer.ManualMaxY,
          .scale_kind = layer.YAxisScaleControl,
          .manual_ticks = layer.ManualYAxisTicknLine,
          .tick = layer.ManualYAxisTick,
          .line = layer.ManualYAxisLine,
          .color = layer.YAxisColor,
          .title = layer.YAxisLabel,
          .format = layer.AxisFormatY,
          .inverted = layer.InvertedYAxis};
}

YAxisSettings right_axis(const LayerProperties& layer) {
  return {.manual_scale = layer.ManualScaleControlRY,
          .low = layer.ManualMinRY,
          .high = layer.ManualMaxRY,
          .scale_kind = layer.RYAxisScaleControl,
          .manual_ticks = layer.ManualRYAxisTicknLine,
          .tick = layer.ManualRYAxisTick,
          .line = layer.ManualRYAxisLine,
          .color = layer.RYAxisColor,
          .title = layer.RYAxisLabel,
          .format = layer.AxisFormatRY,
          .inverted = layer.InvertedRYAxis};
}

void write_left_axis(LayerProperties& layer, const YAxisSettings& settings) {
  layer.ManualScaleControlY = settings.manual_scale;
  layer.ManualMinY = settings.low;
  layer.ManualMaxY = settings.high;
  layer.YAxisScaleControl = settings.scale_kind;
  layer.ManualYAxisTicknLine = settings.manual_ticks;
  layer.ManualYAxisTick = settings.tick;
  layer.ManualYAxisLine = settings.line;
  layer.YAxisColor = settings.color;
  layer.YAxisLabel = settings.title;
  layer.AxisFormatY = settings.format;
  layer.InvertedYAxis = settings.inverted;
}

void write_right_axis(LayerProperties& layer, const YAxisSettings& settings) {
  layer.ManualScaleControlRY = settings.manual_scale;
  layer.ManualMinRY = settings.low;
  layer.ManualMaxRY = settings.high;
  layer.RYAxisScaleControl = settings.scale_kind;
  layer.ManualRYAxisTicknLine = settings.manual_ticks;
  layer.ManualRYAxisTick = settings.tick;
  layer.ManualRYAxisLine = settings.line;
  layer.RYAxisColor = settings.color;
  layer.RYAxisLabel = settings.title;
  layer.AxisFormatRY = settings.format;
  layer.InvertedRYAxis = settings.inverted;
}

}  // namespace trendaro
