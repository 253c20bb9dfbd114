// Specifications that stand somewhere else than in the library at hand: in a file of styles, or in
// the folder of another project. They are read, never written.
#pragma once

#include "library/SpecificationFolder.h"

namespace designspec {

// What stands at `path`: a file of styles, a project's folder, or its folder 规范. Null, with the
// cause among the problems, when there is no such thing or the file cannot be read. What is wrong
// with single specifications is told, too; those are left out.
AFX_EXT_API std::unique_ptr<SpecificationFolder> ReadSpecificationsAt(const CString& path,
                                                                      Problems& problems);

// The same of the text of a file of styles, which is called `name` where something is wrong.
AFX_EXT_API std::unique_ptr<SpecificationFolder>
ReadSpecificationsIn(std::string_view text, const CString& name, Problems& problems);

// The text of a file of styles that holds the specification alone.
AFX_EXT_API std::string FileTextOf(const CDesignSpecification& specification);

// The specification of that name or identity; when the name is empty, the only one or the default
// one. Null when there is none.
AFX_EXT_API CDesignSpecification* FindSpecification(const SpecificationFolder& folder,
                                                    const CString& nameOrId);

// The names, in their order.
AFX_EXT_API CStringArray NamesOf(const SpecificationFolder& folder);

} // namespace designspec
