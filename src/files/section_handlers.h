#pragma once

namespace trendaro {

struct Model;

// "Meßwertausschnittsdatei erzeugen...": saves the stretch of the original recording behind the zoom as a
// recording of its own. Nothing without a zoom and for full data. Throws RunTimeError, with
// nothing written, when the length of the stretch cannot be worked out.
void mnuCreateMEASection(Model& model);

}  // namespace trendaro
