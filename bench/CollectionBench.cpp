// CStringHashtable and CStringVector next to the standard containers, on the
// same keys in the same run. On a shared machine compare CPU times from
//   --benchmark_repetitions=5 --benchmark_enable_random_interleaving=true
// so that both sides see the same load.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

#include "vesk/util/StringHashtable.h"
#include "vesk/util/StringVector.h"

namespace {

const int kKeyCount = 1000000;

// One million distinct keys of 8 to 24 bytes (a unique counter prefix keeps
// them distinct, random letters fill them up).
const std::vector<std::string>& Keys() {
  static const std::vector<std::string> keys = [] {
    std::mt19937 random(1234);
    std::vector<std::string> result;
    result.reserve(kKeyCount);
    for (int i = 0; i < kKeyCount; ++i) {
      std::string key = std::to_string(i) + ":";
      std::size_t length = 8 + random() % 17;
      while (key.size() < length) key += static_cast<char>('a' + random() % 26);
      std::swap(key[0], key[key.size() - 1]);  // do not let every key start alike
      result.push_back(key);
    }
    std::shuffle(result.begin(), result.end(), random);
    return result;
  }();
  return keys;
}

void VeskHashtablePutGet(benchmark::State& state) {
  const std::vector<std::string>& keys = Keys();
  for (auto _ : state) {
    vesk::util::CStringHashtable<int> table;
    for (int i = 0; i < kKeyCount; ++i) table.Put(keys[i].c_str(), i);
    long long sum = 0;
    int value = 0;
    for (int i = 0; i < kKeyCount; ++i) {
      table.Get(keys[i].c_str(), value);
      sum += value;
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kKeyCount);
}
BENCHMARK(VeskHashtablePutGet)->Unit(benchmark::kMillisecond)->Iterations(3);

void StdUnorderedMapPutGet(benchmark::State& state) {
  const std::vector<std::string>& keys = Keys();
  for (auto _ : state) {
    std::unordered_map<std::string, int> table;
    for (int i = 0; i < kKeyCount; ++i) table[keys[i]] = i;
    long long sum = 0;
    for (int i = 0; i < kKeyCount; ++i) sum += table.find(keys[i])->second;
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kKeyCount);
}
BENCHMARK(StdUnorderedMapPutGet)->Unit(benchmark::kMillisecond)->Iterations(3);

int CompareText(const void* a, const void* b) {
  return std::strcmp(*static_cast<const vesk::base::CString*>(a),
                     *static_cast<const vesk::base::CString*>(b));
}

// The growth step is the caller's choice; a large one suits a million appends.
void VeskStringVectorAppendSort(benchmark::State& state) {
  const std::vector<std::string>& keys = Keys();
  for (auto _ : state) {
    vesk::util::CStringVector vector(0, static_cast<unsigned int>(state.range(0)));
    for (int i = 0; i < kKeyCount; ++i) vector.AddElement(keys[i].c_str());
    vector.Sort(&CompareText);
    benchmark::DoNotOptimize(vector.GetFirstElement());
  }
  state.SetItemsProcessed(state.iterations() * kKeyCount);
}
BENCHMARK(VeskStringVectorAppendSort)->Arg(10)->Arg(65536)->Unit(benchmark::kMillisecond)->Iterations(3);

void StdVectorAppendSort(benchmark::State& state) {
  const std::vector<std::string>& keys = Keys();
  for (auto _ : state) {
    std::vector<std::string> vector;
    for (int i = 0; i < kKeyCount; ++i) vector.push_back(keys[i]);
    std::sort(vector.begin(), vector.end());
    benchmark::DoNotOptimize(vector.front());
  }
  state.SetItemsProcessed(state.iterations() * kKeyCount);
}
BENCHMARK(StdVectorAppendSort)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
