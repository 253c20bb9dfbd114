// The project that a command works on, and the specification it means.
#pragma once

#include "cli/Command.h"
#include "library/DesignSpecifications.h"
#include "model/ValuePath.h"

enum class ProjectUse {
    Read,   // the folder 规范 must be there
    Create, // it may still be missing
};

// Reads the project's library. Fails with kFileFailed when there is no such project.
CDesignSpecifications& OpenProject(const Arguments& arguments, ProjectUse use = ProjectUse::Read);

// The specification of that name or identity; fails with kWrongCall and the names to choose from.
CDesignSpecification& FindSpecification(CDesignSpecifications& library, const std::string& name);
int IndexOf(const CDesignSpecifications& library, const CStyle& style);

// The one that --spec names, else the default one, else the only one; fails with kWrongCall and
// the names to choose from.
CDesignSpecification& ChosenSpecification(CDesignSpecifications& library,
                                          const Arguments& arguments);

CDesignSpecification& SpecificationAt(const CDesignSpecifications& library, int index);

// A path that the command line gives. "\" separates folders in the module's own paths, so a name
// that holds one cannot be reached: kWrongCall.
CString PathArgument(const std::string& path);

// The path of a value, or of a criterion alone; fails with kWrongCall and the names to choose from.
designspec::ValuePath ParsePath(const std::string& path);
// The paths of a criterion's values with their labels, each on a line of its own that begins with
// a line break.
CString FieldList(const designspec::CriterionInfo& criterion, int indent = 2);

// A whole number or a decimal that the command line gives for the option or value `what`.
int IntArgument(const std::string& text, const wchar_t* what);
double DoubleArgument(const std::string& text, const wchar_t* what);

// One line on standard output.
void PrintLine(const CString& text);
// One line on standard error, "designspec: " before it.
void Complain(const CString& text);
