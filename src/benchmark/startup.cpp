// PENDING: replaced by the start-up change.
#include "benchmark/mdlBenchmark.h"
namespace mdlBenchmark {
void ResolveAppPath() {}
}
