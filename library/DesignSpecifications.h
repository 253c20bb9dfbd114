// The library of design specifications: one for each process. Queries from other modules and the
// editor's pages reach a specification through it.
//
// It is the family's interface to the specification folder (SpecificationFolder.h) of the current
// project, PRJ\规范. What goes wrong with a file leaves trace lines.
#pragma once

#include "library/SpecificationFolder.h"
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
    CDesignSpecification* Item(const GUID& id) const override;
    CDesignSpecification* Item(int index) const override;
    // The first of that name, ignoring case; null when there is none.
    CDesignSpecification* Item(const wchar_t* name) const;
    CDesignSpecification* DefaultItem() const override;

    // Takes ownership, makes the name unique (A, A(1), A(2) …, ignoring case) and returns the
    // index.
    int Add(CDesignSpecification* specification);
    // Sets the file NAME{GUID}.hds aside, among the deleted ones, deletes the object if asked, and
    // the item. Does nothing when there is no such index. The default index is not adjusted.
    void Remove(int index, bool deleteObject);

    // Makes the item the default one and writes its identity to setting.ini.
    void SetDefaultItem(int index) override;
    using CStyles::SetDefaultItem;
    // The same; does nothing when it is no item.
    void SetDefaultItem(const CDesignSpecification* specification);

    // SpecificationFolder::Save.
    bool Save(const CDesignSpecification* specification);
    // Writes the file of the specification of that name anew; one under `name` as passed goes
    // when the specification's own name makes another. Does not change the name; the second
    // argument is not used. False when there is no such specification or a file resists.
    bool Rename(const wchar_t* name, const wchar_t* newName);
    // SpecificationFolder::SaveRenamed.
    bool SaveRenamed(const CDesignSpecification* specification, const CString& oldName);

    bool Export(const wchar_t* path, const CStringArray& names, const wchar_t* unused) override;
    bool Import(const wchar_t* path, const CStringArray& names, const wchar_t* unused,
                bool overwrite) override;
    bool SaveAsTemplate(const wchar_t* folder) override;
    bool StyleNames(const wchar_t* path, CStringArray& names, CArray<GUID>& ids) const override;
    void Update() override;
    designspec::StyleImport ImportAndSave(const CString& path, const CStringArray& names,
                                          bool overwrite) override;
    designspec::StyleFolder& Files() override;

    // Tells after the library was read, one of its specifications saved, or another made the
    // default one.
    [[nodiscard]] static designspec::Connection
    ConnectChanges(designspec::Signal<>::Function listener);

    // The folder of the current project.
    designspec::SpecificationFolder& Folder();
    const designspec::SpecificationFolder& Folder() const { return m_folder; }

private:
    CDesignSpecifications();

    static CDesignSpecifications* s_pInstance;

    designspec::SpecificationFolder m_folder;
};
