// PENDING: replaced by the logs change.
#include "benchmark/mdlBenchmark.h"
namespace mdlBenchmark {
std::string BenchmarkLogPath() { return {}; }
std::string LowFrameRateLogPath() { return {}; }
bool ResetBenchmarkLogs() { return true; }
void ReadRunResults() {}
}
