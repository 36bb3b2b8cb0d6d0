// bench-libs: quillet_model
//
// Calc Equity with a range in My Hand, through the window's whole command ("Standard Showdown Rules"
// ticked; reading the boxes, the notation, the opponent's holdings from the grid and the read-outs
// included): every holding against every holding, the heaviest work a range can ask for, on every street
// and on the boards that make the most flushes and the most pairs. The figure to watch is the median:
//   build/release/bench/window_range_equity_bench --benchmark_repetitions=5
//   --benchmark_report_aggregates_only=true
#include <benchmark/benchmark.h>

#include <string>

#include "app/model/form1_model.h"
#include "bench/bench_support.h"

namespace quillet {
namespace {

const char* const kBoards[] = {"", "Tc8h3s", "9s6s2s", "Ks9s9d", "Tc8h3s2d", "9s6s2s4s", "Tc8h3s2d7c"};

void BM_RandomAgainstRandomThroughTheWindow(benchmark::State& state) {
  bench::GenericWindow window;
  Form1Model& model = window.model;
  const RecordingServices& services = window.services;
  model.options.standardShowdownRules = true;
  model.cmdAll_Click();
  const std::string board = kBoards[state.range(0)];
  model.txtMyHand.text = "random";
  model.txtBoard.text = board;
  model.cmdCalcEquity_Click();  // loads the evaluator and the class table
  if (!services.messages.empty()) state.SkipWithError(services.messages.front().text.c_str());
  for (auto _ : state) {
    model.txtMyHand.text = "random";
    model.txtBoard.text = board;
    model.cmdCalcEquity_Click();
    benchmark::DoNotOptimize(model.results().myEquity);
  }
  state.SetLabel((board.empty() ? std::string("preflop") : board) + ", " +
                 model.results().lblMyEquity.caption);
}
BENCHMARK(BM_RandomAgainstRandomThroughTheWindow)->DenseRange(0, 6)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillet
