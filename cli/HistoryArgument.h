// Which specification, there or removed, and which of its versions a command means.
#pragma once

#include "cli/Project.h"
#include "library/SpecificationHistory.h"

// The identity of the specification in the project of the name or identity `arguments.name`; else
// of one that was removed, or of which there are only versions. Fails with kWrongCall when there is
// none, or several of the name were removed.
GUID IdentityOf(const Project& project, const Arguments& arguments);

// The identity that the word tells, when there are versions of it.
std::optional<GUID> IdentityAlone(const designspec::SpecificationFolder& folder,
                                  const CString& word);

// Those that were removed of that file, name or identity.
std::vector<designspec::DeletedStyle> RemovedOf(const std::vector<designspec::DeletedStyle>& all,
                                                const CString& word);
// A line for each with name and file, "可选:" before them.
CString ChoiceOf(const std::vector<designspec::DeletedStyle>& removed);

// The version that `arguments.version` means, by its number or by a moment at which it was what
// there is now; without one the last that is another one than what there is now. Fails with
// kWrongCall when there is none.
CDesignSpecification VersionMeant(const designspec::SpecificationFolder& folder, const GUID& id,
                                  const Arguments& arguments, Teller& teller);
