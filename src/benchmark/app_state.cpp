#include "benchmark/mdlBenchmark.h"

namespace mdlBenchmark {

AppStateRecord AppState;

void ResetState() { AppState = AppStateRecord{}; }

}  // namespace mdlBenchmark
