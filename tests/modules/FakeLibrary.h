// A library of styles that have nothing but a name, an identity and a number, for tests of what
// manages libraries. Its files are those of any library: one style each in 规范.
#pragma once

#include <memory>

#include "platform/vmrd/VMRDEnv/Styles.h"

class CFakeStyle : public CStyle {
public:
    CString Name() const override { return name; }
    GUID ID() const override { return id; }
    void DoPropExchange(CXTPPropExchange* pPX);

    CString name;
    GUID id;
    int value = 0;
};

class CFakeStyles : public CStyles {
public:
    CString Name() const override { return L"试验"; }
    int Count() const override { return static_cast<int>(m_items.size()); }
    CFakeStyle* Item(const GUID& id) const override;
    CFakeStyle* Item(int index) const override;
    CFakeStyle* Item(const CString& name) const;

    bool Export(const wchar_t* path, const CStringArray& names, const wchar_t*) override;
    bool Import(const wchar_t* path, const CStringArray& names, const wchar_t*,
                bool overwrite) override;
    bool SaveAsTemplate(const wchar_t* folder) override;
    bool StyleNames(const wchar_t* path, CStringArray& names, CArray<GUID>& ids) const override;
    void Update() override;
    using CStyles::SetDefaultItem;
    void SetDefaultItem(int index) override;
    designspec::StyleImport ImportAndSave(const CString& path, const CStringArray& names,
                                          bool overwrite) override;
    designspec::StyleFolder& Files() override;

    // Appends a style with a fresh identity and saves it.
    CFakeStyle* Add(const CString& name);
    // Gives it another name, in its file too.
    void Rename(CFakeStyle& style, const CString& name);
    // Takes it out of the list; the file stays.
    bool Remove(const CStyle* style);

private:
    static CString FileName(const CFakeStyle& style);
    bool Save(CFakeStyle& style);
    void TakeIn(const CFakeStyle& style, bool overwrite);

    std::vector<std::unique_ptr<CFakeStyle>> m_items;
    designspec::StyleFolder m_files{designspec::CurrentStylesFolder(), L"试验"};
};
