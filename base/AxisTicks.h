// Where an axis has its lines: at round numbers.
#pragma once

#include <vector>

namespace designspec {

// The least distance of round numbers, 1, 2 or 5 times a power of ten, of which no more than `most`
// (1 when less) fit into the range (above 0).
double StepOf(double range, double most);
// The multiples of the step (above 0) between both, in order. One that is off by a millionth of a
// step, as sums are, counts.
std::vector<double> MultiplesOf(double step, double low, double high);
// How many decimals tell the multiples of the step apart.
int DecimalsOf(double step);

} // namespace designspec
