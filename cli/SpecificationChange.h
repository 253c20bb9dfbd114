// What commands do that change many values of a specification at once, as a file has them: all of
// them or none.
#pragma once

#include "cli/Project.h"

// Tells the problems of a file of which nothing is taken, and ends with kFileFailed.
[[noreturn]] void RefuseReading(const designspec::Problems& problems, Teller& teller);

// The specification that --spec names, else the one that the file was written from, as far as it
// says so; else as ever (Project::Chosen).
CDesignSpecification& TargetOf(const Project& project, const Arguments& arguments,
                               const std::optional<CString>& identity,
                               const std::optional<CString>& name);

// Makes the criteria of `specification`, one of the project, those of `changed` and saves it,
// unless they are the same. With --dry-run prints the list of differences and changes nothing.
// Faults that the change would bring in are refused, in either case; --force tells them alone.
Status ChangeTo(Project& project, CDesignSpecification& specification,
                const CDesignSpecification& changed, const Arguments& arguments, Teller& teller);
// The same for one that is to be added; its differences are those from the built-in limits.
Status AddNew(Project& project, std::unique_ptr<CDesignSpecification> made,
              const Arguments& arguments, Teller& teller);
