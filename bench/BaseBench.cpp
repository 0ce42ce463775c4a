// What the floor of the house costs: the look-ups in long lists that every line and every joiner meets,
// changes of such a list, and the removal of tags from hostile text.

#include "base/IndexedList.h"
#include "base/Text.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <random>
#include <string>

using namespace halyard;

namespace {

std::string RandomWord(std::mt19937& random, std::size_t shortest, std::size_t longest) {
    std::string word(shortest + random() % (longest - shortest + 1), ' ');
    for (char& c : word) c = static_cast<char>('a' + random() % 26);
    return word;
}

std::string Numbered(const char* format, unsigned number) {
    char buffer[32];
    return std::string(buffer,
                       static_cast<std::size_t>(std::snprintf(buffer, sizeof buffer, format, number)));
}

void FillRandom(IndexedList& list, std::size_t count) {
    std::mt19937 random(1);
    while (list.Count() < count) list.Add(RandomWord(random, 6, 16));
}

void WordsRandom(benchmark::State& state) {
    IndexedList list(Matching::words);
    FillRandom(list, static_cast<std::size_t>(state.range(0)));
    std::mt19937 random(2);
    std::string line;
    while (line.size() < 300) line += RandomWord(random, 2, 9) + ' ';
    line.resize(300);
    for (auto _ : state) benchmark::DoNotOptimize(list.FirstWordIn(line));
}
BENCHMARK(WordsRandom)->RangeMultiplier(10)->Range(100, 100'000);

void WordsThatStartAlike(benchmark::State& state) {
    IndexedList list(Matching::words);
    for (unsigned number = 1; number <= state.range(0); ++number) list.Add(Numbered("spam%06u", number));
    std::string line;
    for (unsigned number = 0; line.size() < 300; number += 3456) line += Numbered("spam%05ux ", number);
    line.resize(300);
    for (auto _ : state) benchmark::DoNotOptimize(list.FirstWordIn(line));
}
BENCHMARK(WordsThatStartAlike)->RangeMultiplier(10)->Range(100, 100'000);

void FillMasks(IndexedList& list, std::size_t count) {
    std::mt19937 random(3);
    while (list.Count() < count) list.Add(RandomWord(random, 6, 15) + (list.Count() % 2 ? "*" : ""));
}

void JoinerAgainstMasks(benchmark::State& state) {
    IndexedList list(Matching::masks);
    FillMasks(list, static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(list.FirstMatch("quitepeaceful123"));
}
BENCHMARK(JoinerAgainstMasks)->Arg(1000)->Arg(10'000)->Arg(100'000);

void AddAndRemoveLast(benchmark::State& state) {
    IndexedList list(Matching::words);
    FillRandom(list, 100'000);
    for (auto _ : state) {
        list.Add("zzzzzzzzzz");
        list.Remove("zzzzzzzzzz");
    }
}
BENCHMARK(AddAndRemoveLast);

void RemoveInTheMiddleAndAdd(benchmark::State& state) {
    IndexedList list(Matching::words);
    FillRandom(list, 100'000);
    for (auto _ : state) {
        std::string entry = list.Item(50'000);
        list.Remove(entry);
        list.Add(entry);
    }
}
BENCHMARK(RemoveInTheMiddleAndAdd);

void StripNestedTags(benchmark::State& state) {
    auto half = static_cast<std::size_t>(state.range(0)) * 512;
    auto text = std::string(half, '<') + std::string(half, '>');
    for (auto _ : state) benchmark::DoNotOptimize(StripHTML(text));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(StripNestedTags)->RangeMultiplier(2)->Range(16, 128); // KiB

void StripManyTags(benchmark::State& state) {
    std::string text;
    while (text.size() < static_cast<std::size_t>(state.range(0)) * 1024) text += "a<b>";
    for (auto _ : state) benchmark::DoNotOptimize(StripHTML(text));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(StripManyTags)->RangeMultiplier(2)->Range(16, 128); // KiB

void ContainsInALine(benchmark::State& state) {
    std::string line(300, 'a');
    for (auto _ : state) benchmark::DoNotOptimize(ContainsNoCase(line, "AAAAAAAAAB"));
}
BENCHMARK(ContainsInALine);

} // namespace
