// Saves specifications into the files of their folder, and sets aside what has to go before. A file
// that is written over or goes may hold others as well, or what others wrote: all of that is kept
// first.
#pragma once

#include <optional>
#include <set>

#include "library/FileOrigins.h"
#include "platform/vmrd/VMRDEnv/StyleFolder.h"

namespace designspec {

// Whatever fails adds problems; what is then on disk is the old content or the new one, whole.
class SpecificationFiles {
public:
    // Both outlive it.
    SpecificationFiles(StyleFolder& files, const SpecificationList& list);

    [[nodiscard]] StyleFolder::Held Hold(Problems& problems);

    // What loading tells: what stands in which file, and which holds something that was not loaded.
    void AddLoaded(const Origin& origin) { m_origins.Add(origin); }
    void AddUnread(const CString& file) { m_unread.insert(file); }
    void Forget();
    // The file that it was loaded from or saved to last; empty when there is none.
    CString FileOf(const CDesignSpecification& specification) const;

    // As SpecificationFolder says.
    bool Save(const CDesignSpecification& specification, Problems& problems);
    bool SaveRenamed(const CDesignSpecification& specification, const CString& oldName,
                     Problems& problems);
    // Also keeps a copy of the file that is saved over.
    bool SaveOver(const CDesignSpecification& specification, Problems& problems);
    // Takes it out of all its files, into the deleted ones.
    bool SetAside(const CDesignSpecification& specification, Problems& problems);
    bool SetFileAside(const CString& file, const GUID& id, Problems& problems);
    bool SetVersionAside(const CDesignSpecification& version, Problems& problems);

private:
    struct Saving {
        bool isKept = false; // what the file holds is among the deleted ones already
        CString oldFile{};   // where the specification stood before it got another name
    };
    bool Save(const CDesignSpecification& specification, const Saving& how, Problems& problems);
    bool Write(const CDesignSpecification& specification, const CString& oldFile,
               Problems& problems);
    void FindStrangers(const GUID& id);
    bool KeepOthers(const CString& file, Problems& problems);
    bool MoveOthersOut(const CString& file, const GUID& id, Problems& problems);
    bool PartFromOthers(const GUID& id, Problems& problems);
    void DropKept(const CXTPPropExchangeXMLNode& root, const CString& file, const GUID& id) const;
    bool KeepUnread(const CString& file, const GUID& id, Problems& problems);
    bool TakeFrom(const Origin& origin, Problems& problems);
    bool SetOthersAside(const GUID& id, const CString& file, Problems& problems);
    bool DeleteOld(const CString& file, const CString& newFile, Problems& problems);
    bool TakeFileApart(const CString& file, const GUID& id, Problems& problems);

    StyleFolder& m_files;
    const SpecificationList& m_list;
    FileOrigins m_origins;
    std::set<CString> m_unread; // files that hold something that was not loaded
    // Files of others that came, by what they hold; found out once while the folder is held.
    std::optional<std::unordered_map<GUID, CStringArray, GuidHash>> m_strangers;
};

} // namespace designspec
