#pragma once

namespace trendaro {

struct Model;

// Bring a graph back to a known state without losing what the user has configured: capture, reset, switches,
// capture back. Limits pass through single precision on the way. After a set-up the graph holds no curves.
void InitMainGraph(Model& model);
void InitSurvGraph(Model& model);

}  // namespace trendaro
