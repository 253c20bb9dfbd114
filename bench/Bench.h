// What every group of benchmarks uses. A benchmark is called GROUP/CASE/WAY; the table of results
// has a section for each group, a row for each case and a column for each way.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

// Ends the program when something that a measurement stands on is not so: alternatives that answer
// something else, or files that cannot be written, would make its figures worthless.
inline void Require(bool holds, const std::string& what)
{
    if (holds) return;
    std::fprintf(stderr, "core_bench: %s\n", what.c_str());
    std::exit(1);
}

// Questions in an order that no branch predictor can learn; the same in each run.
constexpr size_t kQuestions = 1 << 16;
template <class Make> auto MakeQuestions(Make make)
{
    std::mt19937 random(20240501);
    const auto number = [&random](int low, int high) {
        return std::uniform_int_distribution(low, high)(random);
    };
    std::vector<decltype(make(number))> questions;
    for (size_t i = 0; i < kQuestions; ++i)
        questions.push_back(make(number));
    return questions;
}

// The groups; each checks that its alternatives do the same, and registers its benchmarks.
void AddSpeedQueries();
void AddCompoundQueries();
void AddNamedQueries();
void AddArrays();
void AddFiles();
void AddMemory();
void AddCommand();
