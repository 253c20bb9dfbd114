// The command as two programs: designspec starts in a few milliseconds, as it is not linked with
// what reads roads and spreadsheets; designspec-full is, and takes over where a command needs that.
#pragma once

// Thrown by what only the other program has, before anything was done.
struct NeedsFullProgram {};

// Becomes designspec-full, which lies beside this program or, installed, in libexec/designspec,
// with the words of this call. Returns, with an exit status and after a message, only if it is not
// there.
int BecomeFullProgram(char** argv);
