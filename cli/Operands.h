// Specifications that the words of a command name, wherever they stand:
//   NAME or GUID          in the project's library
//   FILE                  a file of styles that holds a single one
//   FILE#NAME, FILE#GUID  one of several
//   DIR, DIR#NAME         of another project, by itself the default or only one
// A word that has a "/" in it or ends in .hds before the "#" is a file or a folder. Any other is
// one when the library has no such name.
#pragma once

#include <map>
#include <memory>

#include "cli/Project.h"

class Operands {
public:
    Operands(const Arguments& arguments, Teller& teller);

    // Fails with kWrongCall and the names to choose from, or with kFileFailed when a file cannot be
    // read.
    const CDesignSpecification& Find(const std::string& word);
    // All that the word names: a file without a name behind it stands for all in it.
    std::vector<CDesignSpecification*> FindAll(const std::string& word);

    // The project, which fails as Project does when there is none.
    Project& Library();

    static bool IsPath(const std::string& word);

private:
    struct Place; // a path, and what is named there
    std::optional<Place> PlaceOf(const std::string& word) const;
    const designspec::SpecificationFolder& Open(const CString& path);
    Project* LibraryHere();

    const Arguments& m_arguments;
    Teller& m_teller;
    std::unique_ptr<Project> m_project;
    std::map<CString, std::unique_ptr<designspec::SpecificationFolder>> m_opened;
};
