// Counts what the program and its libraries allocate, for tests of code that must allocate nothing.
#pragma once

// How often memory was allocated since the program began.
int Allocations();
