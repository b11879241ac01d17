// SPDX-License-Identifier: MIT
#include <cstdio>

#include <benchmark/benchmark.h>

#include "support/wx_session.h"

int main(int argc, char **argv) {
  benchmark::Initialize(&argc, argv);
  framenote::WxSession session(argc, argv);
  if (!session.IsOk()) {
    std::fputs("wxWidgets did not start; the benchmarks need a display: xvfb-run -a\n", stderr);
    return 1;
  }
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
