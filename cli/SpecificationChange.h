// What commands do that change many values of a specification at once: all of them or none.
#pragma once

#include "cli/Project.h"

// Makes the criteria of `specification`, one of the project, those of `changed` and saves it,
// unless they are the same. With --dry-run prints the list of differences and changes nothing.
// Faults that the change would bring in are refused, in either case; --force tells them alone.
Status ChangeTo(Project& project, CDesignSpecification& specification,
                const CDesignSpecification& changed, const Arguments& arguments, Teller& teller);
