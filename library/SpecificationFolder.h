// The specifications of one folder, and their files: one XML file for each, named NAMEGUID.hds, and
// setting.ini, which names the default one.
//
// An ordinary object: as many side by side as one likes, each used by one thread at a time. What
// happened is told by results; nothing is traced. The process-wide library (DesignSpecifications.h)
// is one of these with the family's interface on top.
#pragma once

#include <memory>
#include <optional>

#include "model/DesignSpecification.h"
#include "platform/vmrd/VMRDEnv/StyleFolder.h"

namespace designspec {

class SpecificationFiles;
class SpecificationList;
struct ReadSpecification;

// How an operation went.
struct Outcome {
    bool done = false;
    Problems problems; // with file, line and cause; notes also when it was done
};

enum class Taken {
    Added,
    Overwritten, // one of its identity was there, and is now as in the file
    Left,        // one of its identity was there, and stays as it was
};

struct TakenSpecification {
    GUID id;
    Taken how = Taken::Added;
    bool changed = true; // false: one overwritten was the same before
    bool saved = true;   // false: the file in this folder could not be written
};

struct ImportOutcome : Outcome {
    bool read = false; // the file could be read
    std::vector<TakenSpecification>
        specifications; // in the file's order; those refused are not here
};

class AFX_EXT_CLASS SpecificationFolder {
public:
    // `path` is the folder of the files itself. Nothing is read yet.
    explicit SpecificationFolder(const CString& path);
    ~SpecificationFolder();
    SpecificationFolder(const SpecificationFolder&) = delete;
    SpecificationFolder& operator=(const SpecificationFolder&) = delete;

    const StyleFolder& Files() const { return m_files; }
    StyleFolder& Files() { return m_files; }

    int Count() const;
    // Null when there is none of that index, identity or name (ignoring case).
    CDesignSpecification* Item(int index) const;
    CDesignSpecification* Find(const GUID& id) const;
    CDesignSpecification* Find(const wchar_t* name) const;
    // -1 when it is none of these.
    int IndexOf(const CDesignSpecification& specification) const;

    // Makes the name unique (A, A(1), A(2) …, ignoring case); the new one stands last. Not saved.
    CDesignSpecification& Add(std::unique_ptr<CDesignSpecification> specification);
    // Takes one out of the list; its files stay.
    std::unique_ptr<CDesignSpecification> TakeOut(int index);
    void Clear();

    // The name proposed for a new specification: 规范 and the count plus one. It may be taken.
    CString ProposedName() const;
    // The name proposed for a copy: NAME[副本], NAME[副本1] … The first that is free. A NAME that
    // could not be stored so is changed as far as it must (StorableName).
    CString ProposedCopyName(const CString& source) const;

    // Keeps other programs from changing the folder, as StyleFolder::Hold. Each operation does so
    // itself; hold it around loading and changing to let nobody in between.
    [[nodiscard]] StyleFolder::Held Hold(Problems& problems);

    // Reads all files anew. Done when each could be read whole; what could not is left out.
    Outcome Load();
    // The identity that setting.ini names as the default one's; nothing when it names none.
    std::optional<GUID> Default(Problems& problems) const;
    Outcome SetDefault(const CDesignSpecification& specification);

    // Writes the specification's file: one that holds it alone, in place of what was there. After
    // that, other files of the folder that it was loaded from are set aside. Other specifications
    // that were loaded from that file get files of their own first. Not done when its name cannot
    // be a file's or a file resists; what is then on disk is the old content or the new one, whole.
    //
    // What others have written since it was loaded or saved last is kept among the deleted ones.
    Outcome Save(const CDesignSpecification& specification);
    // Saves one that has just been given another name: when its new file is there, the one under
    // the old name goes.
    Outcome SaveRenamed(const CDesignSpecification& specification, const CString& oldName);
    // Gives it another name and saves it so. Not done: the old file is still there; the next Save
    // makes it good.
    Outcome Rename(CDesignSpecification& specification, const CString& newName);
    // Sets its files aside, then takes it out of the list. Not done: it is still in the list, and
    // at least one of its files is where it was.
    Outcome Remove(const CDesignSpecification& specification);
    // Sets a file aside that the specification may stand in; others in it get files of their own
    // first. Done when there is no such file afterwards.
    Outcome SetFileAside(const CString& file, const GUID& id);

    // Writes the named specifications, or all when no name is given, into a file; what else that
    // holds stays in it. A name that there is none of is told by a note.
    Outcome Export(const CString& path, const CStringArray& names) const;
    // Takes the named specifications of a file, or all, into the list; one of an identity that is
    // there only when `overwrite` is set. Not saved. One of which a value cannot be read is not
    // taken.
    ImportOutcome TakeIn(const CString& path, const CStringArray& names, bool overwrite);
    // The same of the text of such a file, which is called `name`.
    ImportOutcome TakeInText(std::string_view text, const CString& name);
    // As TakeIn, and saves what was added or overwritten; what a file held that is overwritten is
    // set aside. One whose name the editor would not take is not taken either. Done when all of
    // that was.
    ImportOutcome Import(const CString& path, const CStringArray& names, bool overwrite);
    // Puts a specification of another folder into this one, by the same rules: in place of the one
    // of its identity, or behind the others.
    Outcome Put(const CDesignSpecification& specification);
    // Copies the files into the folder of styles of another project; what it has under the same
    // names is kept among its deleted ones. Done when all were copied.
    Outcome SaveAsTemplate(const CString& project);

    // Puts a version of a specification among the deleted ones; it needs not be in the list.
    Outcome SetAside(const CDesignSpecification& version);

    // Name of the file that the specification was last loaded from or saved to; empty when there
    // is none.
    CString FileOf(const CDesignSpecification& specification) const;

private:
    AFX_EXT_PRIVATE Outcome Read(CStringArray& files);
    AFX_EXT_PRIVATE ImportOutcome TakeIn(CXTPPropExchangeXMLNode& root, const CString& path,
                                         const CStringArray& names, bool overwrite,
                                         CString (*nameProblem)(const CString&));
    AFX_EXT_PRIVATE TakenSpecification TakeIn(ReadSpecification read, const CString& path,
                                              bool overwrite, Severity odd, Problems& problems);
    AFX_EXT_PRIVATE bool SaveTaken(const TakenSpecification& taken, Problems& problems);

    StyleFolder m_files;
    std::unique_ptr<SpecificationList> m_list;
    std::unique_ptr<SpecificationFiles> m_saving;
};

} // namespace designspec
