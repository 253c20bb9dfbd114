// The library of design specifications: one for each process. Queries from other modules and the
// editor's pages reach a specification through it.
//
// On disk it is the folder 规范 of the current project: one XML file for each specification, named
// NAMEGUID.hds, and setting.ini, which names the default one.
#pragma once

#include <memory>

#include "model/DesignSpecification.h"
#include "platform/mfc/Export.h"
#include "platform/vmrd/VMRDEnv/Styles.h"

class AFX_EXT_CLASS CDesignSpecifications : public CStyles {
    DECLARE_DYNAMIC(CDesignSpecifications)

public:
    // The one library, made empty by the first call. Destroy deletes it; the next GetInstance
    // makes a new one. All on the main thread.
    static CDesignSpecifications* GetInstance();
    static void Destroy();
    // A module that uses the library takes a share of it when it is loaded. Destroy, when it is
    // unloaded, gives one back, and deletes the library only with the last one.
    static void TakeShare();

    ~CDesignSpecifications() override;

    CString Name() const override; // 设计规范
    int Count() const override;
    CStyle* Item(const GUID& id) const override;
    CStyle* Item(int index) const override;
    // The first of that name, ignoring case; null when there is none.
    CDesignSpecification* Item(const wchar_t* name) const;

    // Takes ownership, makes the name unique (A, A(1), A(2) …, ignoring case) and returns the
    // index.
    int Add(CDesignSpecification* specification);
    // Deletes the file NAME{GUID}.hds, the object if asked, and the item. Does nothing when there
    // is no such index. The default index is not adjusted.
    void Remove(int index, bool deleteObject);

    // Makes the item the default one and writes its identity to setting.ini.
    void SetDefaultItem(int index) override;
    using CStyles::SetDefaultItem;
    // The same; does nothing when it is no item.
    void SetDefaultItem(const CDesignSpecification* specification);

    // Writes the specification's file: one that holds it alone, in place of what was there. After
    // that, other files of the folder that it was loaded from are set aside. Other specifications
    // that were loaded from that file get files of their own first. False, with a trace line, when
    // its name cannot be a file's or a file resists; what is then on disk is the old content or the
    // new one, whole.
    bool Save(const CDesignSpecification* specification);
    // The same for the item of that index; false when there is none.
    bool SaveItem(int index) override;
    // Writes the file of the specification of that name anew; one under `name` as passed goes
    // when the specification's own name makes another. Does not change the name; the second
    // argument is not used. False when there is no such specification or a file resists.
    bool Rename(const wchar_t* name, const wchar_t* newName);
    // Saves a specification that has just been given another name: when its new file is there,
    // the one under the old name goes.
    bool SaveRenamed(const CDesignSpecification* specification, const CString& oldName);

    // Name of the file in the library folder that the specification was last loaded from or saved
    // to; empty when there is none.
    CString FileOf(const CDesignSpecification& specification) const;

    bool Export(const wchar_t* path, const CStringArray& names, const wchar_t* unused) override;
    bool Import(const wchar_t* path, const CStringArray& names, const wchar_t* unused,
                bool overwrite) override;
    bool SaveAsTemplate(const wchar_t* folder) override;
    bool StyleNames(const wchar_t* path, CStringArray& names, CArray<GUID>& ids) const override;
    void Update() override;

private:
    // A file of the library folder and a specification that was loaded from it or saved to it.
    struct Origin {
        GUID id;
        CString file;
        bool operator==(const Origin&) const = default;
    };
    // The write of one specification that is going on.
    struct Saving {
        CString path;
        const CDesignSpecification* specification;
        bool anew; // does not keep what the file held before
    };

    CDesignSpecifications() = default;

    CDesignSpecification* Find(const GUID& id) const;
    void ImportStyle(const CXTPPropExchange& style, const CString& path, const CStringArray& filter,
                     bool overwrite);
    void TakeIn(std::unique_ptr<CDesignSpecification> loaded, const CString& path, int line,
                bool overwrite);
    void ExportStyle(const CXTPPropExchange& styles, const CDesignSpecification& specification);
    const CDesignSpecification* FindForExport(const CString& name) const;
    void RestoreDefault();
    bool Write(const Saving& saving);
    bool MoveOthersOut(const CString& file, const GUID& id);
    bool SetOtherFilesAside(const GUID& id, const CString& file);

    static CDesignSpecifications* s_pInstance;

    std::vector<std::unique_ptr<CDesignSpecification>> m_items;
    std::vector<Origin> m_origins;
    const Saving* m_pSaving = nullptr;
    bool m_bUpdating = false;
};
