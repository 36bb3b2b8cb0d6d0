// bench-libs: quillet_storage
// Writing and reading the profile file and its weights file: the work done at every start-up and every
// close of the window.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>

#include "cards/hand_class.h"
#include "storage/profile_file.h"
#include "storage/profile_weights_file.h"

namespace quillet {
namespace {

std::vector<PlayerProfile> SampleProfiles(int n) {
  std::vector<PlayerProfile> list(n);
  for (int i = 0; i < n; ++i) {
    InitProfile(list[i]);
    list[i].name = "Player" + std::to_string(i);
    list[i].rangeText = "~12.5";
    for (int c = i % 5; c < kClassCount; c += 5)
      SetBlockWhole(list[i].rangeLayer[c], HandClasses()[c].kind == kKindSuited);
  }
  return list;
}

void BM_EncodeProfileFile(benchmark::State& state) {
  const auto list = SampleProfiles(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(EncodeProfileFile(list));
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(EncodeProfileFile(list).size()));
}
BENCHMARK(BM_EncodeProfileFile)->Arg(1)->Arg(100);

void BM_DecodeProfileFile(benchmark::State& state) {
  const std::string bytes = EncodeProfileFile(SampleProfiles(static_cast<int>(state.range(0))));
  for (auto _ : state) benchmark::DoNotOptimize(DecodeProfileFile(bytes, "bench"));
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(bytes.size()));
}
BENCHMARK(BM_DecodeProfileFile)->Arg(1)->Arg(100);

// The whole save as the window does it: encode, temporary file, flush to the disk, rename.
void BM_WriteProfileFile(benchmark::State& state) {
  const auto list = SampleProfiles(static_cast<int>(state.range(0)));
  const auto path =
      std::filesystem::temp_directory_path() / ("quillet-bench-" + std::to_string(::getpid()) + ".ini");
  for (auto _ : state) benchmark::DoNotOptimize(WriteProfileFile(path, list));
  std::filesystem::remove(path);
}
BENCHMARK(BM_WriteProfileFile)->Arg(100)->Unit(benchmark::kMillisecond);

// The same profiles, each with its On layer at a weight below 1: the weights file is written beside the
// profile file, and read with it.
std::vector<PlayerProfile> WeightedSampleProfiles(int n) {
  std::vector<PlayerProfile> list = SampleProfiles(n);
  for (PlayerProfile& p : list) {
    for (int h = 0; h < kHoldingCount; h += 3) p.onWeights[h] = 500;
  }
  return list;
}

void BM_EncodeProfileWeights(benchmark::State& state) {
  const auto list = WeightedSampleProfiles(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(EncodeProfileWeights(list));
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(EncodeProfileWeights(list).size()));
}
BENCHMARK(BM_EncodeProfileWeights)->Arg(1)->Arg(100);

void BM_DecodeProfileWeights(benchmark::State& state) {
  const auto list = WeightedSampleProfiles(static_cast<int>(state.range(0)));
  const std::string bytes = EncodeProfileWeights(list);
  std::vector<PlayerProfile> unweighted = SampleProfiles(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    std::vector<PlayerProfile> profiles = unweighted;
    benchmark::DoNotOptimize(DecodeProfileWeights(bytes, "bench", profiles));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(bytes.size()));
}
BENCHMARK(BM_DecodeProfileWeights)->Arg(1)->Arg(100)->Unit(benchmark::kMicrosecond);

void BM_WriteProfileFileWeighted(benchmark::State& state) {
  const auto list = WeightedSampleProfiles(static_cast<int>(state.range(0)));
  const auto path =
      std::filesystem::temp_directory_path() / ("quillet-bench-" + std::to_string(::getpid()) + "-w.ini");
  for (auto _ : state) benchmark::DoNotOptimize(WriteProfileFile(path, list));
  std::filesystem::remove(path);
  std::filesystem::remove(ProfileWeightsPath(path));
}
BENCHMARK(BM_WriteProfileFileWeighted)->Arg(100)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillet
