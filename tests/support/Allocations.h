// Counts what the program and its libraries allocate, for tests of code that must allocate nothing,
// and lets memory end, for tests of what happens then. linux/ and windows/ have a source each.
#pragma once

// How often memory was allocated since the program began.
int Allocations();
// How many of them were not freed yet.
int BlocksInUse();

// After so many allocations one fails, and the next ones work; below 0 none fails, as at first.
void FailAllocationAfter(int count);
// False when the one that was to fail has failed.
bool IsFailureDue();
