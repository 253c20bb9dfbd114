// The project that a command works on, and the specification it means.
#pragma once

#include "cli/Command.h"
#include "library/SpecificationFolder.h"
#include "model/ValuePath.h"

enum class ProjectUse {
    Read,
    Change, // others are kept out of the folder from before it is read until the end
    Create, // the same, and it may still be missing
};

class Project {
public:
    // Reads the project's specifications and tells what was wrong with their files. Fails with
    // kFileFailed when there is no such project, or another program keeps its folder for longer
    // than the command waits.
    Project(const Arguments& arguments, Teller& teller, ProjectUse use = ProjectUse::Read);

    designspec::SpecificationFolder& Folder() { return m_folder; }
    const designspec::SpecificationFolder& Folder() const { return m_folder; }
    // What loading told.
    const designspec::Problems& LoadProblems() const { return m_loadProblems; }
    // Null when there is none.
    CDesignSpecification* Default() const { return m_default; }
    // The specification of that name or identity; null when there is none.
    CDesignSpecification* FindIfThere(const std::string& name) const;
    // The specification of that name or identity; fails with kWrongCall and the names to choose
    // from.
    CDesignSpecification& Find(const std::string& name) const;
    // The one that --spec names, else the default one, else the only one; fails with kWrongCall
    // and the names to choose from.
    CDesignSpecification& Chosen(const Arguments& arguments) const;

    // Tells the problems; the status that the outcome stands for.
    Status StatusOf(const designspec::Outcome& outcome);

private:
    CString NamesToChooseFrom() const;
    void Hold(std::chrono::seconds patience);

    Teller& m_teller;
    designspec::SpecificationFolder m_folder;
    std::optional<designspec::StyleFolder::Held> m_held;
    designspec::Problems m_loadProblems;
    CDesignSpecification* m_default = nullptr;
};

// A path that the command line gives. "\" separates folders in the module's own paths, so where a
// name may hold one, it cannot be reached: kWrongCall.
CString PathArgument(const std::string& path);

// The path of a value, or of a criterion alone; fails with kWrongCall and the names to choose from.
designspec::ValuePath ParsePath(const std::string& path);
// The paths of a criterion's values with their labels, each on a line of its own that begins with
// a line break.
CString FieldList(const designspec::CriterionInfo& criterion, int indent = 2);

// The name that a user gives a specification, by the editor's rules; else kWrongCall. `openedName`
// is the one that it has, empty for a new one.
CString NameArgument(const designspec::SpecificationFolder& folder, const std::string& text,
                     const CString& openedName);

// A whole number or a decimal that the command line gives for the option or value `what`.
int IntArgument(const std::string& text, const wchar_t* what);
double DoubleArgument(const std::string& text, const wchar_t* what);

// One line on standard output.
void PrintLine(const CString& text);
// As they are, on standard output.
void PrintBytes(const std::string& bytes);
// One line on standard error, "designspec: " before it.
void Complain(const CString& text);
