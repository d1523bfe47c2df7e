// PENDING: replaced by the installation change.
#include "benchmark/mdlBenchmark.h"
namespace mdlBenchmark {
void DetectInstalledGame() {}
void SelectVariant(Variant) {}
}
