// Memory of the process that runs the tests; linux/ and windows/ have a source each.
#pragma once

// What it has held at most so far, in MiB.
long PeakMemory();
